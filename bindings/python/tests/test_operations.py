"""The twelve operations, with a person in front of the view without a screen."""

import gc
import weakref

import pytest
from conftest import put_format, put_session, value_of

import wynconfig
from wynconfig import Answer, Kind, Record, Store


def press(button):
    """What presses a button."""
    return lambda form: form[button].click()


def editing(line):
    """What types a command line into the session dialog and presses OK."""

    def script(form):
        form["txtCommandLineArgs"].type(line)
        form["btnOK"].click()

    return script


def adding(name):
    """What names a new session after BENCH."""

    def script(form):
        form["txtName"].type(name)
        form["cboConfigs"].choose("BENCH")
        form["btnOK"].click()

    return script


def test_init_makes_a_store(tmp_path):
    for number, root in enumerate([tmp_path / "a", f"{tmp_path}/b/"]):
        (tmp_path / "ab"[number]).mkdir()
        wynconfig.init(root)
        with Store(root) as store:
            assert store.is_made


def test_a_session_is_edited(user, store):
    user.on_form("frmMORAMConfig", editing("/new"))
    assert wynconfig.showMORAMConfigDlg("bench") == (0, "BENCH")
    assert value_of(store, "BENCH", "CommandLineArgs") == "/new"
    user.on_form("frmMORAMConfig", press("btnCancel"))
    outcome = wynconfig.showMORAMConfigDlg("bench")
    assert outcome == (1, "BENCH")
    assert not outcome.confirmed
    assert user.forms == ["frmMORAMConfig", "frmMORAMConfig"]


def test_a_session_is_added(user, store):
    user.on_form("frmAddMORAMConfig", adding("stand"))
    user.on_form("frmMORAMConfig", editing("/stand"))
    added = wynconfig.showAddMORAMConfigDlg()
    assert added.confirmed and added.name == "STAND"
    assert value_of(store, "STAND", "CommandLineArgs") == "/stand"
    assert store.check() == []


def test_a_session_is_picked_and_another_one_deleted(user, store, root):
    put_session(store, "DESK", root / "program", ["CSV"])

    def script(form):
        form["lstAvailableMORAMs2"].pick("DESK")
        user.on_box(Answer.YES)
        form["btnDelete"].click()
        form["lstAvailableMORAMs2"].pick("BENCH")
        form["btnOK"].click()

    user.on_form("frmMORAMMaintenance", script)
    assert wynconfig.showMORAMMaintenanceDlg() == (0, "BENCH")
    assert store.names(Kind.SESSION) == ["BENCH"]
    ((title, text),) = user.boxes
    assert text == "Do you want to delete this session?" and title


def test_lists_of_sessions_are_shown_and_edited(user, store, root):
    put_session(store, "STAND", root / "program", ["CSV"])

    def picking(form):
        assert [row.text for row in form["lstAvailableTESessions"].rows] == ["BENCH", "STAND"]
        form["lstAvailableTESessions"].pick("STAND")
        form["btnOK"].click()

    user.on_form("frmSessionManager", picking)
    assert wynconfig.showSessionManagerDlg("GONE,BENCH,STAND") == "STAND"

    def maintaining(form):
        form["lstAvailableMORAMs2"].pick("STAND")
        form["btnOK"].click()

    def adding_one(form):
        user.on_form("frmMORAMMaintenance", maintaining)
        form["btnAdd"].click()
        form.close_by_frame()

    user.on_form("frmSessionManager", adding_one)
    assert wynconfig.showConfigurableSessionManagerDlg("BENCH") == "BENCH,STAND"


def test_a_session_goes_through_memory(user, store, root, tmp_path):
    old_root = tmp_path / "old"
    old_root.mkdir()
    wynconfig.init(old_root)
    with Store(old_root) as old:
        put_format(old, "TAPE")
        put_session(old, "DESK", root / "program", ["TAPE"])
    wynconfig.init(root)

    assert not wynconfig.MigrateSession(old_root, "GONE")
    assert wynconfig.MigrateSession(old_root, "desk")
    session, formats = wynconfig.GetDatasetSessionData(), wynconfig.GetDatasetFormatsData()
    assert [name_in(each) for each in [session, *formats]] == ["DESK", "TAPE"]

    user.on_form("frmMORAMConfig", editing("/memory"))
    assert wynconfig.showMORAMConfigDlgEX("desk", session, formats) == (0, "DESK")
    with Record.parse(wynconfig.GetDatasetSessionData()) as record:
        assert record["CommandLineArgs"] == "/memory"
    assert store.names(Kind.SESSION) == ["BENCH"]

    user.on_form("frmAddMORAMConfig", adding("counter"))
    user.on_form("frmMORAMConfig", press("btnCancel"))
    assert wynconfig.showAddMORAMConfigDlgEX() == (1, "COUNTER")
    assert wynconfig.GetDatasetFormatsData() == [""]
    user.on_box()
    assert wynconfig.showMORAMConfigDlgEX("as it was", "no xml") == (1, "as it was")
    assert "strSessionDataXML" in user.boxes[-1].text


def name_in(xml):
    """The name of a record."""
    with Record.parse(xml) as record:
        return record.name


class Texts(wynconfig.ResourceManager):
    """Texts of a host."""

    def __init__(self):
        self.asked = []

    def get_string(self, key):
        self.asked.append(key)
        return "Größe 漢" if key == "SESSION_MANAGER_TITLE" else f"OWN {key}"

    def get_font(self, handle):
        self.asked.append(handle)
        return wynconfig.Font("Serif", 12.5, bold=True)


class BrokenTexts(Texts):
    """One is missing."""

    def get_string(self, key):
        if key == "BUTTON_CANCEL":
            raise LookupError("nobody has translated this")
        return super().get_string(key)


def test_a_resource_manager_gives_texts_and_font(user):
    texts = Texts()
    wynconfig.InitResourceManager(texts)
    seen = []

    def script(form):
        seen.extend([form.title, form["btnOK"].caption])
        # Another one, while a dialog is up that has its texts.
        wynconfig.use_bundle(locale="en")
        form["btnOK"].click()

    user.on_form("frmSessionManager", script)
    wynconfig.showSessionManagerDlg("BENCH")
    assert seen == ["Größe 漢", "OWN BUTTON_OK"]
    assert 0 in texts.asked  # for the font, by the number of a view without a screen


@pytest.mark.parametrize("replace", ["by the bundle", "by another one"])
def test_a_resource_manager_that_was_replaced_is_gone(root, replace):
    texts = Texts()
    wynconfig.InitResourceManager(texts)
    gone = weakref.ref(texts)
    del texts
    gc.collect()
    assert gone() is not None
    if replace == "by another one":
        wynconfig.InitResourceManager(Texts())
    else:
        wynconfig.use_bundle(locale="en")
    gc.collect()
    assert gone() is None


def test_what_a_resource_manager_raises_comes_back(user):
    wynconfig.InitResourceManager(BrokenTexts())
    user.on_form("frmSessionManager", press("btnCancel"))
    with pytest.raises(LookupError, match="nobody has translated this") as caught:
        wynconfig.showSessionManagerDlg("BENCH")
    assert caught.traceback[-1].name == "get_string"


class HelpfulTexts(Texts):
    """With help."""

    def find_string(self, key):
        self.asked.append(key)
        return f"Hilfe für {key}"


@pytest.mark.parametrize(
    "texts, told", [(HelpfulTexts(), "Hilfe für HELP_SESSION_NAME"), (Texts(), "")]
)
def test_a_resource_manager_may_give_help(user, texts, told):
    wynconfig.InitResourceManager(texts)
    seen = []

    def script(form):
        assert not [each for each in texts.asked if str(each).startswith("HELP_")]
        seen.append(form["txtName"].help)
        form["btnCancel"].click()

    user.on_form("frmAddMORAMConfig", script)
    wynconfig.showAddMORAMConfigDlg()
    assert seen == [told]


def test_a_resource_manager_has_to_give_texts():
    with pytest.raises(TypeError):
        wynconfig.ResourceManager()
    with pytest.raises(TypeError):
        wynconfig.View()

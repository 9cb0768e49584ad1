"""A view and an observer in Python, and what they raise."""

import gc
import threading
import weakref

import pytest

import wynconfig
from wynconfig import Answer, BoxStyle, ControlKind, Key, Kind, NodeKind


class ScriptedHost(wynconfig.View):
    """A view that shows a form by what a test says; answers boxes and browse dialogs likewise."""

    def __init__(self, **scripts):
        self.scripts = scripts
        self.boxes = []
        self.requests = []
        self.raised = []
        self.answers = []
        self.path = ""
        self.signs = []

    def show_progress(self, progress):
        self.signs.append(progress)

    def show_modal(self, form):
        self.scripts[form.name](form)

    def show_message(self, box):
        self.boxes.append(box)
        return self.answers.pop(0) if self.answers else super().show_message(box)

    def browse(self, request):
        self.requests.append(request)
        return self.path

    def raise_(self, top_most):
        self.raised.append(top_most)

    def device_context(self):
        return 1 << 40


def install(**scripts):
    """Installs such a view, by names of forms without "frm"."""
    view = ScriptedHost(**{f"frm{name}": script for name, script in scripts.items()})
    wynconfig.install_view(view)
    return view


def cancel(form):
    form["btnCancel"].click()


def test_a_session_is_added_by_a_view_of_the_host(store, root):
    def naming(form):
        assert form.title == "Add a session"
        assert form.control_names()[:3] == ["frmSession", "lblName", "txtName"]
        name = form["txtName"]
        assert name.kind is ControlKind.EDIT and name.look().focus and name.enabled
        name.type("stand")
        assert (name.text, name.look().caret) == ("stand", 5)
        name.set_caret(2)
        assert name.look().caret == 2
        form.press(Key.ENTER)
        assert not form.is_open

    def configuring(form):
        form["txtProgramPath"].type("/nowhere/program")
        form["btnBrowseFile"].click()
        assert form["txtProgramPath"].text == str(root / "program")
        form["rdoLeft"].click()
        assert form["rdoLeft"].value and not form["rdoTop"].value
        form["chkReverseList"].tick(False)
        assert not form["chkReverseList"].value
        tabs = form["SSTab2"]
        assert tabs.look().selected == 1 and len(tabs.rows) == 2
        assert not form["btnAdd"].visible
        tabs.change_tab(1)
        assert form["btnAdd"].visible
        formats = form["lstAvailableFormats"]
        assert formats.selected_row is None
        formats.pick("CSV")
        assert formats.selected_row.text == "CSV"
        form["btnAdd"].click()
        assert [row.text for row in form["lstSelectedFormats2"].rows] == ["CSV"]
        form["btnOK"].click()

    view = install(AddMORAMConfig=naming, MORAMConfig=configuring)
    view.path = str(root / "program")
    assert wynconfig.showAddMORAMConfigDlg() == (0, "STAND")
    (request,) = view.requests
    assert request.files and request.title and request.ok_caption and request.cancel_caption
    with store.read(Kind.SESSION, "STAND") as record:
        assert record["ProgramPath"] == str(root / "program")
        assert (record["Orientation"], record["ReverseList"]) == ("left", "false")
        assert (record["FormatCount"], record["FORMAT1"]) == ("1", "CSV")
    assert store.check() == []
    assert view.boxes == []
    assert view.raised == [True, False, True, False]  # each form once to the front


def test_a_view_is_told_of_work(store):
    view = install(MORAMConfig=cancel)
    wynconfig.showMORAMConfigDlg("bench")
    begins, ends = view.signs
    assert begins == wynconfig.Progress(wynconfig.Stage.BEGINS, "", "", 0, 0)
    assert ends.stage is wynconfig.Stage.ENDS


def nodes_below(node):
    yield node
    for child in node.children:
        yield from nodes_below(child)


def test_the_layout_names_every_control_once(store):
    def script(form):
        layout = form.layout()
        assert layout.kind is NodeKind.COLUMN
        tabs, buttons = layout.children
        assert (tabs.kind, tabs.control) == (NodeKind.TABS, form["SSTab2"])
        assert [child.kind for child in tabs.children] == [NodeKind.PANE, NodeKind.PANE]
        assert buttons.kind is NodeKind.BUTTONS
        names = {each.control.name for each in buttons.children}
        assert names == {"btnOK", "btnCancel", "btnApply"}
        nodes = list(nodes_below(layout))
        named = [each for node in nodes for each in (node.label, node.control) if each]
        assert sorted(each.name for each in named) == sorted(form.control_names())
        assert len(set(named)) == len(named)
        path = next(node for node in nodes if node.control == form["txtProgramPath"])
        assert path.label.caption == "Program Path" and path.label.mnemonic == "P"
        assert any(node.grows for node in nodes)
        assert not path.behind_box
        assert form.buttons() == (form["btnOK"], form["btnCancel"])
        cancel(form)

    install(MORAMConfig=script)
    wynconfig.showMORAMConfigDlg("bench")


def test_lets_go_of_all(root):
    class Gone(wynconfig.View):
        def show_modal(self, form):
            raise AssertionError("this view has gone")

    wynconfig.install_view(Gone())
    opened = wynconfig.Store(root)
    wynconfig.leave()
    with pytest.raises(wynconfig.HandleError):
        opened.names(wynconfig.Kind.SESSION)
    assert wynconfig.showMORAMConfigDlg("bench").result == 1
    wynconfig.use_bundle(locale="en")


def test_the_acts_of_a_person(store):
    def maintaining(form):
        sessions = form["lstAvailableMORAMs2"]
        sessions.type_ahead("be")
        assert sessions.selected_row.text == "BENCH"
        sessions.focus()
        assert sessions.look().focus
        form.press(Key.TAB)
        assert not sessions.look().focus
        sessions.focus()
        form.press(Key.DELETE)
        assert [row.text for row in sessions.rows] == ["BENCH"]
        form["btnEdit"].click()
        form.resize(9000, 7000)
        sessions.double_click("BENCH")
        assert not form.is_open

    edited = []

    def editing(form):
        edited.append(form.name)
        form.press_mnemonic("P")
        assert form["txtProgramPath"].look().focus
        form["btnCancel"].bare_click()
        assert not form.is_open

    view = install(MORAMMaintenance=maintaining, MORAMConfig=editing)
    view.answers = [Answer.NO]
    assert wynconfig.showMORAMMaintenanceDlg() == (0, "BENCH")
    assert edited == ["frmMORAMConfig"]
    (box,) = view.boxes
    assert box.is_question and box.style & BoxStyle.YES_NO


def test_the_view_is_asked_for_its_number(store):
    class Texts(wynconfig.ResourceManager):
        handles = []

        def get_string(self, key):
            return key

        def get_font(self, handle):
            self.handles.append(handle)
            return super().get_font(handle)

    wynconfig.InitResourceManager(Texts())
    install(SessionManager=cancel)
    wynconfig.showSessionManagerDlg("BENCH")
    assert 1 << 40 in Texts.handles


def test_what_a_person_could_not_do_is_an_error(store):
    def script(form):
        with pytest.raises(wynconfig.UserError, match="btnNowhere"):
            form["btnNowhere"]
        with pytest.raises(wynconfig.UserError):
            form["btnAdd"].click()
        assert form["btnAdd"].look().switched_off is False
        cancel(form)
        with pytest.raises(wynconfig.UserError):
            form["btnOK"].click()

    install(MORAMConfig=script)
    wynconfig.showMORAMConfigDlg("bench")


def test_a_view_that_only_shows_forms_answers_so_that_nothing_changes(store):
    class Least(wynconfig.View):
        def show_modal(self, form):
            form["lstAvailableMORAMs2"].pick("BENCH")
            form["btnDelete"].click()
            cancel(form)

    wynconfig.install_view(Least())
    wynconfig.showMORAMMaintenanceDlg()
    assert store.names(Kind.SESSION) == ["BENCH"]
    box = wynconfig.Box("", "", "", BoxStyle.OK | BoxStyle.CRITICAL)
    assert Least().show_message(box) is Answer.OK
    assert Least().browse(wynconfig.BrowseRequest("", "", "", files=False)) == ""
    assert Least().device_context() == 0


def test_a_form_that_is_left_open_is_cancelled(store):
    install(MORAMConfig=lambda form: None)
    assert not wynconfig.showMORAMConfigDlg("bench").confirmed


def test_a_form_ends_with_the_method_that_got_it(store):
    kept = []

    def script(form):
        kept.extend([form, form["btnOK"]])
        cancel(form)

    install(MORAMConfig=script)
    wynconfig.showMORAMConfigDlg("bench")
    for act in (lambda: kept[0].title, lambda: kept[1].click()):
        with pytest.raises(wynconfig.HandleError):
            act()


def test_a_form_belongs_to_its_thread(store):
    caught = []

    def elsewhere(form):
        try:
            form["btnOK"].click()
        except wynconfig.HandleError as error:
            caught.append(error)

    def script(form):
        thread = threading.Thread(target=elsewhere, args=[form])
        thread.start()
        thread.join()
        cancel(form)

    install(MORAMConfig=script)
    wynconfig.showMORAMConfigDlg("bench")
    assert len(caught) == 1


@pytest.mark.parametrize("kind", [ValueError, KeyboardInterrupt, SystemExit])
def test_what_a_view_raises_comes_back_by_the_operation(store, kind):
    def script(form):
        raise kind("the screen is gone")

    view = install(MORAMConfig=script)
    with pytest.raises(kind, match="the screen is gone") as caught:
        wynconfig.showMORAMConfigDlg("bench")
    assert any(entry.name == "script" for entry in caught.traceback)
    (box,) = view.boxes
    assert "the screen is gone" in box.text
    # It is told once.
    view.scripts["frmMORAMConfig"] = cancel
    wynconfig.showMORAMConfigDlg("bench")


def test_an_error_of_the_host_keeps_its_number(store):
    failures = []

    class Watcher(wynconfig.Observer):
        def failed(self, failure):
            failures.append(failure)

    def script(form):
        raise wynconfig.Error(4711, "a text\0of the host")

    install(MORAMConfig=script)
    wynconfig.install_observer(Watcher())
    with pytest.raises(wynconfig.Error) as caught:
        wynconfig.showMORAMConfigDlg("bench")
    assert caught.value.number == 4711
    (failure,) = failures
    assert (failure.number, failure.description) == (4711, "a text of the host")
    assert failure.operation == "showMORAMConfigDlg" and failure.tag


def test_what_is_raised_within_an_act_comes_back_by_the_act(store):
    def adding(form):
        raise ValueError("the inner form")

    def maintaining(form):
        with pytest.raises(ValueError, match="the inner form"):
            form["btnNew"].click()
        cancel(form)

    install(MORAMMaintenance=maintaining, AddMORAMConfig=adding)
    wynconfig.showMORAMMaintenanceDlg()


def test_what_is_raised_last_is_told_in_a_note(store):
    class Broken(ScriptedHost):
        def show_message(self, box):
            raise OSError("no box either")

    def script(form):
        raise ValueError("no form")

    wynconfig.install_view(Broken(frmMORAMConfig=script))
    with pytest.raises(ValueError, match="no form") as caught:
        wynconfig.showMORAMConfigDlg("bench")
    (note,) = set(caught.value.__notes__)
    assert "OSError: no box either" in note


def test_a_wrong_answer_is_raised(store):
    class Wrong(ScriptedHost):
        def show_message(self, box):
            return "yes"

    def script(form):
        form["lstAvailableMORAMs2"].pick("BENCH")
        with pytest.raises(TypeError):
            form["btnDelete"].click()
        cancel(form)

    wynconfig.install_view(Wrong(frmMORAMMaintenance=script))
    wynconfig.showMORAMMaintenanceDlg()
    assert store.names(Kind.SESSION) == ["BENCH"]


def test_an_observer_is_told_of_boxes_and_failures(store, tmp_path):
    class Watcher(wynconfig.Observer):
        def __init__(self):
            self.told = []

        def failed(self, failure):
            self.told.append(failure.operation)

        def answered(self, box, answer):
            self.told.append((box.is_question, answer))

    def script(form):
        form["lstAvailableMORAMs2"].pick("BENCH")
        form["btnDelete"].click()
        cancel(form)

    watcher = Watcher()
    wynconfig.install_observer(watcher)
    install(MORAMMaintenance=script)
    wynconfig.showMORAMMaintenanceDlg()
    assert watcher.told == [(True, Answer.NO)]
    wynconfig.init(f"{tmp_path}/rootless")
    assert "init" in watcher.told
    watcher.told.clear()
    wynconfig.install_observer(None)
    wynconfig.init(f"{tmp_path}/rootless")
    assert watcher.told == []


def test_what_an_observer_raises_comes_back(store):
    class Watcher(wynconfig.Observer):
        def answered(self, box, answer):
            raise ValueError("the log is full")

    def script(form):
        form["lstAvailableMORAMs2"].pick("BENCH")
        with pytest.raises(ValueError, match="the log is full"):
            form["btnDelete"].click()
        cancel(form)

    wynconfig.install_observer(Watcher())
    install(MORAMMaintenance=script)
    wynconfig.showMORAMMaintenanceDlg()


def test_an_observer_of_nothing(store):
    wynconfig.install_observer(wynconfig.Observer())
    view = install(MORAMMaintenance=cancel)
    wynconfig.showMORAMMaintenanceDlg()
    assert view.boxes == []


def test_the_library_holds_a_view_as_long_as_it_may_call_it(store):
    def script(form):
        wynconfig.install_view(None)  # while it shows a form
        gc.collect()
        assert view() is not None
        cancel(form)

    view = weakref.ref(install(MORAMConfig=script))
    gc.collect()
    assert view() is not None
    assert wynconfig.showMORAMConfigDlg("bench") == (1, "BENCH")
    gc.collect()
    assert view() is None


def test_what_was_raised_holds_nothing(store):
    def script(form):
        raise ValueError("the screen is gone")

    view = weakref.ref(install(MORAMConfig=script))
    try:
        wynconfig.showMORAMConfigDlg("bench")
    except ValueError:
        pass
    wynconfig.install_view(None)
    assert view() is None  # without the collector of cycles

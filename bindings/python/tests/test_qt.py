"""The desktop view: on a screen where DESKTOP_KIT is set, else off screen."""

import threading

import pytest
from conftest import value_of

import wynconfig

PNG = b"\x89PNG\r\n\x1a\n"


@pytest.fixture
def qt(screen):
    """The module of the desktop view."""
    import wynconfig.qt as module

    return module


def test_nothing_goes_before_the_view(qt):
    def check():
        for act in (qt.user, lambda: qt.set_owner(0), lambda: qt.save_picture("x.png")):
            with pytest.raises(wynconfig.CallError):
                act()
        outcome.append("refused")

    outcome = []
    thread = threading.Thread(target=check)  # where none was installed for sure
    thread.start()
    thread.join()
    assert outcome == ["refused"]


def test_a_german_dialog_in_a_real_window(qt, store, tmp_path):
    wynconfig.use_bundle(locale="de-AT")
    qt.install_view()
    picture = tmp_path / "Bild.png"

    def script(form):
        assert form.title == "WYN-Konfiguration für externe Programme"
        assert form["lblPath"].caption == "Programmpfad" and form["lblPath"].mnemonic == "P"
        assert form["btnCancel"].caption == "Abbrechen"
        form["txtCommandLineArgs"].type("/größe")
        qt.save_picture(picture)
        assert form.is_open
        form["btnOK"].click()
        assert not form.is_open

    with qt.user() as user:
        user.on_form("frmMORAMConfig", script)
        assert wynconfig.showMORAMConfigDlg("bench") == (0, "BENCH")
        assert user.forms == ["frmMORAMConfig"]
    assert value_of(store, "BENCH", "CommandLineArgs") == "/größe"
    content = picture.read_bytes()
    assert content.startswith(PNG)
    width, height = (int.from_bytes(content[at : at + 4], "big") for at in (16, 20))
    assert width > 300 and height > 200
    assert len(content) > 3000  # more than one colour


def test_a_view_of_the_host_alone_tells_kinds_and_layout(qt, store):
    qt.install_view()

    def script(form):
        for ask in (form.layout, form.control_names, lambda: form["btnOK"].kind):
            with pytest.raises(wynconfig.CallError):
                ask()
        form["btnCancel"].click()

    with qt.user() as user:
        user.on_form("frmMORAMConfig", script)
        wynconfig.showMORAMConfigDlg("bench")


def test_dialogs_can_belong_to_a_window(qt, store):
    qt.install_view()
    qt.set_owner(0)
    with pytest.raises(wynconfig.UserError):
        qt.save_picture("nothing is up.png")

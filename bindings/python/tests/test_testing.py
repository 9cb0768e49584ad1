"""The test kit."""

import gc
import weakref

import pytest

import wynconfig
from wynconfig import Answer


def cancel(form):
    form["btnCancel"].click()


def test_what_comes_up_unannounced_is_told(store):
    with pytest.raises(wynconfig.UserError, match="frmMORAMConfig"):
        with wynconfig.install_scripted_view():
            assert not wynconfig.showMORAMConfigDlg("bench").confirmed


def test_what_does_not_come_up_is_told_and_forgotten(store):
    with wynconfig.install_scripted_view() as user:
        user.on_form("frmMORAMConfig", cancel)
        user.on_box(Answer.YES)
        user.on_browse("/somewhere")
        with pytest.raises(wynconfig.UserError, match="frmMORAMConfig"):
            user.finish()
        user.finish()
        assert user.forms == user.boxes == []


def test_announcements_are_used_up_in_their_order(user):
    seen = []
    for number in (1, 2):
        user.on_form(
            "frmMORAMConfig", lambda form, number=number: (seen.append(number), cancel(form))
        )
    wynconfig.showMORAMConfigDlg("bench")
    wynconfig.showMORAMConfigDlg("bench")
    assert seen == [1, 2]


def test_a_path_is_browsed_for(user, root):
    def script(form):
        user.on_browse(root / "program")
        form["btnBrowseFile"].click()
        assert form["txtProgramPath"].text == str(root / "program")
        cancel(form)

    user.on_form("frmMORAMConfig", script)
    wynconfig.showMORAMConfigDlg("bench")


def test_a_failed_assertion_of_a_script_comes_back_by_the_operation(store):
    with pytest.raises(AssertionError, match="in vain"):
        with wynconfig.install_scripted_view() as user:

            def script(form):
                raise AssertionError("in vain")

            user.on_form("frmMORAMConfig", script)
            wynconfig.showMORAMConfigDlg("bench")


def test_finish_tells_of_a_script_that_raised(store):
    with wynconfig.install_scripted_view() as user:

        def script(form):
            raise ValueError("in vain")

        user.on_form("frmMORAMConfig", script)
        with pytest.raises(ValueError):
            wynconfig.showMORAMConfigDlg("bench")
        with pytest.raises(wynconfig.UserError, match="in vain"):
            user.finish()


def test_the_scripts_of_a_closed_user_are_gone(store):
    user = wynconfig.install_scripted_view()

    def script(form):
        pytest.fail("nobody is there to do this")

    user.on_form("frmMORAMConfig", script)
    forgotten = weakref.ref(script)
    user.close()
    del script
    gc.collect()
    assert forgotten() is None
    with pytest.raises(wynconfig.HandleError, match="Nobody"):
        wynconfig.showMORAMConfigDlg("bench")
    with pytest.raises(wynconfig.HandleError):
        user.finish()


def test_a_user_without_a_view(store):
    with wynconfig.install_scripted_view() as user:
        wynconfig.install_view(None)
        assert not wynconfig.showMORAMConfigDlg("bench").confirmed
        assert user.forms == []

"""The samples of docs/python.md work, and so does the example."""

import re
import runpy
import sys

import pytest
from conftest import SOURCE, put_format

import wynconfig
from wynconfig import Kind, Store

EXAMPLE = SOURCE / "examples" / "python" / "host.py"


def samples():
    """The samples, which their lines in the document stand in front of."""
    text = (SOURCE / "docs" / "python.md").read_text(encoding="utf-8")
    found = list(re.finditer(r"^```python\n(.*?)^```$", text, re.DOTALL | re.MULTILINE))
    return ["\n" * text[: sample.start(1)].count("\n") + sample[1] for sample in found]


def test_the_first_sample_is_the_example():
    assert samples()[0].strip() == EXAMPLE.read_text(encoding="utf-8").strip()


def test_the_samples_work_one_after_the_other(tmp_path, monkeypatch, capsys):
    monkeypatch.chdir(tmp_path)
    namespace = {}
    for sample in samples()[1:]:
        exec(compile(sample, "docs/python.md", "exec"), namespace)
    printed = capsys.readouterr().out
    assert "cancelled: the terminal has gone" in printed
    assert "Outcome(result=0, name='WORKSHOP')" in printed
    assert f"WORKSHOP {tmp_path}/program reversed" in printed
    (test,) = [each for name, each in namespace.items() if name.startswith("test_")]
    test()
    rows = namespace["database"].execute("SELECT name, xml FROM session").fetchall()
    assert [name for name, _ in rows] == ["COUNTER"]
    assert namespace["database"].execute("SELECT name FROM format").fetchall() == [("PLAIN",)]
    namespace["database"].close()


@pytest.mark.parametrize("confirmed", [True, False])
def test_the_example_adds_a_session(screen, tmp_path, monkeypatch, capsys, confirmed):
    import wynconfig.qt

    with Store(tmp_path) as store:
        wynconfig.init(tmp_path)
        put_format(store, "CSV")
        users = []
        install_view = wynconfig.qt.install_view

        def install_with_user():
            install_view()
            users.append(wynconfig.qt.user())
            users[0].on_form("frmAddMORAMConfig", naming if confirmed else cancelling)
            if confirmed:
                users[0].on_form("frmMORAMConfig", configuring)

        def naming(form):
            form["txtName"].type("bench")
            form["btnOK"].click()

        def cancelling(form):
            form["btnCancel"].click()

        def configuring(form):
            form["txtProgramPath"].type(str(EXAMPLE))
            form["SSTab2"].change_tab(1)
            form["lstAvailableFormats"].pick("CSV")
            form["btnAdd"].click()
            form["btnOK"].click()

        monkeypatch.setattr(wynconfig.qt, "install_view", install_with_user)
        monkeypatch.setattr(sys, "argv", ["host.py", str(tmp_path)])
        with pytest.raises(SystemExit) as ended:
            runpy.run_path(str(EXAMPLE))
        users[0].finish()
        users[0].close()
        assert ended.value.code == (0 if confirmed else 1)
        assert capsys.readouterr().out.strip() == (
            "added BENCH" if confirmed else "nothing was added"
        )
        assert store.names(Kind.SESSION) == (["BENCH"] if confirmed else [])

"""Failures, texts, handles and threads."""

import gc
import os
import subprocess
import sys
import textwrap
import threading

import pytest
from conftest import put_format, value_of

import wynconfig
from wynconfig import Kind, Record, Store


def on_another_thread(act):
    """What it returns or raises there."""
    outcome = []

    def run():
        try:
            outcome.append(act())
        except Exception as error:
            outcome.append(error)

    thread = threading.Thread(target=run)
    thread.start()
    thread.join()
    return outcome[0]


def run_program(text, *arguments):
    """Runs a program of its own; gives what it prints. It must end well and print no failure."""
    ended = subprocess.run(
        [sys.executable, "-B", "-X", "faulthandler", "-c", textwrap.dedent(text), *arguments],
        capture_output=True,
        text=True,
        timeout=60,
    )
    assert (ended.returncode, ended.stderr) == (0, ""), ended.stderr
    return ended.stdout


def test_a_failure_tells_number_description_and_function():
    with pytest.raises(wynconfig.MissingFileError) as caught:
        Record.load("/nowhere/X.vla")
    error = caught.value
    assert error.number == 53
    assert error.function == "wyn_record_load"
    assert str(error) == error.description != ""


def test_a_key_that_is_not_there_is_a_key_error():
    with Record.new(Kind.SESSION, "A") as record:
        with pytest.raises(KeyError) as caught:
            record["ProgramPath"]
        assert isinstance(caught.value, wynconfig.NoSuchKeyError)
        with pytest.raises(wynconfig.NoSuchKeyError):
            del record["ProgramPath"]
        assert "ProgramPath" not in record
        assert record.get("ProgramPath") is None


def test_a_failure_without_a_class_of_its_own_is_an_error(tmp_path):
    with pytest.raises(wynconfig.Error):
        wynconfig.use_bundle(tmp_path)


def test_texts_go_in_and_come_out_as_they_are():
    text = "Ä Œ 漢字 🧰 \t\r\n ]]> \" ' &amp;"
    with Record.new(Kind.SESSION, "Größe") as record:
        record["Über"] = text
        assert record.name == "Größe"
        assert dict(record) == {"Über": text}
        with Record.parse(record.xml) as again:
            assert list(again.items()) == [("Über", text)]


@pytest.mark.parametrize("text", ["a\0b", "\udc80"])
def test_a_text_that_c_has_no_room_for_is_refused(text):
    with pytest.raises(ValueError):
        wynconfig.upper_name(text)


def test_a_closed_handle_is_an_error():
    record = Record.new(Kind.SESSION, "A")
    record.close()
    record.close()
    with pytest.raises(wynconfig.HandleError):
        record.name
    with Store("nowhere/") as store:
        pass
    with pytest.raises(wynconfig.HandleError):
        store.is_made


def test_a_handle_belongs_to_its_thread(store):
    assert isinstance(on_another_thread(lambda: store.names(Kind.SESSION)), wynconfig.HandleError)
    assert isinstance(on_another_thread(store.close), wynconfig.HandleError)
    assert store.names(Kind.SESSION) == ["BENCH"]


def arguments_of(monkeypatch, name):
    """The one argument of each call of a function from now on."""
    from wynconfig import _library

    arguments = []
    function = _library._functions[name]

    def watched(argument):
        arguments.append(argument)
        return function(argument)

    monkeypatch.setitem(_library._functions, name, watched)
    return arguments


def test_the_memory_of_texts_and_lists_is_given_back(monkeypatch):
    with Record.new(Kind.SESSION, "A") as record:
        record["Key"] = "value"
        freed = arguments_of(monkeypatch, "wyn_free")
        assert record["Key"] == "value"
        assert len(freed) == 1 and freed[0].value
        closed = arguments_of(monkeypatch, "wyn_close")
        assert list(iter(record)) == ["Key"]
        assert len(closed) == 1 and closed[0] != record._handle


def test_a_forgotten_handle_is_closed(monkeypatch):
    record = Record.new(Kind.SESSION, "A")
    number = record._handle
    closed = arguments_of(monkeypatch, "wyn_close")
    del record
    gc.collect()
    assert closed == [number]
    with pytest.raises(wynconfig.HandleError):
        wynconfig._library.call("wyn_close", number)


def test_a_handle_forgotten_on_another_thread_is_left_to_its_own(monkeypatch):
    holder = [Record.new(Kind.SESSION, "A")]
    number = holder[0]._handle
    closed = arguments_of(monkeypatch, "wyn_close")
    on_another_thread(lambda: holder.clear())
    assert closed == []
    monkeypatch.undo()
    wynconfig._library.call("wyn_close", number)  # it was still open


def test_each_thread_has_a_component_of_its_own(root, tmp_path):
    other = tmp_path / "other"
    other.mkdir()

    def work():
        wynconfig.use_bundle(locale="de")
        wynconfig.init(other)
        with wynconfig.install_scripted_view() as user:
            titles = []
            user.on_form(
                "frmAddMORAMConfig",
                lambda form: (titles.append(form.title), form["btnCancel"].click()),
            )
            wynconfig.showAddMORAMConfigDlg()
        return titles

    assert on_another_thread(work) == ["Sitzung hinzufügen"]
    with wynconfig.install_scripted_view() as user:
        user.on_form("frmAddMORAMConfig", lambda form: form.close_by_frame())
        wynconfig.showAddMORAMConfigDlg()


def test_what_a_thread_installed_goes_with_it():
    # In a program of its own: what happens after the end of Python can only be seen from outside.
    printed = run_program("""
        import gc, threading, weakref, wynconfig

        class View(wynconfig.View):
            def show_modal(self, form): pass
        class Texts(wynconfig.ResourceManager):
            def get_string(self, key): return key
        seen = []
        def install():
            for install, host in [(wynconfig.install_view, View()),
                                  (wynconfig.install_observer, wynconfig.Observer()),
                                  (wynconfig.InitResourceManager, Texts())]:
                install(host)
                seen.append(weakref.ref(host))
        thread = threading.Thread(target=install)
        thread.start()
        thread.join()
        gc.collect()
        print([each() for each in seen])
        install()
        gc.collect()
        print(all(each() for each in seen[3:]))
    """)
    assert printed == "[None, None, None]\nTrue\n"


def test_a_program_may_end_with_everything_open(root):
    printed = run_program("""
        import sys, wynconfig
        wynconfig.use_bundle(locale="en")
        wynconfig.init(sys.argv[1] + "/")
        class View(wynconfig.View):
            def show_modal(self, form):
                print(form.name)
                sys.exit(0)
        wynconfig.install_view(View())
        wynconfig.install_observer(wynconfig.Observer())
        store = wynconfig.Store(sys.argv[1] + "/")
        wynconfig.showAddMORAMConfigDlg()
        print("not reached")
    """, str(root))
    assert printed == "frmAddMORAMConfig\n"


@pytest.mark.parametrize("is_file", [False, True])
def test_the_library_is_found_where_the_variable_says(is_file):
    from wynconfig import _library

    place = _library._place_of("wynconfig")
    folder = os.path.dirname(place)
    if not folder:
        pytest.skip("the loader has found it")
    program = "import wynconfig, wynconfig.qt; print(wynconfig.version_text())"
    printed = subprocess.run(
        [sys.executable, "-B", "-c", program],
        env={**os.environ, "WYNCONFIG_LIBRARY": place if is_file else folder},
        capture_output=True, text=True, timeout=60, check=True,
    ).stdout
    assert printed.strip() == wynconfig.version_text()


def test_a_library_that_is_not_there_is_an_import_error(tmp_path):
    ended = subprocess.run(
        [sys.executable, "-B", "-c", "import wynconfig"],
        env={**os.environ, "WYNCONFIG_LIBRARY": str(tmp_path)},
        capture_output=True, text=True, timeout=60,
    )
    assert ended.returncode == 1
    assert "ImportError" in ended.stderr and "WYNCONFIG_LIBRARY" in ended.stderr


def test_the_languages_of_the_texts():
    languages = wynconfig.bundle_languages()
    assert ("de", "Deutsch") in languages
    assert len(languages) == 9
    assert wynconfig.bundle_languages(wynconfig.bundle_folder()) == languages
    assert wynconfig.bundle_right_to_left(locale="ar")
    assert not wynconfig.bundle_right_to_left(locale="de")
    assert os.path.isfile(os.path.join(wynconfig.bundle_folder(), "de.xlf"))


def test_the_store_without_a_dialog(store, root):
    assert store.is_made
    assert store.names(Kind.PART_FORMAT) == ["CSV"]
    assert store.has(Kind.SESSION, "bench") and not store.has(Kind.SESSION, "DESK")
    assert store.sessions_with("csv") == ["BENCH"]
    assert store.check() == []
    with store.read(Kind.SESSION, "bench") as record:
        assert (record.type, record.name, len(record)) == ("MORAM", "BENCH", 4)
        assert list(record) == ["ProgramPath", "CommandLineArgs", "FormatCount", "FORMAT1"]
        record["CommandLineArgs"] = "/new"
        del record["FormatCount"]
        record.save(store.path(Kind.SESSION, "BENCH"))
    with Record.load(root / "MORAM" / "BENCH.vla") as record:
        assert record["CommandLineArgs"] == "/new"
    with store.read(Kind.PART_FORMAT, "CSV") as record:
        assert record.type == "PARTFORMAT"


def test_records_are_saved_together_or_not_at_all(store):
    assert wynconfig.is_item_name("REEL") and not wynconfig.is_item_name("a.b")
    with Record.new(Kind.PART_FORMAT, "reel") as reel, Record.new(Kind.SESSION, "12") as number:
        with pytest.raises(wynconfig.CallError):
            store.save(reel, number)
        assert not store.has(Kind.PART_FORMAT, "REEL")
        store.save(reel)
        store.save()
        number.close()
        with pytest.raises(wynconfig.HandleError):
            store.save(reel, number)
    assert store.names(Kind.PART_FORMAT) == ["CSV", "REEL"]


def test_a_part_format_is_renamed_in_its_sessions(store):
    put_format(store, "REEL")
    assert store.rename("csv", "tape") == ["BENCH"]
    assert store.names(Kind.PART_FORMAT) == ["REEL", "TAPE"]
    assert value_of(store, "BENCH", "FORMAT1") == "TAPE"
    for name, kind in [
        ("REEL", wynconfig.DuplicateKeyError),
        ("a.b", wynconfig.CallError),
    ]:
        with pytest.raises(kind):
            store.rename("TAPE", name)
    with pytest.raises(wynconfig.MissingFileError):
        store.rename("CSV", "DISK")


def test_the_store_deletes_and_restores(store):
    store.move_to_deleted(Kind.PART_FORMAT, "CSV")
    assert store.names(Kind.PART_FORMAT) == []
    assert store.deleted_names(Kind.PART_FORMAT) == ["CSV"]
    (fault,) = store.check()
    assert (fault.kind, fault.item) == (Kind.SESSION, "BENCH")
    assert "CSV" in fault.what
    put_format(store, "CSV")
    with pytest.raises(wynconfig.DuplicateKeyError):
        store.restore(Kind.PART_FORMAT, "csv")
    store.move_to_deleted(Kind.PART_FORMAT, "CSV")
    store.restore(Kind.PART_FORMAT, "CSV")
    assert store.check() == []
    with pytest.raises(wynconfig.MissingFileError):
        store.move_to_deleted(Kind.SESSION, "DESK")


def test_a_fault_of_a_part_format_tells_so(store, root):
    (root / "PARTFORMAT" / "CSV.vla").write_text("no record", encoding="utf-8")
    assert (Kind.PART_FORMAT, "CSV") in [(each.kind, each.item) for each in store.check()]
    with pytest.raises(wynconfig.RecordError):
        store.read(Kind.PART_FORMAT, "CSV")
    with pytest.raises(wynconfig.RecordError):
        Record.parse("no record")


def test_a_store_that_was_not_made(tmp_path):
    with Store(tmp_path) as store:
        assert not store.is_made
    with pytest.raises(wynconfig.CallError):
        Record.new(7, "A")


def test_names_in_upper_case():
    assert wynconfig.upper_name("straße ä") == "STRAßE Ä"

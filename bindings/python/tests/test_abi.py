"""The headers and this package agree on every function, struct and number."""

import ctypes
import enum
import re

import pytest
from conftest import SOURCE

import wynconfig
from wynconfig import _abi, keys

CALLBACKS = {
    "wyn_script": _abi.SCRIPT,
    "get_string": _abi.GET_STRING,
    "get_font": _abi.GET_FONT,
    "find_string": _abi.GET_STRING,
    "release": _abi.RELEASE,
    "show_modal": _abi.SHOW_MODAL,
    "show_message": _abi.SHOW_MESSAGE,
    "browse": _abi.BROWSE,
    "raise": _abi.RAISE,
    "device_context": _abi.DEVICE_CONTEXT,
    "show_progress": _abi.SHOW_PROGRESS,
    "failed": _abi.FAILED,
    "answered": _abi.ANSWERED,
}
SCALARS = {
    "void": None,
    "int32_t": ctypes.c_int32,
    "int64_t": ctypes.c_int64,
    "size_t": ctypes.c_size_t,
    "uintptr_t": ctypes.c_size_t,
    "double": ctypes.c_double,
    "int32_t*": ctypes.POINTER(ctypes.c_int32),
    "int64_t*": ctypes.POINTER(ctypes.c_int64),
    "size_t*": ctypes.POINTER(ctypes.c_size_t),
    "void*": ctypes.c_void_p,
    "void**": ctypes.POINTER(ctypes.c_void_p),
    "char*": ctypes.c_char_p,
    # A text that comes out is an address to be given back.
    "char**": ctypes.POINTER(ctypes.c_void_p),
    "char**const": ctypes.POINTER(ctypes.c_char_p),
}


def header(name):
    """A header as it stands."""
    return (SOURCE / "include" / "wynconfig" / name).read_text(encoding="utf-8")


def code(name):
    """A header without its comments."""
    return re.sub(r"//.*", "", header(name))


def declared(name):
    """The functions of a header: (result, name, arguments)."""
    found = re.findall(r"^WYNCONFIG_API ([^;()]*?)(wyn_\w+)\(([^;]*)\);", code(name), re.MULTILINE)
    assert len(found) == code(name).count("WYNCONFIG_API ")
    return found


def structs():
    """The structs of c.h: name and fields."""
    return dict(re.findall(r"typedef struct (wyn_\w+) \{(.*?)\} \1;", code("c.h"), re.DOTALL))


def class_of(struct):
    """The class of a struct, such as ResourceManager of wyn_resource_manager."""
    return getattr(_abi, struct.removeprefix("wyn_").title().replace("_", ""))


def type_of(text):
    """What ctypes calls a type of C, which may have the name of an argument behind it."""
    words = " ".join(text.replace("*", " * ").split())
    pointer = re.sub(r"\bconst\b", "", words)
    kind, stars = re.match(r"\s*(\w+)\s*([* ]*)", pointer).groups()
    stars = stars.replace(" ", "")
    if words.startswith("const char * const *"):
        return SCALARS["char**const"]
    if kind in CALLBACKS:
        return CALLBACKS[kind]
    if kind.startswith("wyn_"):
        if kind in structs():
            return ctypes.POINTER(class_of(kind))
        kind = "void"  # a handle
    return SCALARS[kind + stars]


def types_of(arguments):
    listed = [each for each in arguments.split(",") if each.strip() != "void"]
    return tuple(type_of(each) for each in listed)


@pytest.mark.parametrize(
    "name, bound", [("c.h", _abi.FUNCTIONS), ("c_qt.h", _abi.QT_FUNCTIONS)]
)
def test_every_function_is_bound(name, bound):
    functions = declared(name)
    assert [function for _, function, _ in functions] == list(bound)
    for result, function, arguments in functions:
        expected = types_of(arguments)
        if function == "wyn_free":
            expected = (ctypes.c_void_p,)  # the address as it came
        assert bound[function] == expected, function
        assert _abi.RESULTS.get(function, ctypes.c_int32) == type_of(result), function


def test_every_function_is_used():
    package = SOURCE / "bindings" / "python" / "wynconfig"
    sources = "".join(
        path.read_text() for path in package.glob("*.py") if path.name != "_abi.py"
    )
    for name in [*_abi.FUNCTIONS, *_abi.QT_FUNCTIONS]:
        assert f'"{name}"' in sources, name


def test_the_structs_are_those_of_the_header():
    assert len(structs()) == 11
    for name, body in structs().items():
        fields = []
        for field in filter(None, map(str.strip, body.split(";"))):
            if function := re.match(r"(\w+) \(\*(\w+)\)\((.*)\)$", field, re.DOTALL):
                result, field_name, arguments = function.groups()
                kind = CALLBACKS[field_name]
                assert kind._restype_ == type_of(result), field_name
                assert kind._argtypes_ == types_of(arguments), field_name
                fields.append((field_name, kind))
            else:
                fields.append((re.search(r"(\w+)$", field)[1], type_of(field)))
        assert class_of(name)._fields_ == fields, name


def test_a_script_is_that_of_the_header():
    result, arguments = re.search(
        r"typedef (\w+) \(\*wyn_script\)\((.*?)\);", code("c.h")
    ).groups()
    assert _abi.SCRIPT._restype_ == type_of(result)
    assert _abi.SCRIPT._argtypes_ == types_of(arguments)


def test_the_numbers_are_those_of_the_header():
    defined = dict(re.findall(r"^#define WYN_(\w+) (\d+)", code("c.h"), re.MULTILINE))
    known = {"OK": _abi.OK, "SESSION": wynconfig.Kind.SESSION}
    known["PART_FORMAT"] = wynconfig.Kind.PART_FORMAT
    known |= {name: number for name, number in vars(_abi).items() if name.startswith("ERROR_")}
    for head, numbers in [
        ("BOX", wynconfig.BoxStyle),
        ("ANSWER", wynconfig.Answer),
        ("PROGRESS", wynconfig.Stage),
        ("KEY", wynconfig.Key),
        ("NODE", wynconfig.NodeKind),
        ("", wynconfig.ControlKind),
    ]:
        assert issubclass(numbers, enum.IntEnum | enum.IntFlag)
        members = numbers.__members__.items()
        known |= {f"{head}_{name}".strip("_"): int(each) for name, each in members}
    assert {name: int(number) for name, number in defined.items()} == known


def camel(name):
    """PROGRAM_PATH as keys.h has it: kProgramPath."""
    return "k" + name.title().replace("_", "")


def test_the_keys_are_those_of_the_header():
    text = header("keys.h")
    rooms = {"words": keys.words, "session": keys.session, "partformat": keys.part_format}
    for room, known in rooms.items():
        body = text.partition(f"namespace {room} {{")[2].partition(f"// namespace {room}\n")[0]
        defined = dict(re.findall(r'std::string (k\w+) = "(.*?)";', body))
        defined.pop("kType", None)
        for name, listed in re.findall(r"const FieldKeys (k\w+)\{(.*?)\}", body, re.DOTALL):
            defined[name] = tuple(re.findall(r'"(.*?)"', listed))
        own = {camel(name): each for name, each in vars(known).items() if name.isupper()}
        assert len(own) > 5
        assert own == defined


def test_the_version_is_that_of_the_header():
    numbers = re.findall(
        r"^#define WYNCONFIG_VERSION_\w+ (\d+)$", header("version.h"), re.MULTILINE
    )
    assert wynconfig.__version__ == ".".join(numbers) == wynconfig.version_text()
    major, minor, patch = map(int, numbers)
    assert wynconfig.version() == major * 10000 + minor * 100 + patch

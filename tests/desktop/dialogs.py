"""What a screen reader has to find in each window of the host: the ways there, and the controls."""

from typing import NamedTuple

from host_test_case import (
    ADD_SESSION, ADVANCED, DATABASE, DELETED, DELETED_ITEMS, DEVELOPERS, FORMAT_EDITOR, HOST, MAINTENANCE,
    MANAGER, QUESTION, RENAME, SENDING, SESSION, SESSIONS, STORE_SESSIONS, TALLYVANE)

TAKE_OVER = "Take over a session from another store"


class Control(NamedTuple):
    """A control as it is spoken."""
    role: str
    name: str
    label: str = ""  # what it has to be labelled by
    group: str = ""  # name of the frame around it
    enabled: bool = True
    checked: bool = False
    rows: tuple = None  # None: any


class Window(NamedTuple):
    """A window, the way to it, and all controls that it has to show."""
    title: str
    way: list  # pairs of a window's title and what the person does there
    focus: str  # name of the control that has the keyboard when it comes up
    controls: list
    role: str = "dialog"
    whole: bool = True  # False: it may show more than these controls


def label(text):
    """A text that stands for itself or in front of a box."""
    return Control("label", text)


def box(name):
    """A box to type into, with its label."""
    return [label(name), bare_box(name)]


def bare_box(name):
    """A box to type into that takes its name from the frame around it."""
    return Control("text", name, label=name)


def shown(name):
    """A box that only shows text, with its label."""
    return [label(f"{name}:"), Control("text", name, label=f"{name}:")]


def choice(name, chosen):
    """A combo box with its label: it is spoken by what is chosen."""
    return [label(name), Control("combo box", chosen, label=name)]


def check(name):
    """A check box."""
    return Control("check box", name)


def options(chosen, *names):
    """Options of which one is chosen."""
    return [Control("radio button", name, checked=name == chosen) for name in names]


def button(name):
    """A button."""
    return Control("push button", name)


def buttons(*names):
    """Several buttons."""
    return [button(name) for name in names]


def rows(name, *texts):
    """A list and its rows; without any, whatever it holds."""
    return Control("list", name, rows=texts or None)


def tabs(*names):
    """The tabs of a dialog."""
    return [Control("page tab", name) for name in names]


def ticked(control):
    """The check box with its tick."""
    return control._replace(checked=True)


def off(controls):
    """The same, out of order for now. Labels stay as they are."""
    return [each if each.role == "label" else each._replace(enabled=False)
            for each in flat(controls)]


def frame(name, *controls):
    """The same in a frame with a name; what stands in one within it stays there."""
    return [each._replace(group=each.group or name) for each in flat(controls)]


def flat(controls):
    """One list of controls, out of lists in lists."""
    if isinstance(controls, Control):
        return [controls]
    return [control for each in controls for control in flat(each)]


def press(*keys):
    """The person presses keys."""
    return lambda test, title: (test.window(title), test.person.press(*keys))


def click(name):
    """The person clicks on a control."""
    return lambda test, title: test.click(title, name)


def pick(name, row):
    """The person clicks on a row of a list."""
    return lambda test, title: test.click_row(title, name, row)


def choose(menu, entry):
    """The person chooses an entry of the host's menu bar."""
    return lambda test, title: test.choose_from_menu(menu, entry)


def field(name, flag, enabled):
    """The frame of one field in the part format editor."""
    chosen = "Left" if enabled and name != "<Quantity>" else "Right"
    settings = [box("Field Length"), label("Alignment"),
                frame("Alignment", options(chosen, "Left", "Right")), box("Pad character")]
    return frame(name, ticked(check(flag)) if enabled else check(flag),
                 settings if enabled else off(settings))


def editor(*formatted):
    """The controls of the part format editor.

    formatted: names of the fields whose settings are on
    """
    return [
        box("Part Format Name"),
        frame("Parts Format", box("Header"), box("Record"), box("Separator"), box("Trailer"),
              rows("Tokens", "<Part #>", "<Quantity>", "<Description>", "<PageHeader>",
                   "<PageFooter>", "<TAB>", "<SPACE>", "<CR>", "<LF>", "<ESCAPE>")),
        [field(f"<{name}>", f"Format <{name}>", name in formatted)
         for name in ("Part#", "Quantity", "Description", "VIN")],
        box("Maximum Records"), buttons("OK", "Cancel")]


def launch_tab(orientation, launch=lambda controls: controls):
    """The controls of the session dialog's first tab.

    launch: what to make of the boxes for the launch
    """
    return [
        tabs("3rd Party Application Launch", "Part Number Format"), box("Display Name"),
        frame("Program Launch", launch(box("Program Path")), button("Browse"),
              launch(box("Command Line Options")), buttons("Advanced", "Tallyvane")),
        frame("Orientation", options(orientation, "Top", "Bottom", "Left", "Right"),
              check("Reverse List Order"), ticked(check("Automatic Resize"))),
        buttons("OK", "Cancel", "Apply")]


def host_page(*controls):
    """The host's window with one of its pages in front; it tells more besides."""
    return [
        label("Parts catalogue"), box("Search:"), choice("Group:", "All groups"),
        rows("Parts catalogue"), label("Parts list"), rows("Parts list"),
        off([button("Clear list")]), tabs(SENDING, SESSIONS, DELETED, DEVELOPERS),
        controls]


def sessions_page(*controls):
    """The host's window with its lists of sessions."""
    return host_page(
        tabs(STORE_SESSIONS, DATABASE), controls)


def list_dialog(*names):
    """A dialog that lists the sessions, with these buttons for them."""
    return [label("Select a session"), rows("Select a session", *ALL_SESSIONS), buttons(*names),
            buttons("OK", "Cancel")]


ALL_SESSIONS = ("BODY SHOP QUOTES", "DEALER ORDER DESK", "LABEL PRINTING", "STOCK TAKING",
                "WARRANTY CLAIMS", "WEB SHOP EXPORT", "WORKSHOP COUNTER")
FORMATS = ("COMMA SEPARATED", "FIXED WIDTH", "ONE PART PER LINE", "ORDER FORM", "QUANTITY FIRST",
           "SHELF LABEL", "TAB SEPARATED", "VIN IN HEADER")

TO_SESSIONS = [(HOST, click(SESSIONS))]
TO_ADD = [(HOST, press("ctrl+n"))]
TO_SESSION = TO_SESSIONS + [
    (HOST, pick(STORE_SESSIONS, "BODY SHOP QUOTES")), (HOST, press("ctrl+Return"))]
TO_WRITER = TO_SESSIONS + [
    (HOST, pick(STORE_SESSIONS, "STOCK TAKING")), (HOST, press("ctrl+Return"))]
TO_FORMATS = TO_SESSION + [(SESSION, click("Part Number Format"))]
TO_FORMAT = TO_FORMATS + [(SESSION, pick("Available Part Formats", "FIXED WIDTH"))]
TO_MAINTENANCE = [(HOST, choose("Store", "Maintain sessions…"))]

WINDOWS = {
    "the host's page for sending": Window(HOST, [], "Search:", host_page(
        choice("Session:", "BODY SHOP QUOTES"), choice("Part format:", "COMMA SEPARATED"),
        box("VIN:"), tabs("For the program", "For the file", "Only shown"),
        Control("text", "List for the program"), shown("What sending will do"),
        shown("What came of it"), button("Send list")), role="frame", whole=False),
    "the host's page of sessions": Window(HOST, TO_SESSIONS, "Search:", sessions_page(
        rows(STORE_SESSIONS, *ALL_SESSIONS),
        buttons("Add session…", "Configure session…", "Maintain sessions…")),
        role="frame", whole=False),
    "the host's database": Window(
        HOST, TO_SESSIONS + [(HOST, click(DATABASE))], "Search:", sessions_page(
            rows(DATABASE), buttons("Add session…", "Take over session…"),
            off(buttons("Configure session…", "Remove…"))), role="frame", whole=False),
    "the host's page for developers": Window(
        HOST, [(HOST, click(DEVELOPERS))], "Search:", host_page(
            label("No operation was called yet."), button("Show what is held in memory"),
            box("Last operation, and the item file that changed last")),
        role="frame", whole=False),
    "the host's page of deleted items": Window(
        HOST, [(HOST, click(DELETED))], "Search:", host_page(
            label(DELETED_ITEMS), rows(DELETED_ITEMS), label("Nothing lies here."),
            off([button("Restore")])), role="frame", whole=False),
    "opening another store": Window(
        "Open another store", [(HOST, choose("Store", "Open another store…"))],
        "Folder of the store:", [
            box("Folder of the store:"), button("Browse…"), label("This folder holds a store; sessions: 7, part formats: 8."),
            buttons("Open", "Cancel")]),
    "taking over a session": Window(
        TAKE_OVER, [(HOST, choose("Database", "Take over session…"))],
        "Folder of the store:", [
            box("Folder of the store:"), button("Browse…"), choice("Session:", "Session:"),
            box("Keep it in the database as:"), off([button("Take over")]), button("Cancel")]),
    "maintaining sessions": Window(
        MAINTENANCE, TO_MAINTENANCE, "Select a session", list_dialog("New", "Edit", "Delete")),
    "a question about a session": Window(
        QUESTION, TO_MAINTENANCE + [(MAINTENANCE, press("Delete"))], "Yes", [
            label("Do you want to delete this session?"), buttons("Yes", "No")], role="alert"),
    "picking from a list of sessions": Window(
        MANAGER, [(HOST, choose("Tools", "Pick from my session list…"))], "Select a session",
        list_dialog()),
    "editing a list of sessions": Window(
        MANAGER, [(HOST, choose("Tools", "Edit my session list…"))], "Select a session",
        list_dialog("Add", "Edit", "Delete")),
    "adding a session": Window(ADD_SESSION, TO_ADD, "Add a new session named", [
        box("Add a new session named"), choice("based on the session", "none"),
        buttons("OK", "Cancel")]),
    "a message": Window("Invalid Name", TO_ADD + [(ADD_SESSION, press("Return"))], "OK", [
        label("Enter a name for the new session."), button("OK")], role="alert"),
    "a session": Window(SESSION, TO_SESSION, "Display Name", launch_tab("Right")),
    "a session that launches nothing": Window(
        SESSION, TO_WRITER, "Display Name", launch_tab("Top", launch=off)),
    "the part formats of a session": Window(SESSION, TO_FORMATS, "New", [
        tabs("3rd Party Application Launch", "Part Number Format"), label("Display Name"),
        label("BODY SHOP QUOTES"), label("Available Part Formats"),
        rows("Available Part Formats", *FORMATS),
        buttons("Available Part Formats → Selected Part Formats",
                "Selected Part Formats → Available Part Formats"),
        label("Selected Part Formats"),
        rows("Selected Part Formats", "COMMA SEPARATED", "QUANTITY FIRST", "TAB SEPARATED"),
        buttons("New", "Copy", "Rename", "Edit", "Delete"), buttons("OK", "Cancel", "Apply")]),
    "advanced settings": Window(
        ADVANCED, TO_SESSION + [(SESSION, click("Advanced"))], "Window Title", [
            frame("Window Title", bare_box("Window Title"),
                  options("Starts with", "Contains", "Starts with", "Matches")),
            frame("Window Class", bare_box("Window Class"),
                  options("Matches", "Contains", "Starts with", "Matches")),
            check("Disable Program Launch"), box("Program Launch Delay"),
            box("Window Title/Class Delay"), buttons("OK", "Cancel")]),
    "advanced settings of a session that launches nothing": Window(
        ADVANCED, TO_WRITER + [(SESSION, click("Advanced"))], "Window Title", [
            frame("Window Title", bare_box("Window Title"),
                  options("Contains", "Contains", "Starts with", "Matches")),
            frame("Window Class", bare_box("Window Class"),
                  options("Contains", "Contains", "Starts with", "Matches")),
            ticked(check("Disable Program Launch")), off(box("Program Launch Delay")),
            box("Window Title/Class Delay"), buttons("OK", "Cancel")]),
    "the file to write": Window(
        TALLYVANE, TO_WRITER + [(SESSION, click("Tallyvane"))], "File Name", [
            choice("Part Format", "FIXED WIDTH"), box("File Name"), box("File Folder"),
            button("Browse"), frame("If the file exists", options("Append", "Append", "Overwrite")),
            check("Write File Only"),
            buttons("OK", "Cancel")]),
    "a new part format": Window(
        FORMAT_EDITOR, TO_FORMATS + [(SESSION, click("New"))], "Part Format Name", editor()),
    "a part format": Window(
        FORMAT_EDITOR, TO_FORMAT + [(SESSION, click("Edit"))], "Part Format Name",
        editor("Part#", "Quantity", "Description")),
    "a part format's new name": Window(
        RENAME, TO_FORMAT + [(SESSION, click("Rename"))], "New Name", [
            box("New Name"), buttons("OK", "Cancel")]),
    "a question": Window(QUESTION, TO_FORMAT + [(SESSION, click("Delete"))], "Yes", [
        label("Do you want to delete this part format? It will also be removed from the sessions "
              "that use it."), buttons("Yes", "No")], role="alert"),
    "a refusal": Window(
        "Part Number Format",
        TO_FORMATS + [(SESSION, pick("Available Part Formats", "COMMA SEPARATED")),
                      (SESSION, click("Delete")), (QUESTION, press("Return"))], "OK", [
            label("This part format cannot be deleted because a session has no other. "
                  "First select another part format for the session WEB SHOP EXPORT"),
            button("OK")], role="alert"),
}

"""The test kit: a person at the screen who does what a test says."""

from __future__ import annotations

from collections.abc import Callable
from types import TracebackType
from typing import NamedTuple

from wynconfig import _abi, _library
from wynconfig._library import Handle, PathLike, text_in
from wynconfig.errors import UserError
from wynconfig.forms import Form
from wynconfig.views import Answer

Script = Callable[[Form], object]


class SeenBox(NamedTuple):
    """A message box that came up."""

    title: str
    text: str


def _run_script(script: Script, form: int) -> None:
    script(Form(form))


_SCRIPT = _library.callback(_abi.SCRIPT, _run_script)


class User(Handle):
    """A person in front of a view. Whatever comes up unannounced is answered so that nothing
    changes, and `finish` tells of it. A `with` block of a user ends with `finish`."""

    def __init__(self, handle: int) -> None:
        super().__init__(handle)
        self._scripts: list[int] = []

    def on_form(self, form: str, script: Script) -> None:
        """When a form of this name comes up, the person does this.

        Announcements of one kind are used up in their order.

        Args:
            form: Such as "frmMORAMConfig".
            script: Gets the form, and must close it. What it raises comes back by the operation,
                and `finish` tells of it.
        """
        number = _library.keep_host(script)
        try:
            _library.call("wyn_on_form", self._handle, text_in(form), _SCRIPT, number)
        except BaseException:
            _library.drop_host(number)
            raise
        self._scripts.append(number)

    def on_box(self, answer: Answer = Answer.OK) -> None:
        """When the next box comes up, the person presses the button of this answer."""
        _library.call("wyn_on_box", self._handle, answer)

    def on_browse(self, path: PathLike) -> None:
        """When the next browse dialog comes up, the person picks this path; empty: cancels."""
        _library.call("wyn_on_browse", self._handle, _library.path_in(path))

    @property
    def boxes(self) -> list[SeenBox]:
        """The boxes since the last `finish`."""
        return [SeenBox(*row) for row in _library.ask_rows("wyn_boxes", self._handle)]

    @property
    def forms(self) -> list[str]:
        """The names of the forms since the last `finish`."""
        return _library.ask_texts("wyn_forms", self._handle)

    def finish(self) -> None:
        """Forgets all that was announced and came up.

        Raises:
            UserError: Something came up unannounced, did not come up though announced, or could not
                be done.
        """
        try:
            _library.call("wyn_finish", self._handle)
        finally:
            self._forget_scripts()

    def close(self) -> None:
        """Closes it, and forgets its scripts."""
        super().close()
        self._forget_scripts()

    def __exit__(
        self,
        kind: type[BaseException] | None,
        error: BaseException | None,
        trace: TracebackType | None,
    ) -> None:
        try:
            self.finish()
        except UserError:
            if kind is None:  # else it is the consequence of what is on its way already
                raise
        finally:
            self.close()

    def _forget_scripts(self) -> None:
        for number in self._scripts:
            _library.drop_host(number)
        self._scripts.clear()


def install_scripted_view() -> User:
    """Installs the view without a screen, for tests and for hosts without one.

    Returns:
        The person who answers what it shows.
    """
    _library.on_this_thread()
    return User(_library.ask_handle("wyn_install_scripted_view"))

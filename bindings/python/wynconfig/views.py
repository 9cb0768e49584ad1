"""Views, which put the dialogs in front of a person, and observers of what that person is told."""

from __future__ import annotations

import abc
import ctypes
import enum
from collections.abc import Callable
from dataclasses import dataclass
from typing import Any

from wynconfig import _abi, _library
from wynconfig.forms import Form


class BoxStyle(enum.IntFlag):
    """Styles of a message box, added up."""

    OK = 0
    YES_NO = 4
    CRITICAL = 16
    SYSTEM_MODAL = 4096


class Answer(enum.IntEnum):
    """Answers of a message box."""

    OK = 1
    YES = 6
    NO = 7


@dataclass(frozen=True)
class Box:
    """A message box."""

    text: str
    title: str
    ok_caption: str
    """Empty: the view's own word."""
    style: BoxStyle

    @property
    def is_question(self) -> bool:
        """Whether it has the buttons Yes and No."""
        return BoxStyle.YES_NO in self.style


@dataclass(frozen=True)
class BrowseRequest:
    """A path to be browsed for."""

    title: str
    ok_caption: str
    cancel_caption: str
    files: bool
    """Files may be picked as well as folders."""


class Stage(enum.IntEnum):
    """What a sign of work tells."""

    BEGINS = 0
    """The person waits from here on; there are no words yet."""
    LASTS = 1
    """The wait has taken half a second, and has words."""
    ENDS = 2
    """Every sign of it is to go."""


@dataclass(frozen=True)
class Progress:
    """Work that a person waits for. All but the stage is that of `Stage.LASTS` alone."""

    stage: Stage
    title: str
    """Of a window."""
    text: str
    """Such as "Updating sessions: 1,204 of 10,000"."""
    done: int
    all: int


class View(abc.ABC):
    """A view of the host. What its methods raise comes back by the operation, after a box has told
    of it."""

    @abc.abstractmethod
    def show_modal(self, form: Form) -> None:
        """Shows a form until it is closed.

        May be called again, for another form, before it returned. A form that is still open as it
        returns is cancelled.
        """

    def show_message(self, box: Box) -> Answer:
        """Shows a message box. Here: the answer that changes nothing."""
        return Answer.NO if box.is_question else Answer.OK

    def browse(self, request: BrowseRequest) -> str:
        """The path that the user picked; empty, as here: none."""
        return ""

    def raise_(self, top_most: bool) -> None:
        """Puts the window of the form that is in front before those of other programs, or no
        longer. Here: nothing."""

    def device_context(self) -> int:
        """A number by which the resource manager may tell the screen."""
        return 0

    def show_progress(self, progress: Progress) -> None:
        """Gives a sign of life while the library works through many items: that it begins, then
        ten times a second at most how far it is, and that it has ended. Here: nothing.

        It paints and returns, and lets nobody act on a form meanwhile.
        """


@dataclass(frozen=True)
class Failure:
    """What an observer is told of a failure."""

    operation: str
    """Such as "init", or empty."""
    tag: str
    """Names the procedure, as the failure box does."""
    number: int
    description: str
    """What the box tells first."""


class Observer:
    """Sees what the component tells its user. What its methods raise comes back by the
    operation."""

    def failed(self, failure: Failure) -> None:
        """Is called for every failure that is told the user, before its box comes up."""

    def answered(self, box: Box, answer: Answer) -> None:
        """Is called for every message box, once it has been answered."""


def _box_of(place: Any) -> Box:
    box = place[0]
    return Box(
        box.text.decode(), box.title.decode(), box.ok_caption.decode(), BoxStyle(box.style)
    )


def _show_modal(view: View, form: int) -> None:
    view.show_modal(Form(form))


def _show_message(view: View, box: Any, answer: Any) -> None:
    answer[0] = view.show_message(_box_of(box))


def _browse(view: View, place: Any, answer: int) -> None:
    request = place[0]
    path = view.browse(
        BrowseRequest(
            request.title.decode(),
            request.ok_caption.decode(),
            request.cancel_caption.decode(),
            request.files != 0,
        )
    )
    _library.call("wyn_give", answer, _library.text_in(path))


def _raise(view: View, top_most: int) -> None:
    view.raise_(top_most != 0)


def _device_context(view: View, handle: Any) -> None:
    handle[0] = view.device_context()


def _show_progress(view: View, place: Any) -> None:
    sign = place[0]
    view.show_progress(
        Progress(Stage(sign.stage), sign.title.decode(), sign.text.decode(), sign.done, sign.all)
    )


def _failed(observer: Observer, place: Any) -> None:
    failure = place[0]
    observer.failed(
        Failure(
            failure.operation.decode(),
            failure.tag.decode(),
            failure.number,
            failure.description.decode(),
        )
    )


def _answered(observer: Observer, box: Any, answer: int) -> None:
    observer.answered(_box_of(box), Answer(answer))


_VIEW = (
    _library.callback(_abi.SHOW_MODAL, _show_modal),
    _library.callback(_abi.SHOW_MESSAGE, _show_message),
    _library.callback(_abi.BROWSE, _browse),
    _library.callback(_abi.RAISE, _raise),
    _library.callback(_abi.DEVICE_CONTEXT, _device_context),
    _library.release,
    _library.callback(_abi.SHOW_PROGRESS, _show_progress),
)
_OBSERVER = (
    _library.callback(_abi.FAILED, _failed),
    _library.callback(_abi.ANSWERED, _answered),
    _library.release,
)


def _install(name: str, host: object | None, struct: Callable[[int], ctypes.Structure]) -> None:
    _library.on_this_thread()
    if host is None:
        _library.call(name, None)
        return
    number = _library.keep_host(host)
    try:
        _library.call(name, ctypes.byref(struct(number)))
    except BaseException:
        _library.drop_host(number)
        raise


def install_view(view: View | None) -> None:
    """Installs the view of this thread; None takes away whatever view there is."""
    _install(
        "wyn_install_view",
        view,
        lambda number: _abi.View(ctypes.sizeof(_abi.View), number, *_VIEW),
    )


def install_observer(observer: Observer | None) -> None:
    """Installs the observer of this thread; None takes it away."""
    _install(
        "wyn_install_observer",
        observer,
        lambda number: _abi.Observer(ctypes.sizeof(_abi.Observer), number, *_OBSERVER),
    )


def leave() -> None:
    """Lets go of all that this thread has: its view, observer and resource manager, and whatever of
    its stores, records and users is open."""
    _library.call("wyn_leave")
    _library.forget_installed()

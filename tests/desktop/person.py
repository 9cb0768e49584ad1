"""A person at the keyboard and the mouse of a desktop."""

import subprocess

SECONDS = 10


class Person:
    """Sends real key presses and mouse clicks to whatever has the keyboard or lies at the place."""

    def press(self, *keys):
        """Presses keys one after the other, such as "Return" or "ctrl+Tab"."""
        _call("key", "--", *keys)

    def type(self, text):
        """Types a text."""
        _call("type", "--", text)

    def click(self, node, times=1):
        """Clicks on an object of the accessibility tree; three times selects what a box holds."""
        x, y, width, height = node.extents
        if width < 1 or height < 1:
            raise AssertionError(f'{node.role} "{node.name}" has no place on the screen')
        # Of a check box or radio button only the mark and its caption are alive.
        across = height // 2 if node.role in ("check box", "radio button") else width // 2
        # The screen takes both in order. To wait for the move would be to wait in vain when the
        # mouse is there already.
        _call("mousemove", str(x + across), str(y + height // 2),
              "click", "--repeat", str(times), "--delay", "40", "1")

    def drag(self, node, onto):
        """Takes an object along with the mouse, and lets go over another one."""
        def middle(of):
            x, y, width, height = of.extents
            return x + width // 2, y + height // 2
        (x, y), (to_x, to_y) = middle(node), middle(onto)
        # In steps, by which a press with a move turns into a drag, and a window hears of it.
        steps = [(x + (to_x - x) * step // 10, y + (to_y - y) * step // 10) for step in range(11)]
        moves = [each for place in steps
                 for each in ("mousemove", str(place[0]), str(place[1]), "sleep", "0.05")]
        _call(*moves[:5], "mousedown", "1", *moves[5:], *moves[-5:], "mouseup", "1")


def _call(*arguments):
    subprocess.run(["xdotool", *arguments], check=True, timeout=SECONDS,
                   stdout=subprocess.DEVNULL)

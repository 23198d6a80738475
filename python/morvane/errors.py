"""What a call may raise."""
import re

import dbus

_PREFIX = "com.ostrellabs.Morvane1.Error."
_GONE = tuple(
    "org.freedesktop.DBus.Error." + name for name in ("ServiceUnknown", "NameHasNoOwner", "NoReply")
)
_TEXT = re.compile(r"0x([0-9A-Fa-f]{8}) ([^:]*): (.*)", re.DOTALL)


class MorvaneError(Exception):
    """A member of MorvaneDoc refused: number (see MorvaneDocErrors), source and description."""

    def __init__(self, number: int, source: str, description: str):
        super().__init__(description)
        self.number = number
        self.source = source
        self.description = description


class ServerError(RuntimeError):
    """Morvane cannot be started or reached, or has ended."""


def translated(error: dbus.DBusException) -> Exception:
    """The exception that a script sees in place of an error of the bus."""
    name = error.get_dbus_name() or ""
    text = error.get_dbus_message() or name
    if name.startswith(_PREFIX):
        parts = _TEXT.fullmatch(text)
        if parts:
            return MorvaneError(int(parts[1], 16), parts[2], parts[3])
    if name == "org.freedesktop.DBus.Error.InvalidArgs":
        return ValueError(text)
    if name == "org.freedesktop.DBus.Error.NoMemory":
        return MemoryError(text)
    return ServerError("Morvane has ended" if name in _GONE else text)

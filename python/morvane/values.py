"""Python values as the bus carries them."""
import numbers
import os

import dbus

_LARGEST = 2**63 - 1


def to_bus(value):
    """The value for an argument of type variant.

    Numbers, truth values, texts and paths go as they are, and a sequence of numbers goes as an
    array of doubles, also when it is empty. Anything else goes as a value without meaning, so that
    Morvane itself raises its error for it.
    """
    if getattr(value, "ndim", None) == 0 and hasattr(value, "item"):
        value = value.item()  # a scalar of numpy
    if isinstance(value, bool):
        return dbus.Boolean(value)
    if isinstance(value, numbers.Integral) and abs(value) <= _LARGEST:
        return dbus.Int64(value)
    if isinstance(value, numbers.Real):
        return _double(value)
    if isinstance(value, os.PathLike):
        value = os.fspath(value)
    if isinstance(value, str):
        return dbus.String(value)
    if hasattr(value, "__len__") and hasattr(value, "__getitem__") and not hasattr(value, "keys"):
        return _array(value)
    return _meaningless()


def _double(value):
    try:
        return dbus.Double(value)
    except OverflowError:
        return dbus.Double("inf" if value > 0 else "-inf")


def _array(values):
    elements = list(values)
    if not all(isinstance(element, numbers.Real) for element in elements):
        return _meaningless()
    return dbus.Array([_double(element) for element in elements], signature="d")


def _meaningless():
    return dbus.Dictionary({}, signature="sv")


def absolute_path(value):
    """A path as seen from the script's folder, which need not be that of Morvane."""
    if isinstance(value, os.PathLike):
        value = os.fspath(value)
    if isinstance(value, str) and value and value[0] not in "/\\":
        return os.path.join(os.getcwd(), value)
    return value

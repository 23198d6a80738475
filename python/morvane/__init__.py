"""Drives Morvane, software for testing optics by interferograms, from Python.

    import morvane

    with morvane.launch():                      # a private Morvane, with or without a display
        doc = morvane.MorvaneDoc()
        doc.Load("mirror.jpg")
        doc.SetAperture("circle", [110, 300, 393, 17, 677, 300, 393, 583])
        doc.AutoTrace("vertical")
        doc.Analyze()
        print(doc.Aberration("RMS"), doc.Zernike(9))

Without launch() the documents live in the Morvane of the desktop session, which is started if it
is installed and not running. Needs python3-dbus.
"""
try:
    import dbus as _dbus  # noqa: F401
except ImportError as missing:
    raise ImportError(
        "The package morvane needs the D-Bus bindings: install python3-dbus and use /usr/bin/python3"
    ) from missing

from .constants import (
    MorvaneDocAberrationType,
    MorvaneDocErrors,
    MorvaneDocFringeDensity,
    MorvaneDocShape,
    MorvaneDocTraceDirection,
)
from .document import MorvaneDoc, print_report, view_text
from .errors import MorvaneError, ServerError
from .server import Launch, launch

__all__ = [
    "Launch",
    "MorvaneDoc",
    "MorvaneDocAberrationType",
    "MorvaneDocErrors",
    "MorvaneDocFringeDensity",
    "MorvaneDocShape",
    "MorvaneDocTraceDirection",
    "MorvaneError",
    "ServerError",
    "launch",
    "print_report",
    "view_text",
]

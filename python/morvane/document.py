"""The scriptable document."""
from typing import Any, Optional, Tuple

from .errors import ServerError
from .server import INTERFACE, OBJECT, Server, current_server
from .values import absolute_path, to_bus

_DOCUMENT_INTERFACE = INTERFACE + ".MorvaneDoc"
_PROPERTIES = "org.freedesktop.DBus.Properties"


def _member(name: str, kind: type, description: str, read_only: bool = False) -> Any:
    def get(self):
        return kind(self._call_on(_PROPERTIES, "Get", "ss", _DOCUMENT_INTERFACE, name))

    def put(self, value):
        self._call_on(_PROPERTIES, "Set", "ssv", _DOCUMENT_INTERFACE, name, to_bus(value))

    return property(get, None if read_only else put, doc=description)


class _Removed:
    """The terms removed from the wavefront: doc.Remove["TILT"] = True."""

    def __init__(self, doc: "MorvaneDoc"):
        self._doc = doc

    def __getitem__(self, Type) -> bool:
        return bool(self._doc._call("GetRemove", Type))

    def __setitem__(self, Type, value: bool) -> None:
        self._doc._call("SetRemove", Type, value)


class MorvaneDoc:
    """One document of a running Morvane.

    The document itself is made by Load or Grab and stays open in the program when this object goes.

    Every member raises MorvaneError, with its number, source and description, when it refuses, and
    ServerError when the program cannot be reached. Keywords stand in any case and may also be
    given as numbers, see MorvaneDocShape and the other enumerations. Positions are pixels of the
    picture, origin top left, y down.

    Options (wavelengths, ScaleFactor, OrderLimit, Remove, TrimEdges, InvertWavefront) belong to
    the program's analysis window: they hold for the next Analyze of any document.
    """

    def __init__(self, server: Optional[Server] = None):
        """In the Morvane of a launch; by default the newest open one, else in that of the desktop
        session."""
        self._path = None
        self._server = server if server is not None else current_server()
        self._owner = self._server.owner()
        self._path = self._server.call(self._owner, OBJECT, INTERFACE, "CreateDoc", "")

    def Load(self, Path) -> bool:
        """Opens a picture (bmp, rle, jpg). False if it cannot be read as one; no such file: error.
        A second Load replaces the picture and all that was set and found on the first."""
        return bool(self._call("Load", absolute_path(Path)))

    def Save(self, Path=None) -> bool:
        """Writes the document (.mvd, also for a Path without extension) with its picture (.bmp)
        beside it, or the picture alone (.bmp). Without a Path it goes to the document file that it
        was loaded from or saved to last; without such a file: error. The picture's own file is
        replaced if the picture has changed. False, with the old files as they were, if they cannot
        be written or if the picture beside the document would replace another one."""
        if Path is None:
            return bool(self._call("Save"))
        return bool(self._call("Save", absolute_path(Path)))

    def Stretch(self, Ratio) -> bool:
        """Makes the picture Ratio times as wide or, below 1, 1 / Ratio times as high."""
        return bool(self._call("Stretch", Ratio))

    def Grab(self) -> bool:
        """Takes a picture from the frame grabber that the user has chosen, as a new document or in
        place of the picture of this one, whose outlines and fringes stay. False if the grabber
        gives none; no grabber loaded: error."""
        return bool(self._call("Grab"))

    def SetAperture(self, ShapeType, Points) -> bool:
        """Sets the rim of the optic. Points is a flat list X, Y, X, Y, ...:
        "CIRCLE": four points, which give the extents in x and y;
        "ELLIPSE": three points, the most distant two being the ends of the long axis;
        "POLYGON": up to 50 corners."""
        return bool(self._call("SetAperture", ShapeType, Points))

    def SetObstruction(self, ShapeType, Points) -> bool:
        """Sets the rim of the central obstruction, told like that of the aperture."""
        return bool(self._call("SetObstruction", ShapeType, Points))

    def AutoTrace(self, Direction, TraceDensity=None) -> bool:
        """Finds the dark fringes inside the aperture, which run "VERTICAL" or "HORIZONTAL".
        TraceDensity: "SUPERFINE", "FINE", "NORMAL" or "COARSE"; None is the user's preference.
        False if nothing was traced."""
        if TraceDensity is None:
            return bool(self._call("AutoTrace", Direction))
        return bool(self._call("AutoTrace", Direction, TraceDensity))

    def Analyze(self) -> bool:
        """Fits the traced fringes with the options. False if an option prevents it."""
        return bool(self._call("Analyze"))

    def Aberration(self, Type) -> float:
        """An aberration, "RMS" or "PV" in output units, an angle in degrees, or the "STREHL"
        ratio. Types are those of MorvaneDocAberrationType."""
        return float(self._call("Aberration", Type))

    def Zernike(self, Polynomial) -> float:
        """Coefficient 1 to 36 as fitted, in fringe orders, each ScaleFactor waves."""
        return float(self._call("Zernike", Polynomial))

    def FringeCenter(self, Order, Fringe) -> Tuple[bool, float, float]:
        """Success, X and Y of the point number Fringe (from 1) on the fringe of an order."""
        ok, x, y = self._call("FringeCenter", Order, Fringe)
        return bool(ok), float(x), float(y)

    def ExportMap(self, FilePath) -> bool:
        """Writes the wavefront as 100 lines of 100 numbers, in waves. False without a document."""
        return bool(self._call("ExportMap", absolute_path(FilePath)))

    InputWavelength = _member("InputWavelength", float, "Of the light of the test, nm.")
    OutputWavelength = _member("OutputWavelength", float, "That results are given in, nm.")
    ScaleFactor = _member("ScaleFactor", float, "Waves per fringe: 0.5 in double pass.")
    InvertWavefront = _member("InvertWavefront", bool, "Whether the sense of the fringes is turned.")
    TrimEdges = _member("TrimEdges", bool, "Whether the rim of the aperture is left out.")
    OrderLimit = _member(
        "OrderLimit",
        int,
        """Highest order of the fit. Assigned as a radial order, 2, 4, 6, 8, or 0 or "AUTO"; read
        as a number of terms: 2, 8, 15, 24, or 0.""",
    )

    Zoom = _member(
        "Zoom",
        int,
        """Of the picture in its window, percent: 25, 50, 75, 100, 150, 200, 300, 400, 800 or 1600;
        any other number is ignored.""",
    )
    width = _member("width", int, "Of the window of the picture, pixels of the desktop.", read_only=True)
    height = _member("height", int, "Of the window of the picture, pixels of the desktop.", read_only=True)

    def SizeWindow(self, Width, Height) -> bool:
        """Gives the window of the picture another size, 16 to 4096 pixels each way."""
        return bool(self._call("SizeWindow", Width, Height))

    @property
    def Remove(self) -> _Removed:
        """The terms removed from the wavefront, by type: "TILT", "DEFOCUS", "ASTIGMATISM", "COMA"
        and "SA"."""
        return _Removed(self)

    def close(self) -> None:
        """Lets go of the document, which stays open in the program."""
        if self._path is not None:
            path, self._path = self._path, None
            self._server.call(self._owner, path, _DOCUMENT_INTERFACE, "Release", "")

    def __del__(self):
        try:
            self.close()
        except Exception:  # the program, or the interpreter, is gone already
            pass

    def _call(self, member: str, *arguments):
        return self._call_on(
            _DOCUMENT_INTERFACE, member, "v" * len(arguments), *map(to_bus, arguments)
        )

    def _call_on(self, interface: str, member: str, signature: str, *arguments):
        if self._path is None:
            raise ServerError("This MorvaneDoc has been closed")
        return self._server.call(
            self._owner, self._path, interface, member, signature, *arguments
        )


def view_text(doc: MorvaneDoc, view: str) -> str:
    """The text of a document's view, "Aberrations" or "Zernikes", columns apart by tabs."""
    return str(_call_about(doc, "ViewText", view)).replace("\r\n", "\n")


def print_report(doc: MorvaneDoc, file) -> None:
    """Prints the report of a document, one page laid out as the program's page setup says, to a PDF
    file. ServerError, with the old file as it was, if it cannot be printed, or if panes would stay
    empty because nothing has been analyzed."""
    _call_about(doc, "PrintReport", absolute_path(file))


def _call_about(doc: MorvaneDoc, member: str, argument: str):
    """Calls a member of the application that takes a document."""
    if doc._path is None:
        raise ServerError("This MorvaneDoc has been closed")
    return doc._server.call(doc._owner, OBJECT, INTERFACE, member, "os", doc._path, argument)

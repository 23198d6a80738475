"""Every error of every member, by number, source and text; the program goes on after each."""
import math

from support import MIRROR, ServerTest, morvane, prepare

CIRCLE = [26, 238, 240, 24, 454, 238, 240, 452]
ARRAY = "Control points must be specified using an array."
FOUR = "An ellipse is defined by four points."
THREE = "An ellipse is defined by three points."
POINTS = "Invalid points array passed to SetShape()."
SHAPE = "Invalid shape type parameter."
ABERRATION = "Invalid aberration type parameter."
DENSITY = "Invalid trace density parameter passed to AutoTrace."
DIRECTION = "Invalid trace direction parameter."
ORDER = "Invalid fringe order."
INDEX = "Invalid fringe index."
POLYNOMIAL = "Zernike polynomial coefficients must be specified using the integers 1-36."
LIMIT = "Zernike Order Limit must be specified usiong an integer."
INPUT = "The input wavelength must be assigned a numeric value."
OUTPUT = "The output wavelength must be assigned a numeric value."
SCALE = "Scale Factors must be specified using a numeric data type."
INVERT = "The 'Invert Wavefront' property must be assigned a boolean value."
TRIM = "The 'Trim Edges' property must be assigned a boolean value."
REMOVE = "The 'Remove' property must be assigned a boolean value."
NO_GRABBER = "Failed to grab image because no frame grabber card is currently selected."
ZOOM = "The zoom factor must be assigned a numeric value."
WINDOW = "Specified window size is non-numeric or out of range."
NO_FILE = "Specified file does not exist."
NO_ANALYSIS = "Can't perform analysis until an interferogram has been loaded."


class Errors(ServerTest):
    def check(self, cases):
        for number, text, member, *arguments in cases:
            with self.subTest(member=member, arguments=arguments):
                with self.assertRaises(morvane.MorvaneError) as raised:
                    self.act(member, *arguments)
                error = raised.exception
                self.assertEqual(
                    (hex(error.number), error.source, error.description),
                    (hex(number), "MorvaneDoc", text),
                )

    def act(self, member, *arguments):
        if member == "Remove=":
            self.doc.Remove[arguments[0]] = arguments[1]
        elif member == "Remove":
            return self.doc.Remove[arguments[0]]
        elif member.endswith("="):
            setattr(self.doc, member[:-1], arguments[0])
        elif member in ("Zoom", "width", "height"):
            return getattr(self.doc, member)
        else:
            return getattr(self.doc, member)(*arguments)

    def test_without_a_document(self):
        def refused(wish):
            return f"Can't {wish} until an interferogram has been loaded."

        self.check(
            [
                (0x80040201, refused("define an aperture"), "SetAperture", "blob", 5),
                (0x80040201, refused("define an obstruction"), "SetObstruction", "blob", 5),
                (0x80040201, refused("trace fringes"), "AutoTrace", "sideways", "dense"),
                (0x80040201, NO_ANALYSIS, "Analyze"),
                (0x80040201, refused("read aberrations"), "Aberration", "unknown"),
                (0x80040201, refused("read Zernike coefficients"), "Zernike", 0),
                (0x80040201, refused("read fringe centers"), "FringeCenter", 0, 0),
                (0x80040201, refused("set zoom"), "Zoom=", "large"),
                (0x80040201, refused("get zoom"), "Zoom"),
                (0x80040201, refused("get window dimensions"), "width"),
                (0x80040201, refused("get window dimensions"), "height"),
                (0x80040201, refused("size window"), "SizeWindow", 15, "high"),
                (0x80040213, NO_GRABBER, "Grab"),
                (0x8004020C, NO_FILE, "Load", ""),
                (0x8004020C, NO_FILE, "Load", 5),
                (0x8004020C, NO_FILE, "Load", None),
                (0x8004020C, NO_FILE, "Load", self.folder / "absent.bmp"),
                (0x8004020C, NO_FILE, "Load", self.folder),
            ]
        )
        self.assertFalse(self.doc.ExportMap(self.folder / "map.csv"))

    def test_shapes(self):
        self.doc.Load(MIRROR)
        for member in ("SetAperture", "SetObstruction"):
            self.check(
                [
                    (0x8004020D, ARRAY, member, "circle", 5),
                    (0x8004020D, ARRAY, member, "circle", "1,2,3,4,5,6,7,8"),
                    (0x8004020D, ARRAY, member, "circle", None),
                    (0x8004020D, ARRAY, member, "circle", {1: 2}),
                    (0x8004020D, ARRAY, member, "blob", "the array is tested first"),
                    (0x80040209, SHAPE, member, "blob", CIRCLE),
                    (0x80040209, SHAPE, member, 0, CIRCLE),
                    (0x80040209, SHAPE, member, 4, CIRCLE),
                    (0x80040209, SHAPE, member, 1.5, CIRCLE),
                    (0x80040209, SHAPE, member, None, CIRCLE),
                    (0x80040209, SHAPE, member, "", []),
                    (0x8004020E, FOUR, member, "Circle", CIRCLE[:7]),
                    (0x8004020E, FOUR, member, 1, []),
                    (0x8004020E, THREE, member, "ellipse", CIRCLE[:5]),
                    (0x8004020E, POINTS, member, "POLYGON", CIRCLE[:7]),
                    (0x8004020E, POINTS, member, 3, [1.0] * 102),
                ]
            )
        self.assertTrue(self.doc.SetAperture(1.0, [*CIRCLE, 9]))

    def test_the_window(self):
        self.doc.Load(MIRROR)
        self.check(
            [
                (0x8004020A, ZOOM, "Zoom=", "large"),
                (0x80040201, WINDOW, "SizeWindow", 15, 100),
                (0x80040201, WINDOW, "SizeWindow", 100, "high"),
            ]
        )

    def test_trace_and_analysis(self):
        self.doc.Load(MIRROR)
        self.check(
            [
                (0x80040206, DENSITY, "AutoTrace", "sideways", "dense"),
                (0x80040206, DENSITY, "AutoTrace", "vertical", 0),
                (0x80040206, DENSITY, "AutoTrace", "vertical", 5),
                (0x80040206, DENSITY, "AutoTrace", "vertical", {}),
                (0x80040203, DIRECTION, "AutoTrace", "sideways"),
                (0x80040203, DIRECTION, "AutoTrace", 2),
                (0x80040203, DIRECTION, "AutoTrace", None),
                (0x80040210, "Can't trace fringe centers until an aperture is defined.",
                 "AutoTrace", "vertical"),
                (0x80040210, NO_ANALYSIS, "Analyze"),
            ]
        )  # fmt: skip
        self.doc.SetAperture("circle", CIRCLE)
        self.check([(0x80040211, "Can't perform analysis until fringe centers have been traced.",
                     "Analyze")])  # fmt: skip

    def test_results(self):
        prepare(self.doc, MIRROR)
        self.assertTrue(self.doc.AutoTrace("V", "Fine"))
        self.check(
            [
                *((0x80040202, ABERRATION, "Aberration", kind)
                  for kind in ("", "unknown", -1, 11, 7.5, None, [7])),
                *((0x8004020A, POLYNOMIAL, "Zernike", index)
                  for index in (0, 37, 1.5, "one", math.nan, math.inf, None, 2**70)),
                *((0x80040204, ORDER, "FringeCenter", order, 1)
                  for order in (0, 19, 1.5, "one", None, -(2**40))),
                *((0x80040205, INDEX, "FringeCenter", 1, tick)
                  for tick in (0, 5000, 1.5, "one", None)),
                (0x80040204, ORDER, "FringeCenter", 0, 0),
            ]
        )  # fmt: skip

    def test_options(self):
        self.check(
            [
                *((0x8004020A, INPUT, "InputWavelength=", value) for value in ("red", None, [1])),
                *((0x8004020A, OUTPUT, "OutputWavelength=", value) for value in ("red", None, [1])),
                *((0x8004020D, SCALE, "ScaleFactor=", value) for value in ("half", None, [1])),
                *((0x8004020B, INVERT, "InvertWavefront=", value) for value in (1, "true", None)),
                *((0x8004020B, TRIM, "TrimEdges=", value) for value in (0, "false", None)),
                *((0x8004020A, LIMIT, "OrderLimit=", value) for value in (1, 3, 10, "high", None)),
                *((0x80040202, ABERRATION, "Remove=", kind, True)
                  for kind in ("unknown", 1, 4, 6, "TILTANGLE", "RMS", None)),
                *((0x80040202, ABERRATION, "Remove", kind) for kind in (1, 11, "PV", None)),
                *((0x8004020B, REMOVE, "Remove=", "TILT", value) for value in (1, "true", None)),
            ]
        )  # fmt: skip

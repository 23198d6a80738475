#!/usr/bin/python3
"""From pictures of interferograms to their aberrations: loads each picture, traces its fringes,
analyzes them and prints the Aberrations and Zernikes texts.

Positions are pixels of the picture, x to the right, y down, origin top left. An outline is one of

  circle X,Y R             center and radius
  circle X,Y X,Y X,Y X,Y   four points on it, left and right, top and bottom
  ellipse X,Y RX,RY [DEG]  center, radii, and the angle of the first radius, counter-clockwise
  ellipse X,Y X,Y X,Y      both ends of the long axis, and a third point on it
  polygon X,Y X,Y X,Y ...  corners

A picture without --aperture takes outlines and direction from the file of the same name that ends
in .json, if there is one: {"aperture": {"shape": "circle", "points": [X, Y, ...]}, "obstruction":
..., "direction": "vertical"}. Otherwise the aperture is the largest circle in its middle.
"""
import argparse
import json
import math
import signal
import struct
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "python"))

import morvane  # noqa: E402

TERMS = ("tilt", "defocus", "astigmatism", "coma", "sa")
TAB_STOPS = {"Aberrations": (15, 24), "Zernikes": (4, 17, 21)}  # characters


class UserError(Exception):
    """What is wrong with a picture or with what was told of it."""


class UnknownAperture(UserError):
    """Nobody has told it, and the picture's size cannot be read."""


def main():
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # "| head" ends the script without a word
    options = parse_options()
    failures = 0
    try:
        settings = None if options.keep_open else ""  # the window becomes the user's
        with morvane.launch(options.program, settings=settings) as server:
            doc = None
            for picture in options.pictures:
                if doc is None or options.keep_open:
                    doc = morvane.MorvaneDoc()
                    choose_options(doc, options)
                failures += not analyze_safely(doc, picture, options)
            if options.keep_open:
                server.wait()
    except (morvane.MorvaneError, morvane.ServerError) as error:
        sys.exit(f"analyze.py: {error}")
    except KeyboardInterrupt:
        sys.exit(130)
    sys.exit(1 if failures else 0)


def analyze_safely(doc, picture, options):
    try:
        analyze(doc, picture, options)
        return True
    except (UserError, morvane.MorvaneError, OSError, ValueError) as error:
        print(f"{picture}: {error}", file=sys.stderr)
        return False


def analyze(doc, picture, options):
    measure(
        doc, picture, options.aperture, options.obstruction, options.direction, options.density
    )
    if options.map and not doc.ExportMap(options.map):
        raise UserError(f"The map {options.map} cannot be written.")
    report(doc, picture)


def measure(doc, picture, aperture=None, obstruction=None, direction=None, density=None):
    """From the picture to the results, with outlines and direction from beside the picture where
    they are not given."""
    if not doc.Load(picture):
        raise UserError("This is no picture that can be read.")
    told = told_beside(picture) if aperture is None else {}
    shape, points = aperture or outline_in(told, "aperture") or centered_circle(picture)
    doc.SetAperture(shape, points)
    obstruction = obstruction or outline_in(told, "obstruction")
    if obstruction:
        doc.SetObstruction(*obstruction)
    if not doc.AutoTrace(direction or told.get("direction", "vertical"), density):
        raise UserError("No fringes were traced.")
    if not doc.Analyze():
        raise UserError("The fringes cannot be analyzed with these options.")


def report(doc, picture):
    print(picture, "=" * len(str(picture)), sep="\n")
    for view, stops in TAB_STOPS.items():
        print(with_blanks(morvane.view_text(doc, view), stops), end="\n\n", flush=True)


def with_blanks(text, stops):
    """The text with blanks for its tabs."""
    lines = []
    for line in text.split("\n"):
        first, *cells = line.split("\t")
        line = first
        for stop, cell in zip(stops, cells):
            line = line.ljust(stop) + cell
        lines.append(line)
    return "\n".join(lines)


def choose_options(doc, options):
    """Tells the program the options that were given; the others stay as they are."""
    if options.scale is not None:
        doc.ScaleFactor = options.scale
    if options.input_wavelength is not None:
        doc.InputWavelength = options.input_wavelength
    if options.output_wavelength is not None:
        doc.OutputWavelength = options.output_wavelength
    if options.order_limit is not None:
        doc.OrderLimit = options.order_limit if options.order_limit == "auto" else int(options.order_limit)
    if options.trim is not None:
        doc.TrimEdges = options.trim
    if options.invert is not None:
        doc.InvertWavefront = options.invert
    if options.remove is not None:
        for term in TERMS:
            doc.Remove[term] = term in options.remove


# What is told beside a picture


def told_beside(picture):
    file = Path(picture).with_suffix(".json")
    if not file.is_file():
        return {}
    try:
        told = json.loads(file.read_text(encoding="utf-8"))
    except ValueError as error:
        raise UserError(f"{file} cannot be read: {error}") from None
    if not isinstance(told, dict):
        raise UserError(f"{file} does not tell of a picture.")
    return told


def outline_in(told, name):
    outline = told.get(name)
    if outline is None:
        return None
    try:
        return outline["shape"], outline["points"]
    except (KeyError, TypeError):
        raise UserError(f'Its .json file gives the {name} no "shape" and "points".') from None


def centered_circle(picture):
    width, height = picture_size(picture)
    x, y, radius = (width - 1) / 2, (height - 1) / 2, min(width, height) / 2 - 0.5
    print(
        f"{picture}: no aperture given; taking the circle {x:g},{y:g} {radius:g}", file=sys.stderr
    )
    return circle((x, y), radius)


def picture_size(picture):
    """Width and height as a BMP or JPEG file tells them."""
    data = Path(picture).read_bytes()
    try:
        if data[:2] == b"BM":
            old = struct.unpack_from("<I", data, 14)[0] == 12
            width, height = struct.unpack_from("<HH" if old else "<ii", data, 18)
            return width, abs(height)
        at = 2
        while data[:2] == b"\xff\xd8":
            marker, length = struct.unpack_from(">HH", data, at)
            if 0xFFC0 <= marker <= 0xFFCF and marker not in (0xFFC4, 0xFFC8, 0xFFCC):
                height, width = struct.unpack_from(">HH", data, at + 5)
                return width, height
            at += 2 + length
    except struct.error:
        pass
    raise UnknownAperture("Its size is not known; give the --aperture.")


# Outlines as the program takes them: a shape and the flat list of its points


def circle(center, radius):
    (x, y) = center
    return "circle", [x - radius, y, x, y - radius, x + radius, y, x, y + radius]


def ellipse(center, radii, degrees):
    (x, y), (a, b) = center, radii
    if b > a:
        a, b, degrees = b, a, degrees + 90
    cosine, sine = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    return "ellipse", [
        x - a * cosine, y + a * sine,
        x + a * cosine, y - a * sine,
        x + b * sine, y + b * cosine,
    ]  # fmt: skip


def parse_outline(words):
    """The outline that the words tell; ValueError if they do not tell one."""
    shape, *words = words
    numbers = [tuple(float(part) for part in word.split(",")) for word in words]
    kinds = [len(number) for number in numbers]
    if shape == "circle" and kinds == [2, 1]:
        return circle(numbers[0], numbers[1][0])
    if shape == "ellipse" and kinds in ([2, 2], [2, 2, 1]):
        return ellipse(numbers[0], numbers[1], numbers[2][0] if len(numbers) == 3 else 0.0)
    least = {"circle": 4, "ellipse": 3, "polygon": 3}.get(shape)
    most = math.inf if shape == "polygon" else least
    if least is None or set(kinds) != {2} or not least <= len(kinds) <= most:
        raise ValueError
    return shape, [coordinate for point in numbers for coordinate in point]


# Command line


class OutlineOption(argparse.Action):
    """Takes the words of an outline; what follows its last number are pictures again."""

    def __call__(self, parser, namespace, values, option_string=None):
        words = []
        while values and (not words or is_outline(values[0])):
            words += values.pop(0).split()
        try:
            setattr(namespace, self.dest, parse_outline(words))
        except ValueError:
            parser.error(f"{option_string}: '{' '.join(words)}' is no outline, see --help")
        namespace.more_pictures += values


def is_outline(word):
    """Whether a word of the command line goes on with the numbers of an outline."""
    return all(is_number(part) for part in word.split())


def is_number(word):
    try:
        return all(math.isfinite(float(part)) for part in word.split(","))
    except ValueError:
        return False


def terms(text):
    names = [name for name in text.lower().split(",") if name and name != "none"]
    unknown = [name for name in names if name not in TERMS]
    if unknown:
        raise argparse.ArgumentTypeError(f"no term {unknown[0]} in {', '.join(TERMS)}")
    return names


def parse_options():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    flag = argparse.BooleanOptionalAction
    parser.add_argument("pictures", nargs="*", metavar="PICTURE", help="bmp, rle or jpg file")
    parser.add_argument("--aperture", nargs="+", action=OutlineOption, metavar="OUTLINE",
                        help="rim of the optic, for example: --aperture circle 393.4,299.6 283.3")
    parser.add_argument("--obstruction", nargs="+", action=OutlineOption, metavar="OUTLINE",
                        help="rim of the central obstruction")
    parser.add_argument("--direction", choices=("vertical", "horizontal"),
                        help="how the fringes run (default: vertical)")
    parser.add_argument("--density", choices=("superfine", "fine", "normal", "coarse"),
                        help="of the traced points (default: the program's, normal)")
    parser.add_argument("--scale", type=float, metavar="WAVES",
                        help="waves per fringe (default: 0.5, double pass)")
    parser.add_argument("--remove", type=terms, metavar="TERMS",
                        help="what to take off the wavefront: none, or some of "
                        f"{','.join(TERMS)} (default: tilt,defocus)")
    parser.add_argument("--input-wavelength", type=float, metavar="NM",
                        help="light of the test (default: 632.8)")
    parser.add_argument("--output-wavelength", type=float, metavar="NM",
                        help="light that results are told for (default: 632.8)")
    parser.add_argument("--order-limit", choices=("auto", "2", "4", "6", "8"),
                        help="highest radial order of the fit (default: auto)")
    parser.add_argument("--trim", action=flag, help="leave out the rim of the aperture (default: yes)")
    parser.add_argument("--invert", action=flag, help="turn the sense of the wavefront (default: no)")
    parser.add_argument("--map", metavar="FILE", help="write the wavefront there, 100 by 100 waves")
    parser.add_argument("--keep-open", action="store_true",
                        help="leave the program running until its window is closed")
    parser.add_argument("--program", metavar="FILE", help="the morvane to run")
    parser.set_defaults(more_pictures=[])
    options = parser.parse_args()
    options.pictures = sorted(options.pictures + options.more_pictures, key=sys.argv.index)
    if not options.pictures:
        parser.error("name a picture")
    if options.map and len(options.pictures) > 1:
        parser.error("--map takes one picture at a time")
    return options


if __name__ == "__main__":
    main()

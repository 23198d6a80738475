#!/usr/bin/python3
"""From pictures of interferograms to test reports: loads each picture, traces its fringes, analyzes
them and prints the program's report page to a PDF of the picture's name. A document (.mvd) is
printed as it is.

Outlines and the direction of the fringes come from the .json beside the picture, as analyze.py
--help tells. The page is laid out as the program's page setup says, unless --panes or --landscape
say otherwise for this run.
"""
import argparse
import signal
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "python"))

import morvane  # noqa: E402

from analyze import UnknownAperture, UserError, measure  # noqa: E402

# By their numbers in the settings.
PANES = (
    "none", "aberrations", "contour", "interferogram", "profile", "logo", "surface", "synthetic",
    "zernikes", "grid",
)  # fmt: skip


def main():
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)
    options = parse_options()
    try:
        options.out.mkdir(parents=True, exist_ok=True)
        with morvane.launch(options.program, settings=page_setup(options)):
            doc = morvane.MorvaneDoc()
            set_up_analysis(doc)
            done = [print_safely(doc, picture, options.out) for picture in options.pictures]
    except (morvane.MorvaneError, morvane.ServerError, OSError) as error:
        sys.exit(f"report.py: {error}")
    except KeyboardInterrupt:
        sys.exit(130)
    sys.exit(0 if all(done) else 1)


def print_safely(doc, picture, folder):
    page = folder / (Path(picture).stem + ".pdf")
    try:
        prepare(doc, picture)
        morvane.print_report(doc, page)
        print(page, flush=True)
        return True
    except (UserError, morvane.MorvaneError, morvane.ServerError, OSError, ValueError) as error:
        print(f"{picture}: {error}", file=sys.stderr)
        return False


def prepare(doc, picture):
    if Path(picture).suffix.lower() == ".mvd":
        if not doc.Load(picture):
            raise UserError("This is no document that can be read.")
        return
    try:
        measure(doc, picture)
    except UnknownAperture:
        told = Path(picture).with_suffix(".json").name
        raise UserError(f"Its size is not known; tell its aperture in {told}.") from None


def set_up_analysis(doc):
    """The options that a new installation has, so that a page never depends on an earlier run."""
    doc.InputWavelength = doc.OutputWavelength = 632.8
    doc.ScaleFactor = 0.5
    doc.InvertWavefront = False
    doc.TrimEdges = True
    doc.OrderLimit = 0
    for term in ("TILT", "DEFOCUS", "ASTIGMATISM", "COMA", "S.A."):
        doc.Remove[term] = term in ("TILT", "DEFOCUS")


def page_setup(options):
    """The page of this run, where it differs from the user's."""
    lines = ["[CurrentVersion]"]
    if options.panes:
        lines.append(f"Number of Panes = {len(options.panes)}")
        lines += [f"Pane {i} = {PANES.index(name)}" for i, name in enumerate(options.panes, 1)]
    if options.landscape:
        lines.append("Page Orientation = 2")
    return "\n".join(lines)


def pane_list(text):
    names = text.lower().split(",")
    unknown = [name for name in names if name not in PANES]
    if unknown:
        raise argparse.ArgumentTypeError(f"no pane {unknown[0]} in {', '.join(PANES)}")
    if len(names) > 6:
        raise argparse.ArgumentTypeError("a page has 6 panes at most")
    return names


def parse_options():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("pictures", nargs="+", metavar="PICTURE", help="bmp, rle, jpg or mvd file")
    parser.add_argument("--out", type=Path, default=Path("."), metavar="FOLDER",
                        help="where the pages go (default: here)")
    parser.add_argument("--panes", type=pane_list, metavar="PANES",
                        help=f"1 to 6 of {','.join(PANES)} (default: the program's page setup)")
    parser.add_argument("--landscape", action="store_true", help="the wide way of the sheet")
    parser.add_argument("--program", metavar="FILE", help="the morvane to run")
    options = parser.parse_args()
    names = [Path(picture).stem for picture in options.pictures]
    for name in names:
        if names.count(name) > 1:
            parser.error(f"two pictures would have the page {name}.pdf")
    return options


if __name__ == "__main__":
    main()

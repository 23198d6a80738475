"""The whole road on the samples, by the package and by the example script."""
import math
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from support import EXAMPLES, MIRROR, PROGRAM, ServerTest, count_fringes, morvane, prepare, told

SCALE = 0.5  # waves per fringe
LARGEST_RMS = 0.01  # waves

SAMPLES = sorted(
    picture for picture in EXAMPLES.iterdir() if picture.suffix in (".bmp", ".jpg", ".rle")
)


def mean_squares():
    """Of the 36 terms over the unit circle: orders n + m = 2k, 1 / (2n + 2), and 1 / (n + 1)
    without an angle."""
    squares = []
    for k in range(1, 7):
        for m in range(k, 0, -1):
            squares += [1 / (2 * (2 * k - m) + 2)] * 2
        squares.append(1 / (2 * k + 1))
    return [*squares[:35], 1 / 13]


class Samples(ServerTest):
    def test_every_fringe_is_found(self):
        for picture in SAMPLES:
            with self.subTest(picture=picture.name):
                sample = prepare(self.doc, picture)
                self.assertTrue(self.doc.AutoTrace(sample["direction"]))
                self.assertEqual(count_fringes(self.doc), sample["fringes"])
                self.assertTrue(self.doc.Analyze())

    def test_round_samples_give_the_truth(self):
        for picture in SAMPLES:
            sample = told(picture)
            if sample["aperture"]["shape"] != "circle":
                continue
            with self.subTest(picture=picture.name):
                prepare(self.doc, picture)
                self.doc.AutoTrace(sample["direction"])
                self.doc.Analyze()
                errors = (self.doc.Zernike(i + 1) - sample["truth"][i] for i in range(36))
                rms = SCALE * math.sqrt(sum(w * e * e for w, e in zip(mean_squares(), errors)))
                self.assertLess(rms, LARGEST_RMS)

    def test_a_second_load_starts_anew_in_the_same_document(self):
        prepare(self.doc, MIRROR)
        self.doc.AutoTrace("vertical")
        self.doc.Analyze()
        self.doc.Load(EXAMPLES / "telescope.bmp")
        self.assertEqual([self.doc.Zernike(i) for i in range(1, 37)], [0.0] * 36)
        self.assertEqual(count_fringes(self.doc), 0)
        with self.assertRaises(morvane.MorvaneError) as raised:
            self.doc.AutoTrace("vertical")
        self.assertEqual(raised.exception.number, morvane.MorvaneDocErrors.ErrorNoAperture)
        # Of 100 documents that may be open, 120 loads into one take no more than one.
        for _ in range(120):
            self.assertTrue(self.doc.Load(MIRROR))

    def test_options_reach_the_analysis(self):
        prepare(self.doc, MIRROR)
        self.doc.AutoTrace("vertical")
        self.doc.ScaleFactor = 1.0
        self.addCleanup(setattr, self.doc, "ScaleFactor", 0.5)
        self.doc.Analyze()
        doubled = self.doc.Aberration("P-V")
        self.doc.ScaleFactor = 0.5
        self.doc.Analyze()
        self.assertAlmostEqual(doubled, 2 * self.doc.Aberration(9), places=12)

    def test_options_read_back(self):
        before = self.doc.OrderLimit
        self.doc.OrderLimit = 8
        self.assertEqual(self.doc.OrderLimit, 24)
        self.doc.OrderLimit = "auto"
        self.assertEqual(self.doc.OrderLimit, 0)
        self.assertEqual(before, 0)
        self.assertTrue(self.doc.Remove["TILT"])
        self.doc.Remove["tilt"] = False
        self.assertFalse(self.doc.Remove[0])
        self.doc.Remove[0] = True

    def test_an_option_that_prevents_the_analysis_asks_nobody(self):
        prepare(self.doc, MIRROR)
        self.doc.AutoTrace("vertical")
        self.doc.OutputWavelength = 0
        self.addCleanup(setattr, self.doc, "OutputWavelength", 632.8)
        self.assertFalse(self.doc.Analyze())

    def test_map_of_a_relative_path_lies_in_the_folder_of_the_script(self):
        prepare(self.doc, MIRROR)
        self.doc.AutoTrace("vertical")
        self.doc.Analyze()
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(self.folder)
        self.assertTrue(self.doc.ExportMap("map.csv"))
        rows = (self.folder / "map.csv").read_bytes().decode().split("\r\n")
        self.assertEqual(len([row for row in rows if row]), 100)


class AnalyzeScript(unittest.TestCase):
    def run_script(self, *arguments, folder="/"):
        return subprocess.run(
            [EXAMPLES / "analyze.py", *(["--program", PROGRAM] if PROGRAM else []), *arguments],
            cwd=folder, capture_output=True, text=True, timeout=120, check=False,
        )  # fmt: skip

    def test_prints_both_texts_of_each_picture(self):
        result = self.run_script(*SAMPLES)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(result.stdout.count("Output Units: Waves"), len(SAMPLES))
        for picture in SAMPLES:
            self.assertIn(f"{picture}\n===", result.stdout)

    def test_outlines_may_be_told(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder, "my mirror.bmp")
            picture.write_bytes(MIRROR.read_bytes())
            result = self.run_script(
                "--aperture", "circle", "240,238", "214", picture.name,
                "--remove", "none", "--map", "map.csv", folder=folder,
            )  # fmt: skip
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertNotIn("Removed", result.stdout)
            self.assertRegex(result.stdout, r"(?m)^Tilt +\d")
            self.assertTrue(Path(folder, "map.csv").is_file())

    def test_without_an_aperture_takes_the_middle(self):
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "bare.jpg").write_bytes((EXAMPLES / "workshop-noisy.jpg").read_bytes())
            result = self.run_script("bare.jpg", folder=folder)
        self.assertIn("taking the circle 319.5,299.5 299.5", result.stderr)

    def test_goes_on_after_a_bad_picture(self):
        with tempfile.TemporaryDirectory() as folder:
            bad = {
                "absent.bmp": None,
                "text.bmp": "This is no picture.",
                "wrong.json": "{}}",
                "wrong.bmp": MIRROR.read_bytes(),
                "empty.json": '{"aperture": {}}',
                "empty.bmp": MIRROR.read_bytes(),
            }
            for name, content in bad.items():
                if content is not None:
                    Path(folder, name).write_bytes(
                        content.encode() if isinstance(content, str) else content
                    )
            names = [name for name in bad if name.endswith(".bmp")]
            result = self.run_script(*names, MIRROR, folder=folder)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout.count("Output Units"), 1)
        self.assertNotIn("Traceback", result.stderr)
        for name in names:
            self.assertIn(f"{name}: ", result.stderr)

    def test_refuses_what_makes_no_sense(self):
        for arguments in (
            ["--aperture", "circle", "1,2", MIRROR],
            ["--aperture", "blob", "1,2", "3", MIRROR],
            ["--remove", "piston", MIRROR],
            ["--map", "map.csv", MIRROR, MIRROR],
            [],
        ):
            with self.subTest(arguments=arguments):
                result = self.run_script(*arguments)
                self.assertEqual(result.returncode, 2)
                self.assertNotIn("Traceback", result.stderr)

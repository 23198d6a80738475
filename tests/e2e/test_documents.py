"""Documents and settings through the program from outside: what was saved comes back."""
import os
import shutil
import tempfile
import unittest
from pathlib import Path

from support import MIRROR, PROGRAM, ROOT, SETTINGS, ServerTest, morvane, prepare


class DocumentTest(ServerTest):
    def analysed(self):
        prepare(self.doc, MIRROR)
        self.doc.AutoTrace("vertical")
        self.assertTrue(self.doc.Analyze())

    def test_a_saved_document_comes_back(self):
        self.analysed()
        path = self.folder / "Mirror ä 1.mvd"
        self.assertTrue(self.doc.Save(path))
        self.assertTrue(path.with_suffix(".bmp").exists())
        other = morvane.MorvaneDoc(self.server)
        self.addCleanup(other.close)
        self.assertTrue(other.Load(path))
        for term in range(1, 37):
            self.assertEqual(other.Zernike(term), self.doc.Zernike(term))
        for kind in ("RMS", "PV", "STREHL", "COMA"):
            self.assertEqual(other.Aberration(kind), self.doc.Aberration(kind))
        self.assertEqual(other.FringeCenter(3, 2), self.doc.FringeCenter(3, 2))

        first = path.read_bytes()
        self.assertTrue(other.Save())
        self.assertEqual(path.read_bytes(), first)

    def test_a_document_replaces_what_the_object_held(self):
        self.analysed()
        path = self.folder / "mirror.mvd"
        self.doc.Save(path)
        tilt = self.doc.Zernike(1)
        self.assertTrue(self.doc.Load(MIRROR))
        self.assertEqual(self.doc.Zernike(1), 0)
        self.assertTrue(self.doc.Load(path))
        self.assertEqual(self.doc.Zernike(1), tilt)
        path.with_suffix(".bmp").unlink()
        self.assertTrue(self.doc.Load(path), "a document without its picture is blank")
        self.assertEqual(self.doc.Zernike(1), tilt)

    def test_what_cannot_be_saved_is_told(self):
        errors = morvane.MorvaneDocErrors
        cases = (
            ((), errors.ErrorInvalidPath,
             "Unless a document has already been saved, a path must be supplied."),
            ((7,), errors.ErrorInvalidType,
             "'Save' must be passed a file path in the form of a string."),
        )
        self.doc.Load(MIRROR)
        for arguments, number, text in cases:
            with self.assertRaises(morvane.MorvaneError) as raised:
                self.doc.Save(*arguments)
            self.assertEqual(raised.exception.number, number)
            self.assertEqual(raised.exception.description, text)
        self.assertFalse(self.doc.Save(self.folder / "no such folder" / "mirror.mvd"))
        self.assertFalse(self.doc.Save(self.folder / "mirror.txt"))

    def test_stretching_widens_or_heightens(self):
        self.doc.Load(MIRROR)
        self.assertTrue(self.doc.Stretch(2))
        self.doc.Save(self.folder / "wide.mvd")
        self.assertIn(b"ImageXSize,  960", (self.folder / "wide.mvd").read_bytes())
        for ratio, text in ((0, "A stretch ratio must greater than zero."),
                            ("much", "A stretch ratio must be numeric.")):
            with self.assertRaises(morvane.MorvaneError) as raised:
                self.doc.Stretch(ratio)
            self.assertEqual(raised.exception.number, morvane.MorvaneDocErrors.ErrorInvalidNumber)
            self.assertEqual(raised.exception.description, text)


class SettingsTest(unittest.TestCase):
    def setUp(self):
        shutil.rmtree(SETTINGS.parent, ignore_errors=True)
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.program = Path(folder.name, "morvane")  # as started by hand: on the user's settings
        program = PROGRAM or ROOT / "build" / "release" / "morvane"
        self.program.write_text(f'#!/bin/sh\nunset MORVANE_SETTINGS\nexec "{program}" "$@"\n')
        self.program.chmod(0o755)

    def test_a_script_changes_none_of_the_users(self):
        SETTINGS.parent.mkdir()
        kept = "[CurrentVersion]\nMainLeft = 3000\n[Analyze]\nOutput WL = 550"
        SETTINGS.write_text(kept)
        with morvane.launch(PROGRAM, settings="[Analyze]\nInput WL = 532") as server:
            doc = morvane.MorvaneDoc(server)
            self.assertEqual((doc.OutputWavelength, doc.InputWavelength), (550, 532))
            doc.OutputWavelength = 500
            doc.Load(MIRROR)
        self.assertEqual(SETTINGS.read_text(), kept)
        self.assertEqual(os.listdir(SETTINGS.parent), [SETTINGS.name])

    def test_options_come_back_in_the_next_program(self):
        with morvane.launch(self.program) as server:
            doc = morvane.MorvaneDoc(server)
            self.assertEqual(doc.ScaleFactor, 0.5)
            self.assertTrue(doc.Remove["TILT"])
            doc.ScaleFactor = 0.25
            doc.OutputWavelength = 500
            doc.Remove["TILT"] = False
        with morvane.launch(self.program) as server:
            doc = morvane.MorvaneDoc(server)
            self.assertEqual(doc.ScaleFactor, 0.25)
            self.assertEqual(doc.OutputWavelength, 500)
            self.assertFalse(doc.Remove["TILT"])

    def test_two_programs_keep_what_each_changed(self):
        one, two = morvane.launch(self.program), morvane.launch(self.program)
        morvane.MorvaneDoc(one).OutputWavelength = 510
        morvane.MorvaneDoc(two).InputWavelength = 520
        one.close()
        two.close()
        with morvane.launch(self.program) as server:
            doc = morvane.MorvaneDoc(server)
            self.assertEqual((doc.OutputWavelength, doc.InputWavelength), (510, 520))


if __name__ == "__main__":
    unittest.main()

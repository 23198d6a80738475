"""The printed report, as PDF, by the package and by the example script."""
import subprocess
import tempfile
import unittest
from pathlib import Path

from support import EXAMPLES, MIRROR, PROGRAM, SETTINGS, ServerTest, morvane, prepare


def text_of(pdf):
    return subprocess.run(
        ["pdftotext", "-layout", pdf, "-"], check=True, capture_output=True, text=True
    ).stdout


class Report(ServerTest):
    def analyze(self):
        sample = prepare(self.doc, MIRROR)
        self.doc.AutoTrace(sample["direction"])
        self.doc.Analyze()

    def test_a_page_is_written(self):
        self.analyze()
        pdf = self.folder / "page.pdf"
        morvane.print_report(self.doc, pdf)
        content = pdf.read_bytes()
        self.assertTrue(content.startswith(b"%PDF-"))
        self.assertEqual(content.count(b"/Type /Page\n"), 1)
        self.assertIn(b"/ToUnicode", content)

    def test_its_text_can_be_searched(self):
        self.analyze()
        pdf = self.folder / "page.pdf"
        morvane.print_report(self.doc, pdf)
        text = text_of(pdf)
        self.assertIn("Morvane Test Report", text)
        rows = [line.split() for line in text.splitlines()]
        self.assertIn(["RMS", f"{self.doc.Aberration('RMS'):.3f}"], rows)
        self.assertIn(["Strehl", "Ratio", f"{self.doc.Aberration('STREHL'):.2f}"], rows)

    def test_what_cannot_be_printed_is_an_error(self):
        pdf = self.folder / "page.pdf"
        with self.assertRaises(morvane.MorvaneError) as raised:
            morvane.print_report(self.doc, pdf)
        self.assertEqual(
            raised.exception.number, morvane.MorvaneDocErrors.ErrorNoDocument
        )
        prepare(self.doc, MIRROR)
        with self.assertRaisesRegex(morvane.ServerError, "no analysis results"):
            morvane.print_report(self.doc, pdf)
        self.analyze()
        with self.assertRaisesRegex(morvane.ServerError, "Cannot start print job on .*no/page.pdf"):
            morvane.print_report(self.doc, self.folder / "no" / "page.pdf")
        self.assertEqual(list(self.folder.iterdir()), [])
        morvane.print_report(self.doc, pdf)
        self.assertTrue(pdf.exists())


class ReportScript(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def run_script(self, *arguments):
        command = ["/usr/bin/python3", "-B", EXAMPLES / "report.py", *arguments]
        if PROGRAM:
            command += ["--program", PROGRAM]
        return subprocess.run(command, capture_output=True, text=True)

    def test_each_picture_gets_a_page(self):
        out = self.folder / "pages"
        done = self.run_script(MIRROR, EXAMPLES / "prism-polygon.jpg", "--out", out)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        names = sorted(page.name for page in out.iterdir())
        self.assertEqual(names, ["mirror.pdf", "prism-polygon.pdf"])
        self.assertEqual(done.stdout.split(), [str(out / name) for name in names])

    def test_the_panes_are_a_matter_of_choice_and_of_this_run(self):
        before = SETTINGS.read_bytes() if SETTINGS.exists() else None
        done = self.run_script(MIRROR, "--out", self.folder, "--panes", "interferogram,zernikes")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn(b"/Subtype /Image", (self.folder / "mirror.pdf").read_bytes())
        self.assertEqual(SETTINGS.read_bytes() if SETTINGS.exists() else None, before)
        self.assertEqual(self.run_script(MIRROR, "--panes", "pictures").returncode, 2)

    def test_a_document_is_printed_as_it_is(self):
        document = self.folder / "kept.mvd"
        with morvane.launch(PROGRAM) as _:
            doc = morvane.MorvaneDoc()
            sample = prepare(doc, MIRROR)
            doc.ScaleFactor = 1.0
            doc.AutoTrace(sample["direction"])
            doc.Analyze()
            rms = doc.Aberration("RMS")
            doc.Save(document)
        done = self.run_script(document, "--out", self.folder, "--panes", "aberrations")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        rows = [line.split() for line in text_of(self.folder / "kept.pdf").splitlines()]
        self.assertIn(["RMS", f"{rms:.3f}"], rows)

    def test_a_picture_that_fails_does_not_stop_the_others(self):
        bad = self.folder / "bad.bmp"
        bad.write_bytes(b"BM")
        done = self.run_script(bad, MIRROR, "--out", self.folder)
        self.assertEqual(done.returncode, 1)
        self.assertIn("bad.bmp", done.stderr)
        self.assertTrue((self.folder / "mirror.pdf").exists())


if __name__ == "__main__":
    unittest.main()

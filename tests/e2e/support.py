"""What the tests share. MORVANE_PROGRAM names the program; by default the release build."""
import json
import os
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"
MIRROR = EXAMPLES / "mirror.bmp"
PROGRAM = os.environ.get("MORVANE_PROGRAM")

# The settings of whoever runs the tests are not to be touched.
_settings = tempfile.TemporaryDirectory()
os.environ["XDG_CONFIG_HOME"] = _settings.name
os.environ.pop("MORVANE_SETTINGS", None)
SETTINGS = Path(_settings.name, "morvane", "settings.ini")

sys.path.insert(0, str(ROOT / "python"))

import morvane  # noqa: E402


class ServerTest(unittest.TestCase):
    """Tests on one launch, each with a new MorvaneDoc and an empty folder."""

    @classmethod
    def setUpClass(cls):
        shutil.rmtree(SETTINGS.parent, ignore_errors=True)
        cls.server = morvane.launch(PROGRAM)
        cls.addClassCleanup(cls.server.close)

    def setUp(self):
        self.doc = morvane.MorvaneDoc(self.server)
        self.addCleanup(self.doc.close)
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)


def told(picture):
    return json.loads(picture.with_suffix(".json").read_text())


def prepare(doc, picture):
    """Loads a sample and sets its outlines."""
    sample = told(picture)
    assert doc.Load(picture)
    doc.SetAperture(sample["aperture"]["shape"], sample["aperture"]["points"])
    if "obstruction" in sample:
        doc.SetObstruction(sample["obstruction"]["shape"], sample["obstruction"]["points"])
    return sample


def count_fringes(doc):
    count = 0
    while True:
        try:
            doc.FringeCenter(count + 1, 1)
        except morvane.MorvaneError as error:
            assert error.number == morvane.MorvaneDocErrors.ErrorInvalidFringeOrder
            return count
        count += 1

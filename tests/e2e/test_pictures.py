"""Pictures that are none: Load says so, the document stays as it was, the program goes on."""
import struct

from support import EXAMPLES, MIRROR, ServerTest, count_fringes, prepare


def bmp_header(width, height, bits, compression=0, offset=1078):
    return struct.pack("<2sIHHI", b"BM", 100, 0, 0, offset) + struct.pack(
        "<IiiHHIIiiII", 40, width, height, 1, bits, compression, 0, 0, 0, 0, 0
    )


class Pictures(ServerTest):
    def bad_pictures(self):
        bmp, jpeg = MIRROR.read_bytes(), (EXAMPLES / "workshop-noisy.jpg").read_bytes()
        return {
            "empty.bmp": b"",
            "signature.bmp": b"BM",
            "text.bmp": b"This is a text.\n" * 100,
            "text.jpg": b"This is a text.\n" * 100,
            "cut.bmp": bmp[: len(bmp) // 2],
            "header.jpg": jpeg[:20],
            "huge.bmp": (bmp_header(60000, 60000, 24) + bytes(100))[:100],
            "hugest.bmp": bmp_header(2**31 - 1, -(2**31), 32) + bytes(100),
            "nothing.bmp": bmp_header(0, 0, 8) + bytes(2000),
            "overrun.rle": bmp_header(8, 8, 8, 1) + bytes(1024) + b"\xff\x01" * 9,
        }

    def test_leave_the_document_as_it_was(self):
        prepare(self.doc, MIRROR)
        self.doc.AutoTrace("vertical")
        self.doc.Analyze()
        fringes, rms = count_fringes(self.doc), self.doc.Aberration("RMS")
        for name, content in self.bad_pictures().items():
            with self.subTest(name=name):
                (self.folder / name).write_bytes(content)
                self.assertFalse(self.doc.Load(self.folder / name))
                self.assertEqual(count_fringes(self.doc), fringes)
                self.assertEqual(self.doc.Aberration("RMS"), rms)

    def test_take_no_slot(self):
        text = self.folder / "text.bmp"
        text.write_bytes(b"This is a text.")
        for _ in range(120):
            self.assertFalse(self.doc.Load(text))
        self.assertTrue(self.doc.Load(MIRROR))

    def test_other_extension_is_not_loaded(self):
        other = self.folder / "mirror.png"
        other.write_bytes(MIRROR.read_bytes())
        self.assertFalse(self.doc.Load(other))

    def test_windows_take_zoom_and_size(self):
        self.doc.Load(MIRROR)
        for assigned, zoom in ((150, 150), (33, 150), ("50", 50), (1600, 1600), (25, 25)):
            self.doc.Zoom = assigned
            self.assertEqual(self.doc.Zoom, zoom, assigned)
        for width, height in ((320, 240), (16, 4096), (4096, 16), (640, 480)):
            self.assertTrue(self.doc.SizeWindow(width, height))
            self.assertEqual((self.doc.width, self.doc.height), (width, height))
        with self.assertRaises(AttributeError):
            self.doc.width = 100

    def test_tiny_pictures_and_useless_outlines(self):
        for width, height in ((1, 1), (1, 9), (2, 2)):
            picture = self.folder / f"{width}x{height}.bmp"
            rows = bytes((3 * width + 3) // 4 * 4 * height)
            picture.write_bytes(bmp_header(width, height, 24, offset=54) + rows)
            self.assertTrue(self.doc.Load(picture))
            for points in ([0, 1, 1, 0, 2, 1, 1, 2], [-9e9, 0, 0, -9e9, 9e9, 0, 0, 9e9],
                           [50, 60, 60, 50, 70, 60, 60, 70]):  # fmt: skip
                with self.subTest(size=(width, height), points=points):
                    self.doc.SetAperture("circle", points)
                    self.doc.AutoTrace("vertical")
                    self.assertEqual(count_fringes(self.doc), 0)

"""The bus itself, as a client without the package meets it."""
import time
import xml.etree.ElementTree

import dbus
import dbus.bus

from support import MIRROR, ServerTest, morvane

SERVICE = "com.ostrellabs.Morvane"
OBJECT = "/com/ostrellabs/Morvane"
INTERFACE = "com.ostrellabs.Morvane1"
DOCUMENT = INTERFACE + ".MorvaneDoc"
PROPERTIES = "org.freedesktop.DBus.Properties"
ERROR = "org.freedesktop.DBus.Error."


class Wire(ServerTest):
    def call(self, path, interface, member, signature="", *arguments, bus=None):
        bus = bus or self.server._connection
        return bus.call_blocking(SERVICE, path, interface, member, signature, arguments)

    def assert_error(self, name, *call):
        with self.assertRaises(dbus.DBusException) as raised:
            self.call(*call)
        self.assertEqual(raised.exception.get_dbus_name(), name)

    def setUp(self):
        super().setUp()
        self.path = self.call(OBJECT, INTERFACE, "CreateDoc")

    def test_bad_calls_are_answered(self):
        path = self.path
        cases = [
            ("UnknownMethod", path, DOCUMENT, "Unknown"),
            ("UnknownMethod", path, "com.example.Other", "Load", "v", "x"),
            ("UnknownMethod", path, "org.freedesktop.DBus.Introspectable", "Unknown"),
            ("UnknownMethod", path, PROPERTIES, "Unknown"),
            ("UnknownMethod", OBJECT, INTERFACE, "Unknown"),
            ("InvalidArgs", path, DOCUMENT, "Load"),
            ("InvalidArgs", path, DOCUMENT, "Load", "vv", "a", "b"),
            ("InvalidArgs", path, DOCUMENT, "AutoTrace"),
            ("InvalidArgs", path, DOCUMENT, "AutoTrace", "vvv", 1, 1, 1),
            ("InvalidArgs", path, DOCUMENT, "Release", "v", 1),
            ("InvalidArgs", path, PROPERTIES, "Get", "s", DOCUMENT),
            ("InvalidArgs", path, PROPERTIES, "Set", "sss", DOCUMENT, "ScaleFactor", "1"),
            ("UnknownInterface", path, PROPERTIES, "Get", "ss", "com.example.Other", "TrimEdges"),
            ("UnknownProperty", path, PROPERTIES, "Get", "ss", DOCUMENT, "Unknown"),
            ("PropertyReadOnly", path, PROPERTIES, "Set", "ssv", DOCUMENT, "width", 300),
            ("UnknownProperty", path, PROPERTIES, "Set", "ssv", DOCUMENT, "Unknown", 1),
            ("UnknownObject", OBJECT, INTERFACE, "ViewText", "os", "/nowhere", "Zernikes"),
            ("InvalidArgs", OBJECT, INTERFACE, "ViewText", "os", path, "Unknown"),
        ]
        for name, *call in cases:
            with self.subTest(call=call):
                self.assert_error(ERROR + name, *call)

    def test_errors_of_members_have_their_own_names(self):
        for name, *call in (
            ("NoDocument", self.path, DOCUMENT, "Zernike", "v", 1),
            ("NoDocument", OBJECT, INTERFACE, "ViewText", "os", self.path, "Aberrations"),
            ("InvalidPath", self.path, DOCUMENT, "Load", "v", "/nowhere.bmp"),
            ("InvalidBoolean", self.path, PROPERTIES, "Set", "ssv", DOCUMENT, "TrimEdges", 1),
        ):
            self.assert_error(INTERFACE + ".Error." + name, *call)
        with self.assertRaisesRegex(dbus.DBusException, "0x80040201 MorvaneDoc: Can't read Z"):
            self.call(self.path, DOCUMENT, "Zernike", "v", 1)

    def test_arrays_of_all_kinds_are_points(self):
        self.call(self.path, DOCUMENT, "Load", "v", str(MIRROR))
        numbers = [26, 238, 240, 24, 255, 238, 240, 252]
        mixed = [dbus.Double(26), *numbers[1:]]
        for kind in "ynqiuxtd":
            if kind == "y":
                numbers_of_kind = [number % 256 for number in numbers]
            else:
                numbers_of_kind = numbers
            points = dbus.Array(numbers_of_kind, signature=kind)
            self.assertTrue(self.call(self.path, DOCUMENT, "SetAperture", "vv", 1, points), kind)
            self.assertTrue(
                self.call(self.path, DOCUMENT, "SetAperture", "va" + kind, 1, points), kind
            )
        points = dbus.Array(mixed, signature="v")
        self.assertTrue(self.call(self.path, DOCUMENT, "SetAperture", "vv", 1, points))
        for kind, elements in (("s", ["1"] * 8), ("b", [True] * 8), ("ad", [[1.0, 2.0]] * 4),
                               ("v", [*mixed[:7], "452"])):  # fmt: skip
            points = dbus.Array(elements, signature=kind)
            self.assert_error(INTERFACE + ".Error.InvalidType",
                              self.path, DOCUMENT, "SetAperture", "vv", 1, points)  # fmt: skip

    def test_introspection_tells_the_members(self):
        self.call(self.path, DOCUMENT, "Load", "v", str(MIRROR))
        text = self.call(self.path, "org.freedesktop.DBus.Introspectable", "Introspect")
        face = xml.etree.ElementTree.fromstring(text).find(f"interface[@name='{DOCUMENT}']")
        methods = {method.get("name") for method in face.findall("method")}
        properties = {entry.get("name") for entry in face.findall("property")}
        values = self.call(self.path, PROPERTIES, "GetAll", "s", DOCUMENT)
        self.assertEqual(properties, set(values))
        offered = {name for name in vars(morvane.MorvaneDoc) if name[0] != "_"} - {"close"}
        self.assertEqual(
            methods - {"Release", "GetRemove", "SetRemove"} | properties | {"Remove"}, offered
        )

    def test_what_cannot_be_read_yet_is_left_out(self):
        values = self.call(self.path, PROPERTIES, "GetAll", "s", DOCUMENT)
        self.assertIn("TrimEdges", values)
        self.assertNotIn("Zoom", values)

    def test_an_object_ends_with_its_release(self):
        self.call(self.path, DOCUMENT, "Release")
        self.assert_error(ERROR + "UnknownObject", self.path, DOCUMENT, "Analyze")

    def test_an_object_ends_with_its_client(self):
        client = dbus.bus.BusConnection(self.server.address)
        path = self.call(OBJECT, INTERFACE, "CreateDoc", bus=client)
        self.assert_error(INTERFACE + ".Error.NoDocument", path, DOCUMENT, "Analyze")
        client.close()
        # The program hears of it from the bus, some time after the bus itself.
        for _ in range(500):
            with self.assertRaises(dbus.DBusException) as raised:
                self.call(path, DOCUMENT, "Analyze")
            if raised.exception.get_dbus_name() == ERROR + "UnknownObject":
                break
            time.sleep(0.01)
        self.assert_error(ERROR + "UnknownObject", path, DOCUMENT, "Analyze")
        self.assert_error(INTERFACE + ".Error.NoDocument", self.path, DOCUMENT, "Analyze")

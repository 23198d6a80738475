"""Launches: apart from each other, and gone without a trace."""
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

import dbus
import dbus.bus

from support import MIRROR, PROGRAM, ROOT, morvane

PATIENCE = 20.0  # seconds

SCRIPT = """
import sys, time
import morvane
server = morvane.launch(sys.argv[1] or None)
print(server.address, flush=True)
time.sleep(600)
"""


def is_running(process):
    try:
        return Path(f"/proc/{process}/stat").read_text().rsplit(")")[-1].split()[0] != "Z"
    except FileNotFoundError:
        return False


def process_on(address):
    """The program that serves on a bus."""
    bus = dbus.bus.BusConnection(address)
    process = bus.get_object("org.freedesktop.DBus", "/").GetConnectionUnixProcessID(
        "com.ostrellabs.Morvane", dbus_interface="org.freedesktop.DBus"
    )
    bus.close()
    return int(process)


def family_on(address):
    """The keeper of a launch with its children, bus and program; and the folder of the bus."""
    stat = Path(f"/proc/{process_on(address)}/stat").read_text()
    keeper = int(stat.rsplit(")")[-1].split()[1])
    children = Path(f"/proc/{keeper}/task/{keeper}/children").read_text().split()
    folder = Path(re.search(r"unix:path=(.*?)/bus", address)[1])
    assert len(children) == 2 and folder.exists()
    return {keeper, *map(int, children)}, folder


class Launches(unittest.TestCase):
    def assert_gone(self, family, folder):
        deadline = time.monotonic() + PATIENCE
        while any(map(is_running, family)) or folder.exists():
            self.assertLess(time.monotonic(), deadline, f"{family} or {folder} remain")
            time.sleep(0.02)

    def test_two_do_not_meet(self):
        with morvane.launch(PROGRAM) as first, morvane.launch(PROGRAM) as second:
            newest, other = morvane.MorvaneDoc(), morvane.MorvaneDoc(first)
            self.assertIs(newest._server, second)
            self.assertNotEqual(process_on(first.address), process_on(second.address))
            newest.OrderLimit, other.OrderLimit = 8, 4
            self.assertEqual((newest.OrderLimit, other.OrderLimit), (24, 8))

    def test_close_leaves_nothing(self):
        with morvane.launch(PROGRAM) as server:
            family, folder = family_on(server.address)
            doc = morvane.MorvaneDoc(server)
        self.assert_gone(family, folder)
        with self.assertRaisesRegex(morvane.ServerError, "closed"):
            doc.Load(MIRROR)

    def test_a_killed_script_leaves_nothing(self):
        for kind in (signal.SIGKILL, signal.SIGTERM, signal.SIGINT):
            with self.subTest(kind=kind.name):
                script = subprocess.Popen(
                    [sys.executable, "-B", "-c", SCRIPT, PROGRAM or ""],
                    env={**os.environ, "PYTHONPATH": str(ROOT / "python")},
                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                )  # fmt: skip
                family, folder = family_on(script.stdout.readline().decode().strip())
                script.send_signal(kind)
                script.communicate()
                self.assert_gone(family, folder)

    def test_a_program_that_ends_is_told(self):
        with morvane.launch(PROGRAM) as server:
            doc = morvane.MorvaneDoc(server)
            os.kill(process_on(server.address), signal.SIGKILL)
            with self.assertRaisesRegex(morvane.ServerError, "has ended"):
                doc.Load(MIRROR)

    def test_a_program_that_cannot_be_started_is_told(self):
        for program, reason in (
            ("/nowhere/morvane", "There is no program"),
            ("/bin/false", "ended before it was ready: exit status 1"),
            ("/bin/cat", "cat: invalid option"),  # the last words of the program are shown
        ):
            with self.subTest(program=program):
                with self.assertRaisesRegex(morvane.ServerError, reason):
                    morvane.launch(program)

    def test_a_program_that_hangs_is_told(self):
        with tempfile.TemporaryDirectory() as folder:
            script = Path(folder, "hang")
            script.write_text("#!/bin/sh\necho still thinking >&2\nexec sleep 600\n")
            script.chmod(0o755)
            with self.assertRaisesRegex(morvane.ServerError, r"(?s)not ready.*still thinking"):
                morvane.launch(script, timeout=0.5)

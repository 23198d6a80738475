"""Keeps a private bus and the program on it, and ends both with the script that asked for them.

Runs as a process of its own between script and program: the pipe on its standard input closes when
the script ends, even when that is killed, and then nothing is left running and no file behind.
The program works on a copy of the user's settings, which goes too; without lines for that copy, on
the settings themselves. Standard output carries the address of the bus on the first line and, at
the end, the last words of the program if it failed.
"""
import ctypes
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import threading

_LONGEST_FOLDER = 80  # characters; the name of a socket has room for 108 in all
_LAST_WORDS = 4000  # bytes
_PATIENCE = 5.0  # seconds from the request to end until the program is killed
_PR_SET_PDEATHSIG = 1
_SETTINGS = "settings.ini"  # in the folder of the bus

# No folders of services: nothing but the one program ever appears on this bus.
_BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <listen>unix:path={folder}/bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


def main(program, settings=None):
    folder = tempfile.mkdtemp(
        prefix="morvane-", dir="/tmp" if len(tempfile.gettempdir()) > _LONGEST_FOLDER else None
    )
    try:
        environment = {}
        if settings is not None:
            environment["MORVANE_SETTINGS"] = os.path.join(folder, _SETTINGS)
            _copy_settings(environment["MORVANE_SETTINGS"], settings)
        _say(_run(program, folder, environment))
    except OSError as error:
        _say(str(error))
    finally:
        shutil.rmtree(folder, ignore_errors=True)


def _copy_settings(copy, more):
    """The user's settings as they are now, or none if they cannot be read, with more lines behind
    them: a value that stands twice counts where it stands last."""
    kept = b""
    path = _settings_path()
    if os.path.isfile(path) and os.access(path, os.R_OK):
        with open(path, "rb") as file:
            kept = file.read() + b"\n"
    with open(copy, "wb") as file:
        file.write(kept + os.fsencode(more))


def _settings_path():
    """Where the program itself looks for them."""
    own = os.environ.get("MORVANE_SETTINGS")
    if own:
        return own
    root = os.environ.get("XDG_CONFIG_HOME", "")
    if not root.startswith("/"):
        root = os.path.join(os.environ.get("HOME", ""), ".config")
    return os.path.join(root, "morvane", "settings.ini")


def _run(program, folder, environment):
    """Runs both until one is over; the last words of the one that failed."""
    words = open(os.path.join(folder, "words"), "w+b")
    bus, address = _start_bus(folder, words)
    try:
        if not address:
            return _last(words)
        server = _start(
            [program, "-Embedding"],
            env={**os.environ, **environment, "DBUS_SESSION_BUS_ADDRESS": address},
            stdin=subprocess.DEVNULL,
            stdout=words,
            stderr=words,
        )
        _say(address + "\n")
        threading.Thread(target=_end_with_script, args=(server,), daemon=True).start()
        status = server.wait()
        return f"exit status {status}. {_last(words)}" if status else _last(words)
    finally:
        bus.kill()
        bus.wait()


def _start_bus(folder, words):
    configuration = os.path.join(folder, "bus.conf")
    with open(configuration, "w", encoding="utf-8") as file:
        file.write(_BUS_CONFIGURATION.format(folder=folder))
    bus = _start(
        ["dbus-daemon", "--config-file=" + configuration, "--nofork", "--nopidfile",
         "--nosyslog", "--print-address"],
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=words,
    )
    return bus, bus.stdout.readline().decode().strip()


def _start(command, **options):
    """A child that ends with this process too, should that be killed."""
    prctl = ctypes.CDLL(None).prctl
    return subprocess.Popen(
        command, preexec_fn=lambda: prctl(_PR_SET_PDEATHSIG, signal.SIGKILL), **options
    )


def _end_with_script(server):
    while os.read(0, 1):
        pass
    server.terminate()
    try:
        server.wait(_PATIENCE)
    except subprocess.TimeoutExpired:
        server.kill()


def _last(words):
    words.seek(max(0, words.seek(0, os.SEEK_END) - _LAST_WORDS))
    return words.read().decode(errors="replace")


def _say(text):
    try:
        sys.stdout.write(text)
        sys.stdout.flush()
    except BrokenPipeError:  # the script is gone
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())


if __name__ == "__main__":
    main(*sys.argv[1:])

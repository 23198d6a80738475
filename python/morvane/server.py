"""The Morvane programs that a script talks to: a private one, or that of the desktop session."""
import os
import shutil
import subprocess
import sys
import time
from pathlib import Path
from typing import Optional

import dbus
import dbus.bus

from .errors import ServerError, translated

SERVICE = "com.ostrellabs.Morvane"
OBJECT = "/com/ostrellabs/Morvane"
INTERFACE = "com.ostrellabs.Morvane1"

# Seconds. Generous, for a trace of a large picture takes its time; a program that ends answers
# its open calls at once.
_CALL_TIMEOUT = 3600.0
_END_TIMEOUT = 20.0

_launches: "list[Launch]" = []
_session: "Optional[Server]" = None


class Server:
    """A running Morvane on a bus."""

    def __init__(self, connection: dbus.bus.BusConnection):
        connection.set_exit_on_disconnect(False)
        self._connection = connection

    def is_connected(self) -> bool:
        return self._connection.get_is_connected()

    def owner(self) -> str:
        """The address of the program that runs now. Calls go to it and not to the name of the
        service, so that none of them starts another program after this one has ended."""
        try:
            if not self._connection.name_has_owner(SERVICE):
                self._connection.start_service_by_name(SERVICE)
            return self._connection.get_name_owner(SERVICE)
        except dbus.DBusException as error:
            raise ServerError(f"Morvane is not running and cannot be started: {error}") from None

    def call(self, owner: str, path: str, interface: str, member: str, signature: str, *arguments):
        """Calls a member and gives its result; raises what it raised."""
        try:
            return self._connection.call_blocking(
                owner, path, interface, member, signature, arguments, timeout=_CALL_TIMEOUT
            )
        except dbus.DBusException as error:
            raise self._failure(error) from None

    def _failure(self, error: dbus.DBusException) -> Exception:
        return translated(error)


class Launch(Server):
    """A private Morvane, made by launch(). Ends by close(), at the end of its `with` block, and
    with the script, however that ends. Its bus is found at `address`."""

    def __init__(self, program: str, timeout: float, settings: str | None):
        keeper = [sys.executable, "-I", str(Path(__file__).with_name("keeper.py")), program]
        self._keeper = subprocess.Popen(
            keeper if settings is None else [*keeper, settings],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            text=True,
            errors="replace",
            env=_environment(),
            start_new_session=True,  # an interrupt from the keyboard is the script's affair
        )
        try:
            self._start(program, timeout)
        except BaseException:
            self.close()
            raise
        _launches.append(self)

    def _start(self, program: str, timeout: float) -> None:
        deadline = time.monotonic() + timeout
        self.address = self._keeper.stdout.readline().strip()
        if not self.address.startswith("unix:"):
            raise ServerError(f"{program} cannot be started: {self.address}")
        try:
            super().__init__(dbus.bus.BusConnection(self.address))
        except dbus.DBusException:  # the bus has ended with the program
            raise ServerError(self._report(f"{program} ended before it was ready")) from None
        while not self._is_ready():
            if self._keeper.poll() is not None:
                raise ServerError(self._report(f"{program} ended before it was ready"))
            if time.monotonic() > deadline:
                self._keeper.stdin.close()
                raise ServerError(self._report(f"{program} was not ready after {timeout:g} s"))
            time.sleep(0.01)

    def _is_ready(self) -> bool:
        try:
            return self._connection.name_has_owner(SERVICE)
        except dbus.DBusException:  # the bus ends with the program
            return False

    def _report(self, what: str) -> str:
        """What happened, with the last words of the program, which has ended or is about to."""
        try:
            self._keeper.wait(_END_TIMEOUT)
        except subprocess.TimeoutExpired:
            return what
        words = self._keeper.stdout.read().strip()
        return f"{what}: {words}" if words else what

    def owner(self) -> str:
        try:
            return super().owner()
        except ServerError:
            raise self._ended() from None

    def _failure(self, error: dbus.DBusException) -> Exception:
        failure = super()._failure(error)
        gone = isinstance(failure, ServerError) and not self._is_ready()
        return self._ended() if gone else failure

    def _ended(self) -> ServerError:
        if self not in _launches:
            return ServerError("This Morvane has been closed")
        return ServerError(self._report("Morvane has ended"))

    def wait(self) -> None:
        """Waits until the user has closed the program. What they change in its settings is kept only
        if it was launched with settings=None."""
        self._keeper.wait()

    def close(self) -> None:
        """Ends the program with its documents, and its bus."""
        if self in _launches:
            _launches.remove(self)
        if hasattr(self, "_connection"):
            self._connection.close()
        self._keeper.stdin.close()
        self._keeper.wait()
        self._keeper.stdout.close()

    def __enter__(self) -> "Launch":
        return self

    def __exit__(self, *_) -> None:
        self.close()


def launch(program=None, timeout: float = 60.0, settings: str | None = "") -> Launch:
    """Starts a private Morvane on a bus of its own, without a screen when there is no display.

    program: the file to run; by default the release build beside this package, else "morvane" on
    the PATH. timeout: seconds until it must be ready. Raises ServerError if it cannot be started.

    It has the user's settings as a copy of its own, so that neither the options that a script sets
    nor the files that it opens become the user's. settings: lines of a settings file that hold
    for this launch, such as "[CurrentVersion]\\nNumber of Panes = 2". None: the user's own settings,
    for a program whose window is left to the user.

    Any number of launches may run, in one script or in many; they never meet. MorvaneDoc() uses
    the newest open one of the script.
    """
    return Launch(_find_program(program), timeout, settings)


def current_server() -> Server:
    """The newest open launch, or the desktop session's Morvane."""
    global _session
    if _launches:
        return _launches[-1]
    if _session is not None and _session.is_connected():
        return _session
    try:
        _session = Server(dbus.SessionBus(private=True))
        return _session
    except dbus.DBusException as error:
        raise ServerError(
            f"There is no session bus to find Morvane on; use morvane.launch() ({error})"
        ) from None


def _find_program(program) -> str:
    if program is not None:
        named = shutil.which(os.path.expanduser(os.fspath(program)))
        if not named:
            raise ServerError(f"There is no program {os.fspath(program)}")
        return os.path.abspath(named)
    built = Path(__file__).resolve().parents[2] / "build" / "release" / "morvane"
    if os.access(built, os.X_OK):
        return str(built)
    installed = shutil.which("morvane")
    if not installed:
        raise ServerError(f"Morvane is neither built ({built}) nor on the PATH")
    return os.path.abspath(installed)


def _environment() -> dict:
    environment = dict(os.environ)
    if not environment.get("DISPLAY") and not environment.get("WAYLAND_DISPLAY"):
        environment.setdefault("QT_QPA_PLATFORM", "offscreen")
    return environment

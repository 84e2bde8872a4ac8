"""A desktop for one test: an X server, a window manager, a home, and the accessibility bus to look at it with.

To be run by own_session.sh, which gives it a bus of its own.
"""

import contextlib
import os
import shutil
import subprocess
import tempfile
import time

PATIENCE = 60.0  # seconds; long, because a loaded machine is slow and a test that waits in vain has failed anyway
POLL = 0.02

# A dark palette, as a desktop keeps it among its settings.
DARK = {
    "Window": {"BackgroundNormal": "49,54,59", "ForegroundNormal": "239,240,241"},
    "View": {"BackgroundNormal": "35,38,41", "BackgroundAlternate": "49,54,59", "ForegroundNormal": "239,240,241"},
    "Button": {"BackgroundNormal": "49,54,59", "ForegroundNormal": "239,240,241"},
    "Selection": {"BackgroundNormal": "61,174,233", "ForegroundNormal": "239,240,241"},
    "Tooltip": {"BackgroundNormal": "49,54,59", "ForegroundNormal": "239,240,241"},
}


def wait_for(question, what, patience=PATIENCE):
    """Asks until the answer is true, and returns it."""
    end = time.monotonic() + patience
    while True:
        answer = question()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(POLL)


class Desktop:
    """Owns all that it starts; `close` ends it."""

    SIZE = (1280, 1024)

    def __init__(self, scale=1, size=SIZE, dark=False, name="portico-desktop"):
        """The size is the screen's, in its dots; the name begins that of the home."""
        self._stack = contextlib.ExitStack()
        self.scale = scale
        self.size = size
        self.home = tempfile.mkdtemp(prefix=f"{name}-")
        self._stack.callback(shutil.rmtree, self.home, ignore_errors=True)
        self.environment = dict(os.environ)
        self.environment.update(
            HOME=self.home,
            XDG_CONFIG_HOME=f"{self.home}/config",
            XDG_STATE_HOME=f"{self.home}/state",
            XDG_DATA_HOME=f"{self.home}/data",
            XDG_RUNTIME_DIR=self._folder("runtime"),
            LC_ALL="C.UTF-8",
            QT_QPA_PLATFORM="xcb",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            QT_SCALE_FACTOR=str(scale),
            NO_AT_BRIDGE="0",
        )
        if dark:
            self._darken()
        try:
            self._start_display()
            self._start_window_manager()
        except BaseException:
            self.close()
            raise

    def close(self):
        self._stack.close()

    def _folder(self, name):
        path = f"{self.home}/{name}"
        os.makedirs(path, mode=0o700, exist_ok=True)
        return path

    def _darken(self):
        with open(f"{self._folder('config')}/kdeglobals", "w", encoding="utf-8") as file:
            for part, colors in DARK.items():
                file.write(f"[Colors:{part}]\n" + "".join(f"{name}={color}\n" for name, color in colors.items()))
        self.environment.update(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")

    def start(self, *command, **options):
        """A program on this desktop, ended with it."""
        process = subprocess.Popen(command, env=self.environment, **options)
        self._stack.callback(self._end, process)
        return process

    @staticmethod
    def _end(process):
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        for stream in (process.stdout, process.stderr):
            if stream:
                stream.close()

    def _start_display(self):
        read, write = os.pipe()
        width, height = self.size
        self.start("Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
                   pass_fds=(write,), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            display = f":{number.readline().strip()}"
        self.environment["DISPLAY"] = display
        os.environ["DISPLAY"] = display

    def _start_window_manager(self):
        ready = f"{self.home}/window-manager-ready"
        self.start("openbox", "--sm-disable", "--startup", f"touch {ready}",
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(lambda: os.path.exists(ready), "the window manager")

    def xdotool(self, *arguments):
        return subprocess.run(("xdotool",) + tuple(map(str, arguments)), env=self.environment, check=True,
                              capture_output=True, text=True).stdout.strip()

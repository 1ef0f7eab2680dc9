"""The desktop's portal with the dialogs of GTK, as a desktop starts them. No session has one unless
a test wants it: every program would ask it for this and that."""

import os
import shutil
import signal
import subprocess
import tempfile

from . import eyes
from .waiting import until

PROGRAMS = (("/usr/libexec/xdg-desktop-portal-gtk", "org.freedesktop.impl.portal.desktop.gtk"),
            ("/usr/libexec/xdg-desktop-portal", "org.freedesktop.portal.Desktop"))


class Portal:
    def __init__(self):
        # Where no desktop is named it takes the dialogs of whatever desktop is installed.
        choice = tempfile.mkdtemp()
        shutil.copy("/usr/share/xdg-desktop-portal/portals/gtk.portal", choice)
        environment = {**os.environ, "XDG_DESKTOP_PORTAL_DIR": choice}
        log = os.path.join(os.environ["SESSION_DIR"], "log", "portal")
        self._processes = []
        for program, name in PROGRAMS:
            with open(log, "ab") as file:
                self._processes.append(subprocess.Popen(
                    [program], stdout=file, stderr=file, env=environment))
            until(f"{name} is there", lambda: eyes.owner_pid(name))

    def _window(self):
        application = eyes.application(self._processes[0].pid)
        return application and application.find("file chooser")

    def dialog(self):
        """The file dialog, once it is open."""
        return until("the desktop's dialog is open", self._window)

    def has_dialog(self):
        return bool(eyes.windows(self._processes[0].pid))

    def dialog_is_above(self, pid):
        """Whether the dialog belongs to a window of that process."""
        dialog = until("the dialog is on the screen",
                       lambda: eyes.windows(self._processes[0].pid))[-1]
        above = subprocess.run(["xprop", "-id", dialog, "WM_TRANSIENT_FOR"], text=True,
                               stdout=subprocess.PIPE, check=True).stdout.rpartition("#")[2].strip()
        return above in eyes.windows(pid)

    def freeze(self):
        self._processes[-1].send_signal(signal.SIGSTOP)

    def thaw(self):
        self._processes[-1].send_signal(signal.SIGCONT)

    def kill(self):
        for process in reversed(self._processes):
            process.kill()
            process.wait()

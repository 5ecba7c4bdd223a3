"""A private CUPS server. All it owns lies in a folder of its own, in which it also listens."""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time

import ipp

START_SECONDS = 30
STOP_SECONDS = 20
POLL_SECONDS = 0.02
LARGEST_JOB = 200_000

_PR_SET_PDEATHSIG = 1

_FILES = """\
ServerRoot {folder}/etc
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
CacheDir {folder}/cache
StateDir {folder}/state
AccessLog {folder}/log/access
ErrorLog {folder}/log/error
PageLog {folder}/log/page
SystemGroup root
"""

# Whoever reaches the socket may do anything: it lies in the server's own folder.
_CONFIGURATION = """\
Listen {folder}/cups.sock
Browsing No
WebInterface No
PreserveJobHistory Yes
PreserveJobFiles No
LimitRequestBody {largest}
LogLevel warn
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    AuthType None
    Order allow,deny
    Allow all
  </Limit>
</Policy>
"""


def find_program(name):
    """Servers and administrators' commands are not on everybody's path."""
    return shutil.which(name, path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin")


class PrintServer:
    def __enter__(self):
        self._process = None
        self._folder = tempfile.mkdtemp(prefix="zeapi_cups_")
        try:
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.stop()
        shutil.rmtree(self._folder)

    @property
    def address(self):
        """What CUPS_SERVER has to say."""
        return self._path("cups.sock")

    def stop(self):
        """Ends the server and what it has started; harmless when it has ended already."""
        if self._process is None:
            return
        self._process.terminate()
        try:
            self._process.wait(STOP_SECONDS)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._process = None

    def add_queue(self, name, port):
        """A raw queue that sends what it is given to the loopback port."""
        self._run("lpadmin", "-p", name, "-E", "-m", "raw", "-v",
                  f"socket://127.0.0.1:{port}/?waiteof=false&snmp=false")

    def remove_queue(self, name):
        self._run("lpadmin", "-x", name)

    def reject_jobs(self, name):
        self._run("cupsreject", name)

    def jobs(self):
        """All jobs that the server knows, by number."""
        return ipp.jobs(self.address)

    def _start(self):
        # The user that the server's helpers run as has to get through to their files.
        os.chmod(self._folder, 0o711)
        for name in ("etc", "spool", "spool/tmp", "cache", "state", "log"):
            os.mkdir(self._path(name))
        self._write("etc/cups-files.conf", _FILES)
        self._write("etc/cupsd.conf", _CONFIGURATION)
        self._process = subprocess.Popen(
            [find_program("cupsd"), "-f", "-c", self._path("etc/cupsd.conf"),
             "-s", self._path("etc/cups-files.conf")],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            start_new_session=True, preexec_fn=_end_with_parent)
        deadline = time.monotonic() + START_SECONDS
        while not self._answers():
            if self._process.poll() is not None or time.monotonic() > deadline:
                raise RuntimeError("cupsd did not start:\n" + self._error_log())
            time.sleep(POLL_SECONDS)

    def _answers(self):
        return os.path.exists(self.address) and subprocess.run(
            ["lpstat", "-r"], env=self._environment(), stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, check=False).stdout == b"scheduler is running\n"

    def _run(self, program, *arguments):
        done = subprocess.run([find_program(program), *arguments], env=self._environment(),
                              capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise RuntimeError(f"{program}: {done.stderr}\n{self._error_log()}")

    def _environment(self):
        return {**os.environ, "CUPS_SERVER": self.address, "LC_ALL": "C"}

    def _error_log(self):
        try:
            with open(self._path("log/error"), encoding="utf-8", errors="replace") as file:
                return file.read()
        except FileNotFoundError:
            return ""

    def _write(self, name, text):
        with open(self._path(name), "w", encoding="ascii") as file:
            file.write(text.format(folder=self._folder, largest=LARGEST_JOB))

    def _path(self, name):
        return os.path.join(self._folder, name)


def _end_with_parent():
    """The server ends with the test even when that is killed."""
    ctypes.CDLL(None).prctl(_PR_SET_PDEATHSIG, signal.SIGTERM)

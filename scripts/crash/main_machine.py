"""A main machine of one's own: PostgreSQL on loopback in a folder that is gone afterwards, to be stopped, killed and started again."""
import atexit
import os
import pwd
import shutil
import signal
import socket
import subprocess
import tempfile

PROGRAMS = "/usr/lib/postgresql/15/bin"
DATABASE = "MuhasebeData"
USER = "karvel"


class MainMachine:
    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="karvel-main-machine-")
        self.data = os.path.join(self.folder, "data")
        if os.geteuid() == 0:  # the server refuses to run as root
            server = pwd.getpwnam("postgres")
            os.chown(self.folder, server.pw_uid, server.pw_gid)
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", 0))
            self.port = probe.getsockname()[1]
        self._run("initdb", "-D", self.data, "-U", USER, "-A", "trust", "-E", "UTF8", "--locale=C.UTF-8")
        with open(os.path.join(self.data, "postgresql.conf"), "a") as settings:
            settings.write(f"port = {self.port}\nlisten_addresses = '127.0.0.1'\nunix_socket_directories = '{self.folder}'\n")
        atexit.register(self.remove)
        self.start()
        self._run("createdb", "-h", self.folder, "-p", str(self.port), "-U", USER, DATABASE)
        os.environ["PGUSER"] = USER  # for the desks, which take it from there

    def _run(self, program, *words):
        become = ["setpriv", "--reuid=postgres", "--regid=postgres", "--clear-groups", "--"] if os.geteuid() == 0 else []
        done = subprocess.run([*become, os.path.join(PROGRAMS, program), *words], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, text=True, cwd="/")
        if done.returncode:
            raise RuntimeError(f"{program}: {done.stderr}")

    def start(self):
        self._run("pg_ctl", "start", "-w", "-D", self.data, "-l", os.path.join(self.folder, "log"))

    def stop(self, mode="fast"):
        self._run("pg_ctl", "stop", "-w", "-D", self.data, "-m", mode)

    def crash(self):
        """As when its power goes, and comes again."""
        self.stop("immediate")
        self.start()

    def kill_backends(self):
        """Ends those that serve the desks, as the system does when memory runs out. The server then starts all of them anew."""
        with open(os.path.join(self.data, "postmaster.pid")) as file:
            server = int(file.readline())
        with open(f"/proc/{server}/task/{server}/children") as file:
            children = [int(child) for child in file.read().split()]
        for child in children:
            try:
                with open(f"/proc/{child}/cmdline") as file:
                    serves = file.read().startswith(f"postgres: {USER} {DATABASE} ")
                if serves:
                    os.kill(child, signal.SIGKILL)
            except (FileNotFoundError, ProcessLookupError):
                pass

    def remove(self):
        if os.path.exists(os.path.join(self.data, "postmaster.pid")):
            self.stop("immediate")
        shutil.rmtree(self.folder, ignore_errors=True)

"""An FTP server of a test's own, on a port of this machine that it tells on its first line. Run by Debian's own Python.

ftp_server.py HOW FOLDER, with the user "ali" and the password "gizli":
  plain    takes files
  unlisted takes files and lists none
  closed   takes none
  full     has no room, and says so before it takes anything
  filling  runs out of room in the middle of a file
  dies     goes in the middle of a file
  deaf     lets in and says nothing
"""

import errno
import os
import socket
import sys

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.filesystems import AbstractedFS
from pyftpdlib.handlers import DTPHandler, FTPHandler
from pyftpdlib.servers import FTPServer


class FullFile:
    """A file on a disk without room."""

    def __init__(self, name):
        self.name = name
        self.closed = False

    def write(self, _):
        raise OSError(errno.ENOSPC, "No space left on device")

    def close(self):
        self.closed = True


class FullServer(FTPHandler):
    def ftp_STOR(self, file, mode="w"):
        self.respond("452 Insufficient storage space.")


class FullDisk(AbstractedFS):
    def open(self, filename, mode):
        return FullFile(filename)


class DyingTransfer(DTPHandler):
    def handle_read(self):
        super().handle_read()
        if self.tot_bytes_received > 100_000:
            os._exit(1)

    handle_read_event = handle_read


def listen(server):
    print(server.socket.getsockname()[1], flush=True)
    server.serve_forever()


def main(how, folder):
    if how == "deaf":
        deaf = socket.socket()
        deaf.bind(("127.0.0.1", 0))
        deaf.listen()
        print(deaf.getsockname()[1], flush=True)
        while True:
            kept.append(deaf.accept())
    authorizer = DummyAuthorizer()
    rights = {"closed": "elr", "unlisted": "ew"}.get(how, "elrwadfm")
    authorizer.add_user("ali", "gizli", folder, perm=rights)
    FTPHandler.authorizer = authorizer
    FTPHandler.auth_failed_timeout = 0
    if how == "filling":
        FTPHandler.abstracted_fs = FullDisk
    if how == "dies":
        FTPHandler.dtp_handler = DyingTransfer
    listen(FTPServer(("127.0.0.1", 0), FullServer if how == "full" else FTPHandler))


kept = []
main(sys.argv[1], sys.argv[2])

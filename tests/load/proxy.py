"""A proxy between the desks and a PostgreSQL server: it counts and delays the round trips, and cuts where it is told."""

import os
import shutil
import socket
import struct
import tempfile
import threading
import time

SOCKET = ".s.PGSQL.5432"
STARTUP_QUESTIONS = (80877103, 80877104)  # "May we encrypt?", which one byte answers.


class Proxy:
    """Desks reach the server's socket folder through `folder`. Each Sync and each simple query is one round trip."""

    def __init__(self, server_folder, delay=0.0):
        self.server = os.path.join(server_folder, SOCKET)
        self.delay = delay
        self.turns = 0
        self.statements = []
        # Asked before each statement is passed on; where it says True, the connection is cut instead.
        self.cut_before = None
        # Asked when a statement has been passed on; where it says True, its answer is withheld and the connection cut.
        self.cut_answer = None
        self.folder = tempfile.mkdtemp(prefix="rovanta-proxy-")
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(os.path.join(self.folder, SOCKET))
        self.listener.listen(64)
        threading.Thread(target=self.accept, daemon=True).start()

    def accept(self):
        while True:
            try:
                desk, _ = self.listener.accept()
            except OSError:
                return
            threading.Thread(target=Passage(self, desk).run, daemon=True).start()

    def restart_counting(self):
        self.turns = 0
        self.statements = []

    def close(self):
        self.listener.close()
        shutil.rmtree(self.folder, ignore_errors=True)


class Passage:
    """One desk's connection."""

    def __init__(self, proxy, desk):
        self.proxy = proxy
        self.desk = desk
        self.server = socket.socket(socket.AF_UNIX)
        self.texts = {}
        self.bound = ""
        self.mute = False
        self.rest = b""

    def run(self):
        try:
            self.server.connect(self.proxy.server)
            self.pass_start()
            threading.Thread(target=self.pass_down, daemon=True).start()
            while self.pass_message():
                pass
        except OSError:
            pass
        self.cut()

    def cut(self):
        for end in (self.desk, self.server):
            try:
                end.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass
            end.close()

    def take(self, count):
        while len(self.rest) < count:
            piece = self.desk.recv(1 << 16)
            if not piece:
                raise OSError("the desk has hung up")
            self.rest += piece
        taken, self.rest = self.rest[:count], self.rest[count:]
        return taken

    def pass_start(self):
        while True:
            head = self.take(8)
            length, code = struct.unpack("!ii", head)
            self.server.sendall(head + self.take(length - 8))
            if code not in STARTUP_QUESTIONS:
                return
            self.desk.sendall(self.server.recv(1))

    def pass_down(self):
        try:
            while piece := self.server.recv(1 << 16):
                if not self.mute:
                    self.desk.sendall(piece)
        except OSError:
            pass
        self.cut()

    def pass_message(self):
        """Passes one message of the desk on; False when the connection is to be cut."""
        head = self.take(5)
        kind = head[:1]
        body = self.take(struct.unpack("!i", head[1:])[0] - 4)
        self.learn(kind, body)
        if kind in b"BQ" and self.proxy.cut_before and self.proxy.cut_before(self.bound):
            return False
        if kind in b"EQ":
            self.proxy.statements.append(self.bound)
            if self.proxy.cut_answer and self.proxy.cut_answer(self.bound):
                self.mute = True
        if kind in b"SQ":
            self.proxy.turns += 1
            time.sleep(self.proxy.delay)
        self.server.sendall(head + body)
        if kind in b"SQ" and self.mute:
            time.sleep(0.3)  # The server's work is done when its answer would be there.
            return False
        return True

    def learn(self, kind, body):
        if kind == b"P":
            name, text = body.split(b"\0")[:2]
            self.texts[name] = text.decode()
        elif kind == b"B":
            self.bound = self.texts[body.split(b"\0")[1]]
        elif kind == b"Q":
            self.bound = body.rstrip(b"\0").decode()

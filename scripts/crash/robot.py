"""A desk driven through karvel-robot: one request a line, one answer a line."""
import json
import os
import select
import signal
import subprocess
import time

CUSTOMER = "Muhtelif Müşteri"


class Gone(Exception):
    """The robot ended before it answered."""


class Robot:
    def __init__(self, program, home, title="Velmora Karvel1", wrap=(), preexec=None, errors=subprocess.PIPE):
        # What a killed one leaves in the folder of temporary files goes with the home.
        environment = dict(os.environ, KARVEL_HOME=home, KARVEL_TITLE=title, KARVEL_CLOCK="2026-03-01T10:15:00", QT_QPA_PLATFORM="offscreen", TMPDIR=home,
                           XDG_RUNTIME_DIR=home)
        environment.pop("DISPLAY", None)
        self.process = subprocess.Popen([*wrap, program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=errors,
                                        env=environment, preexec_fn=preexec, restore_signals=preexec is None)
        self.rest = b""

    def ask(self, request, seconds=120):
        """The answer to a request. Raises Gone when the robot ends first."""
        self.send(request)
        return self.answer(seconds)

    def send(self, request):
        try:
            self.process.stdin.write((json.dumps(request, ensure_ascii=False) + "\n").encode())
            self.process.stdin.flush()
        except (BrokenPipeError, OSError) as error:
            raise Gone from error

    def answer(self, seconds=120):
        end = time.monotonic() + seconds
        while b"\n" not in self.rest:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0, end - time.monotonic()))
            if not ready:
                raise TimeoutError("the robot doesn't answer")
            piece = os.read(self.process.stdout.fileno(), 65536)
            if not piece:
                raise Gone
            self.rest += piece
        line, self.rest = self.rest.split(b"\n", 1)
        return json.loads(line)

    def do(self, request):
        """An answer that must be well."""
        answer = self.ask(request)
        if not answer["ok"]:
            raise RuntimeError(f"{request}: {answer['error']}")
        return answer

    def state(self):
        return self.do({"do": "state"})

    def messages(self):
        return self.do({"do": "messages"})["messages"]

    def enter_sale(self, customer=CUSTOMER):
        self.do({"do": "clock", "now": "2026-03-01T10:15:00"})
        self.do({"do": "set", "at": "Text1(0)", "value": customer})
        self.do({"do": "dblclick", "at": "Label1(0)"})

    def pick(self, row, quantity):
        self.do({"do": "row", "at": "StokGrid", "row": row, "column": 1})
        self.do({"do": "set", "at": "Text2(1)", "value": str(quantity)})

    def post(self):
        self.do({"do": "click", "at": "Command2"})

    def kill(self):
        # Maybe it runs inside a wrapper of the same process; the robot is this very process.
        try:
            os.kill(self.process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        self.end()

    def close(self):
        try:
            self.send({"do": "close"})
            self.process.wait(60)
        except (Gone, subprocess.TimeoutExpired):
            self.process.kill()
        self.end()

    def end(self):
        self.process.wait()
        for pipe in (self.process.stdin, self.process.stdout, self.process.stderr):
            try:
                if pipe:
                    pipe.close()
            except BrokenPipeError:
                pass

"""One running desk: the program without its window, driven by lines of JSON."""

import json
import os
import select
import subprocess
import time


class DeskError(Exception):
    """The desk did something that nobody told it to."""


class DeskEnded(DeskError):
    """The program ended during a call; the error's text is the program's last."""


class DeskRefused(DeskError):
    """The program did not start; the error's text is what it said."""


class Desk:
    """Every message box must be told: `told` holds the titles that may come. Anything else is an error."""

    def __init__(self, program, config, machine, told=(), clock="2026-03-02 09:00:00"):
        self.told = set(told)
        self.machine = machine
        self.rest = b""
        self.number = 0
        self.process = subprocess.Popen(
            [program, "--config", config, "--machine", machine, "--clock", clock],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)

    def read_line(self, patience):
        end = time.monotonic() + patience
        while b"\n" not in self.rest:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0, end - time.monotonic()))
            if not ready:
                raise DeskError(f"{self.machine}: no answer within {patience} s")
            piece = os.read(self.process.stdout.fileno(), 1 << 16)
            if not piece:
                raise DeskError(f"{self.machine}: the program is gone, exit code {self.process.wait()}")
            self.rest += piece
        line, self.rest = self.rest.split(b"\n", 1)
        return json.loads(line)

    def call(self, method, patience=120, **parameters):
        self.number += 1
        request = {"jsonrpc": "2.0", "id": self.number, "method": method, "params": parameters}
        try:
            self.process.stdin.write(json.dumps(request).encode() + b"\n")
        except BrokenPipeError:
            pass  # What the program said before it went is read below.
        answer = self.read_line(patience)
        if answer.get("id") is None and "error" in answer:
            raise DeskRefused(answer["error"]["message"])
        if "error" in answer:
            raise DeskError(f"{self.machine}: {method} {parameters}: {answer['error']['message']}")
        result = answer["result"]
        if "ended" in result:
            raise DeskEnded(result["ended"]["text"])
        for message in result.get("messages", ()):
            if message["title"] not in self.told:
                raise DeskError(f"{self.machine}: {method} {parameters}: box \"{message['title']}\": {message['text']}")
        return result

    def sign_in(self, user="office", password="coach2026"):
        self.set("frmLogin", "txtUsername", user)
        self.set("frmLogin", "txtPassword", password)
        self.click("frmLogin", "btnLogin")
        if any(form["form"] == "frmLogin" for form in self.call("app.forms")["forms"]):
            raise DeskError(f"{self.machine}: the sign-in box is still there")

    def menu(self, command):
        return self.call("app.menu", command=command)

    def set(self, form, control, value):
        return self.call("control.set", form=form, control=control, value=value)

    def pick(self, form, control, entry):
        by = "index" if isinstance(entry, int) else "text"
        return self.call("control.pick", form=form, control=control, **{by: entry})

    def click(self, form, control):
        return self.call("control.click", form=form, control=control)

    def text(self, form, control):
        return self.call("control.get", form=form, control=control)["text"]

    def entries(self, form, control):
        return self.call("control.get", form=form, control=control)["list"]

    def cells(self, form, grid):
        return self.call("grid.cells", form=form, grid=grid)["text"]

    def query(self, sql):
        return self.call("db.query", sql=sql)["rows"]

    def execute(self, sql):
        self.call("db.execute", sql=sql)

    def leave(self):
        """Closes the desk as at the end of the day and returns the program's exit code."""
        self.process.stdin.close()
        code = self.process.wait(60)
        self.process.stdout.close()
        return code

    def kill(self):
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.kill()


# What a clerk does at the Tour screen.

def open_tours(desk):
    desk.menu("LeaseEntry")


def new_tour(desk, customer, name, status="Contract - Signed"):
    desk.click("frmRentalEntry", "btnNew")
    desk.pick("frmRentalEntry", "cmbCustomer", customer)
    desk.set("frmRentalEntry", "txtTour", name)
    desk.pick("frmRentalEntry", "cmbStatus", status)


def add_line(desk, bus, driver, start, end, rate):
    form = "frmRentalEntry"
    desk.click(form, "btnNewBus")
    desk.set(form, "dtStart", start)
    desk.set(form, "dtEnd", end)
    desk.pick(form, "cmbBus", bus)
    if driver is not None:
        desk.pick(form, "cmbDriver", driver)
    desk.pick(form, "cmbBusRateType", "Per Day")
    desk.set(form, "txtBusRate", rate)
    desk.click(form, "btnUpdate")


def save_tour(desk):
    """Saves the tour on the screen and returns its number."""
    desk.click("frmRentalEntry", "btnSave")
    return int(desk.text("frmRentalEntry", "txtID"))


def daily_pass(desk):
    """Raises the invoices of the tour on the screen by the day."""
    desk.click("frmRentalEntry", "btnCalculate")
    desk.click("frmCreateInvoices", "btnCalculate")


def shown_invoices(desk):
    """The invoices of the tour on the screen: number, total and what was paid, as the screen tells them."""
    rows = desk.cells("frmRentalEntry", "vsfgInvoices")
    money = lambda text: round(float(text.replace("$", "").replace(",", "").replace("(", "-").strip(")")), 2)
    return {int(row[0]): (money(row[5]), money(row[6])) for row in rows if row[0].isdigit()}

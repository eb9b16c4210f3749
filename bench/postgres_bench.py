#!/usr/bin/env python3
"""Measures the program on PostgreSQL beside the same statements as bare, prepared calls of libpq.

Usage: postgres_bench.py PROGRAM [--results FILE]

The statements and their values are those that a desk has sent, taken down by the proxy of the load tests. The program is
timed from the request at its automation interface to the answer; the bare side reads no value out of its results. So the
ratio is an upper bound. Both sides run in turn on one server without waiting for the disk.
"""

import argparse
import ctypes
import os
import statistics
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(os.path.dirname(HERE), "tests", "load"))

import desk as office_desk  # noqa: E402
from desk import Desk  # noqa: E402
from proxy import Proxy  # noqa: E402
from server import Office, Server, text_of  # noqa: E402

LINES = 40
WARM_UPS = 2
TOLD = ("Schedule Conflict", "Recalculate Invoices")
BUSES = ("Silver Arrow", "Blue Comet", "Road Box")
COMMAND_OK, TUPLES_OK = 1, 2
HEAD = """# The program on PostgreSQL beside bare statements
Written by `bench/postgres_bench.py`; medians of several runs after a warm-up, both sides in turn on one PostgreSQL 15 on a
unix socket that does not wait for the disk. The program is timed from the request at its automation interface to the
answer. "Bare libpq" runs the same statements with the same values, prepared before, one after the other, and reads no
value out of what comes back. So the ratio is an upper bound.

"""


class Bare:
    """A connection of libpq with prepared statements."""

    def __init__(self, text):
        self.pq = ctypes.CDLL("libpq.so.5")
        for name in ("PQconnectdb", "PQprepare", "PQexecPrepared"):
            getattr(self.pq, name).restype = ctypes.c_void_p
        self.pq.PQerrorMessage.restype = ctypes.c_char_p
        self.connection = ctypes.c_void_p(self.pq.PQconnectdb(text.encode()))
        self.names = {}

    def finish(self, result):
        result = ctypes.c_void_p(result)
        if self.pq.PQresultStatus(result) not in (COMMAND_OK, TUPLES_OK):
            raise RuntimeError(self.pq.PQerrorMessage(self.connection).decode())
        self.pq.PQclear(result)

    def ready(self, command):
        """What a call needs, made before anything is timed."""
        text, types, formats, values = command
        count = len(values)
        if text not in self.names:
            self.names[text] = f"bare_{len(self.names)}".encode()
            self.finish(self.pq.PQprepare(self.connection, self.names[text], text.encode(), count,
                                          (ctypes.c_uint * count)(*types)))
        spread = formats if len(formats) == count else [formats[0] if formats else 0] * count
        return (self.connection, self.names[text], count, (ctypes.c_char_p * count)(*values),
                (ctypes.c_int * count)(*[len(value or b"") for value in values]), (ctypes.c_int * count)(*spread), 0)

    def run(self, calls):
        for call in calls:
            self.finish(self.pq.PQexecPrepared(*call))

    def close(self):
        self.pq.PQfinish(self.connection)


class Bench:
    def __init__(self, program):
        self.server = Server()
        self.server.psql("ALTER ROLE app SET synchronous_commit = off")
        self.office = Office(program, self.server.text())
        self.proxy = Proxy(self.server.folder)
        detour = self.office.config_for(text_of(self.proxy.folder, self.office.database))
        self.desk = self.arrive(program, self.office.config, "desk")
        office_desk.new_tour(self.desk, "Blue Harbor", "Whole Year")
        for number in range(LINES):
            month, week = divmod(number, 4)
            day = f"2026-{month + 1:02}-"
            office_desk.add_line(self.desk, BUSES[number % 3], "Lee Marsh", f"{day}{week * 7 + 1:02}",
                                 f"{day}{week * 7 + 3:02}", 500 + number)
        self.tour = office_desk.save_tour(self.desk)
        self.watched = self.arrive(program, detour, "watched")
        self.bare = Bare(self.office.text)

    @staticmethod
    def arrive(program, config, machine):
        desk = Desk(program, config, machine, TOLD)
        desk.sign_in()
        office_desk.open_tours(desk)
        return desk

    @staticmethod
    def load(desk):
        desk.pick("frmRentalEntry", "cmbTour", "Blue Harbor - Whole Year")

    def forget_invoices(self):
        for table in ("InvoiceItems", "Invoice"):
            self.desk.execute(f"DELETE FROM {table} WHERE TourID = {self.tour}")

    def pass_ready(self, desk):
        self.forget_invoices()
        self.load(desk)
        desk.click("frmRentalEntry", "btnCalculate")

    def measure(self, what, ready, work, repetitions):
        """`ready` is not timed; `work` is what a clerk waits for."""
        for _ in range(2):  # The first time brings what a new desk asks once.
            ready(self.watched)
            self.proxy.restart_counting()
            work(self.watched)
        calls = [self.bare.ready(command) for command in self.proxy.commands]
        program, bare = [], []
        for _ in range(WARM_UPS + repetitions):
            ready(self.desk)
            program.append(seconds(lambda: work(self.desk)))
            if ready == self.pass_ready:
                self.forget_invoices()
            bare.append(seconds(lambda: self.bare.run(calls)))
        ours, theirs = (statistics.median(times[WARM_UPS:]) * 1000 for times in (program, bare))
        return f"| {what} | {ours:.2f} ms | {theirs:.2f} ms | {ours / theirs:.2f} | {len(calls)} statements each |"

    def run(self):
        nothing = lambda desk: None
        return [
            self.measure("Loading a tour of 40 lines", nothing, self.load, 31),
            self.measure("Saving it, with the tour list filled anew", self.load,
                         lambda desk: desk.click("frmRentalEntry", "btnSave"), 21),
            self.measure("Daily pass of 43 periods over 40 lines, first time", self.pass_ready,
                         lambda desk: desk.click("frmCreateInvoices", "btnCalculate"), 11),
        ]

    def close(self):
        for desk in (self.desk, self.watched):
            desk.kill()
        self.bare.close()
        self.proxy.close()
        self.office.close()
        self.server.close()


def seconds(work):
    begun = time.perf_counter()
    work()
    return time.perf_counter() - begun


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--results", help="writes the table there, too")
    options = parser.parse_args()
    bench = Bench(options.program)
    try:
        rows = bench.run()
    finally:
        bench.close()
    report = "\n".join(["| What | Rovanta | Bare libpq | Ratio | Remark |", "|---|---|---|---|---|", *rows]) + "\n"
    print(report)
    if options.results:
        with open(options.results, "w", encoding="utf-8") as file:
            file.write(HEAD + report)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Prints the suite's table of engines and cases, counted from what the suite's programs said in a run.

Usage: scripts/engine_table.py [LOG] [--left-out LABEL] [--write FILE]

LOG is the log that ctest keeps, build/release/Testing/Temporary/LastTest.log where none is told. Exits with 1 when a
case failed or a test of the table was not run. Tests that run for minutes may be left out with --left-out; their cells
say so. --write puts the table into a file as well.
"""

import argparse
import dataclasses
import os
import re
import sys

TOP = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))
ENGINES = ("SQLite", "PostgreSQL", "SQL Server by ODBC")
# Tests that a run without the long ones does not have.
LONG = {"store_two_desks", "load_many_desks"}


@dataclasses.dataclass
class Cases:
    """Cases of one test: what the tallies of these names come to, or all that it counts where none is named."""

    test: str
    tallies: tuple = ()


RULES = ("Recordset_test.cpp", "Schema_test.cpp", "TwoDesks_test.cpp")
OFFICES = ("OfficeCopy_test.cpp", "OfficeCheck_test.cpp", "Backup_test.cpp")
SERVER_OFFICES = ("OfficeCopy_test.cpp", "OfficeCheck_test.cpp", "ServerOffice_test.cpp")

# A row: its name, and for each engine the cases, or the reason why there can be none.
ROWS = [
    ("Statements of the office", [Cases("store", ("corpus.txt",))], [Cases("store_postgres", ("corpus.txt",))],
     [Cases("store_odbc", ("corpus.txt",))]),
    ("Rules of the dialect", [Cases("store", ("dialect.txt",))], [Cases("store_postgres", ("dialect.txt",))],
     [Cases("store_odbc", ("dialect.txt",))]),
    ("Recordsets, schema, two desks", [Cases("store", RULES), Cases("store_two_desks")],
     [Cases("store_postgres", RULES)], [Cases("store_odbc", RULES)]),
    ("The engine's own ways", [Cases("store", ("SqliteEngine_test.cpp",))],
     [Cases("store_postgres", ("PostgresEngine_test.cpp",))],
     [Cases("store", ("OdbcEngine_test.cpp", "SqlServerText_test.cpp"))]),
    ("Stories", [Cases("story/*")], [Cases("story_postgres")], [Cases("story_odbc")]),
    ("Offices made, copied, checked, saved", [Cases("tools", OFFICES + ("Program_test.cpp", "DemoOffice_test.cpp"))],
     [Cases("tools_postgres", SERVER_OFFICES + ("Backup_test.cpp", "ThreeEngines_test.cpp"))],
     [Cases("tools_odbc", SERVER_OFFICES), Cases("tools_postgres", ("ThreeEngines_test.cpp",))]),
    ("Wrong connection texts", [Cases("connection", ("wrong texts for SQLite",))],
     [Cases("connection", ("wrong texts for PostgreSQL",))], [Cases("connection", ("wrong texts for SQL Server",))]),
    ("Starts given up after ten seconds", *[[Cases("store", ("Patience_test.cpp",))]] * 3),
    ("Lost server, cut line", "A file has neither a server nor a line.", [Cases("load_lost_server")],
     [Cases("story_odbc_cut")]),
    ("Many desks at once", "The desks of one machine are in the row of the two desks.",
     [Cases("load_some_desks"), Cases("load_many_desks")], [Cases("load_odbc")]),
    ("Round trips on a slow line", "A file is waited for by nobody.", [Cases("load_round_trips")],
     "The proxy that counts reads the protocol of PostgreSQL alone."),
]


@dataclasses.dataclass
class Result:
    """What one test said of itself."""

    passed: bool
    output: str

    def count(self, tallies):
        """How many cases passed and were run; nothing where the test says nothing of them."""
        told = [(int(passed), int(run)) for kind, passed, run in
                re.findall(r"^\[tally\] (.+): (\d+) of (\d+) passed$", self.output, re.MULTILINE) if kind in tallies]
        if tallies:
            names = {kind for kind in tallies if f"[tally] {kind}: " in self.output}
            return (sum(one for one, _ in told), sum(one for _, one in told)) if names == set(tallies) else None
        if found := re.search(r"^(\d+) stor(?:y|ies), (?:all as written|(\d+) differs?)$", self.output, re.MULTILINE):
            return int(found[1]) - int(found[2] or 0), int(found[1])
        if found := re.search(r"^\[doctest\] test cases: +(\d+) \| +(\d+) passed", self.output, re.MULTILINE):
            return int(found[2]), int(found[1])
        if found := re.search(r"^Ran (\d+) tests? in", self.output, re.MULTILINE):
            lost = sum(int(number) for number in re.findall(r"(?:failures|errors)=(\d+)", self.output))
            return int(found[1]) - lost, int(found[1])
        return (1 if self.passed else 0), 1


def read_log(path):
    """The tests that the log holds, by name, and when the run began."""
    with open(path, encoding="utf-8", errors="replace") as file:
        text = file.read()
    begun = re.search(r"^Start testing: (.+)$", text, re.MULTILINE)
    results = {}
    for piece in re.split(r"^\d+/\d+ Testing: ", text, flags=re.MULTILINE)[1:]:
        name = piece.split("\n", 1)[0]
        results[name] = Result(re.search(r"^Test Passed\.$", piece, re.MULTILINE) is not None, piece)
    return results, begun[1] if begun else "unknown"


class Table:
    def __init__(self, results, left_out):
        self.results = results
        self.left_out = left_out
        self.sound = True
        self.notes = []

    def note(self, text):
        if text not in self.notes:
            self.notes.append(text)
        return self.notes.index(text) + 1

    def tests(self, name):
        if not name.endswith("*"):
            return [name]
        return [known for known in self.results if known.startswith(name[:-1])] or [name]

    def cell(self, content):
        if isinstance(content, str):
            return f"- ({self.note(content)})"
        passed = run = 0
        troubles = []
        for cases in content:
            for test in self.tests(cases.test):
                result = self.results.get(test)
                if result is None and test in self.left_out:
                    troubles.append(f"({self.note(test + ' runs for minutes and was left out of this run.')})")
                    continue
                counted = result.count(cases.tallies) if result else None
                if counted is None or counted[1] == 0:
                    troubles.append(f"{test} " + ("NOT RUN" if result is None or result.passed else "FAILED"))
                    self.sound = False
                    continue
                passed, run = passed + counted[0], run + counted[1]
                if not result.passed or counted[0] < counted[1]:
                    troubles.append(f"{test} FAILED")
                    self.sound = False
        return " ".join(([f"{passed} of {run}"] if run else []) + troubles)

    def text(self):
        lines = [["Cases", *ENGINES]]
        lines += [[name, *(self.cell(content) for content in contents)] for name, *contents in ROWS]
        widths = [max(len(line[column]) for line in lines) for column in range(len(lines[0]))]
        lines.insert(1, ["-" * width for width in widths])
        table = "\n".join("| " + " | ".join(cell.ljust(width) for cell, width in zip(line, widths)) + " |"
                          for line in lines)
        notes = "\n".join(f"({number}) {note}" for number, note in enumerate(self.notes, 1))
        return table + ("\n\n" + notes.replace("\n", "  \n") if notes else "") + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("log", nargs="?", default=f"{TOP}/build/release/Testing/Temporary/LastTest.log")
    parser.add_argument("--left-out", choices=["long"], help="tests with this label may be missing")
    parser.add_argument("--write", metavar="FILE", help="writes the table there, too")
    options = parser.parse_args()
    results, begun = read_log(options.log)
    table = Table(results, LONG if options.left_out else set())
    text = table.text()
    print(text, end="")
    if options.write:
        with open(options.write, "w", encoding="utf-8") as file:
            file.write("# Engines and cases\n\nHow many cases passed of those that ran, as the suite told it in the run "
                       f"of {begun}. Written by\n`scripts/engine_table.py --write`; `./test` prints it at its end.\n\n"
                       + text)
    if not table.sound:
        print("The table of engines and cases is not green.")
    return 0 if table.sound else 1


if __name__ == "__main__":
    sys.exit(main())

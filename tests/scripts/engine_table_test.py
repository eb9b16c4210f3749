#!/usr/bin/env python3
"""The table of engines and cases tells what ran, what is red and what did not run."""

import os
import subprocess
import sys
import tempfile
import unittest

TOP = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SCRIPT = os.path.join(TOP, "scripts", "engine_table.py")

STORE = ["corpus.txt", "dialect.txt", "Recordset_test.cpp", "Schema_test.cpp", "TwoDesks_test.cpp",
         "SqliteEngine_test.cpp", "PostgresEngine_test.cpp", "OdbcEngine_test.cpp", "SqlServerText_test.cpp",
         "Patience_test.cpp"]
TOOLS = ["OfficeCopy_test.cpp", "OfficeCheck_test.cpp", "Backup_test.cpp", "ServerOffice_test.cpp",
         "ThreeEngines_test.cpp", "Program_test.cpp", "DemoOffice_test.cpp"]
TEXTS = ["wrong texts for SQLite", "wrong texts for PostgreSQL", "wrong texts for SQL Server"]


def tallies(kinds):
    return "".join(f"[tally] {kind}: 4 of 4 passed\n" for kind in kinds)


def whole_run():
    """What each test says where all is well."""
    run = {name: tallies(STORE) for name in ("store", "store_postgres", "store_odbc")}
    run |= {name: tallies(TOOLS) for name in ("tools", "tools_postgres", "tools_odbc")}
    run["connection"] = tallies(TEXTS)
    run["store_two_desks"] = "[doctest] test cases:  1 |  1 passed | 0 failed | 95 skipped\n"
    run |= {name: "20 stories, all as written\n" for name in ("story/tours", "story_postgres", "story_odbc")}
    run["story/booking"] = run["story_odbc_cut"] = "1 story, all as written\n"
    run |= {name: "Ran 5 tests in 3.2s\n\nOK\n" for name in ("load_lost_server", "load_round_trips")}
    run |= {name: "4 desks, 8 s\n" for name in ("load_some_desks", "load_many_desks", "load_odbc")}
    return run


def table(run, *options, failed=()):
    """The script's exit code and its lines by their first cell."""
    log = "Start testing: Nov 20 13:35 UTC\n"
    for number, (name, output) in enumerate(run.items(), 1):
        verdict = "Test Failed." if name in failed else "Test Passed."
        log += f"{number}/{len(run)} Testing: {name}\n{number}/{len(run)} Test: {name}\nOutput:\n{output}\n{verdict}\n"
    with tempfile.NamedTemporaryFile("w", suffix=".log") as file:
        file.write(log)
        file.flush()
        done = subprocess.run([sys.executable, SCRIPT, file.name, *options], stdout=subprocess.PIPE, text=True, check=False)
    rows = [[cell.strip() for cell in line.strip("|").split("|")] for line in done.stdout.splitlines() if "|" in line]
    return done.returncode, {row[0]: row[1:] for row in rows}


class TheTable(unittest.TestCase):
    def test_counts_what_ran(self):
        code, rows = table(whole_run())
        self.assertEqual(code, 0)
        self.assertEqual(rows["Statements of the office"], ["4 of 4", "4 of 4", "4 of 4"])
        self.assertEqual(rows["Recordsets, schema, two desks"][0], "13 of 13")
        self.assertEqual(rows["Stories"], ["21 of 21", "20 of 20", "20 of 20"])
        self.assertEqual(rows["Many desks at once"], ["- (2)", "2 of 2", "1 of 1"])

    def test_shows_a_case_that_failed(self):
        run = whole_run()
        run["store_odbc"] = run["store_odbc"].replace("corpus.txt: 4 of 4", "corpus.txt: 3 of 4")
        run["story_postgres"] = "20 stories, 2 differ\n"
        run["load_lost_server"] = "Ran 5 tests in 3.2s\n\nFAILED (failures=1, errors=1)\n"
        code, rows = table(run, failed=("store_odbc", "story_postgres", "load_lost_server"))
        self.assertEqual(code, 1)
        self.assertEqual(rows["Statements of the office"][2], "3 of 4 store_odbc FAILED")
        self.assertEqual(rows["Stories"][1], "18 of 20 story_postgres FAILED")
        self.assertEqual(rows["Lost server, cut line"][1], "3 of 5 load_lost_server FAILED")

    def test_shows_a_test_that_broke_off(self):
        run = whole_run()
        run["connection"] = "Segmentation fault\n"
        code, rows = table(run, failed=("connection",))
        self.assertEqual(code, 1)
        self.assertEqual(rows["Wrong connection texts"], ["connection FAILED"] * 3)

    def test_shows_a_test_that_did_not_run(self):
        run = whole_run()
        del run["story_odbc"]
        run["store_postgres"] = tallies(kind for kind in STORE if kind != "PostgresEngine_test.cpp")
        code, rows = table(run)
        self.assertEqual(code, 1)
        self.assertEqual(rows["Stories"][2], "story_odbc NOT RUN")
        self.assertEqual(rows["The engine's own ways"][1], "store_postgres NOT RUN")

    def test_long_tests_may_be_left_out_where_that_is_told(self):
        run = whole_run()
        del run["load_many_desks"]
        self.assertEqual(table(run)[0], 1)
        code, rows = table(run, "--left-out", "long")
        self.assertEqual(code, 0)
        self.assertEqual(rows["Many desks at once"][1], "1 of 1 (3)")


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""A desk whose server dies in the middle of a save: it ends with the database's text, what was written stays and no
more, and when the server is back a new start repairs the tour.

Usage: lost_server_test.py PROGRAM [UNITTEST OPTIONS]
"""

import sys
import time
import unittest

import desk as office_desk
from desk import Desk, DeskEnded, DeskError, DeskRefused
from proxy import Proxy
from server import Office, Server, text_of

PROGRAM = sys.argv.pop(1)
LINES = 6
BUSES = ("Silver Arrow", "Blue Comet", "Road Box")
TOLD = ("Schedule Conflict", "Recalculate Invoices")


def day(number):
    return f"2026-05-{number:02}"


def is_line_insert(statement):
    words = statement.replace('"', "").split()
    return words[:2] == ["INSERT", "INTO"] and words[2].lower().startswith("touritems")


class AfterLines:
    """Says True at the line insert that follows `count` others."""

    def __init__(self, count, then=None):
        self.left = count
        self.then = then

    def __call__(self, statement):
        if not is_line_insert(statement):
            return False
        self.left -= 1
        if self.left >= 0:
            return False
        if self.then:
            self.then()
        return True


class LostServer(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.server = Server()

    @classmethod
    def tearDownClass(cls):
        cls.server.close()

    def setUp(self):
        self.office = Office(PROGRAM, self.server.text())
        self.addCleanup(self.office.close)
        self.proxy = Proxy(self.server.folder)
        self.addCleanup(self.proxy.close)
        self.detour = self.office.config_for(text_of(self.proxy.folder, self.office.database))
        with self.desk(self.office.config, "morning") as desk:
            desk.sign_in()
            office_desk.open_tours(desk)
            office_desk.new_tour(desk, "Blue Harbor", "Long Way Home")
            for number in range(LINES):
                self.add_line(desk, number)
            self.tour = office_desk.save_tour(desk)
            self.assertEqual(desk.leave(), 0)
        self.assertEqual(self.lines(), list(range(1, LINES + 1)))

    def desk(self, config, machine):
        return Desk(PROGRAM, config, machine, TOLD)

    def add_line(self, desk, number):
        office_desk.add_line(desk, BUSES[number % 3], "Lee Marsh", day(1 + 4 * number), day(4 + 4 * number), 500 + number)

    def rows(self, sql):
        """Read by the server's own tool, not by the program."""
        text = self.server.psql(sql, self.office.database)
        return [line.split("|") for line in text.splitlines()]

    def lines(self):
        return [int(row[0]) for row in self.rows(f'SELECT "ID" FROM "TourItems" WHERE "TourID" = {self.tour} ORDER BY 1')]

    def name(self):
        return self.rows(f'SELECT "TourName" FROM "Tour" WHERE "ID" = {self.tour}')[0][0]

    def save_and_lose(self):
        """Renames the tour at a desk behind the proxy and saves it, which ends the program; returns its text."""
        with self.desk(self.detour, "victim") as desk:
            desk.sign_in()
            office_desk.open_tours(desk)
            desk.pick("frmRentalEntry", "cmbTour", "Blue Harbor - Long Way Home")
            desk.set("frmRentalEntry", "txtTour", "Longer Way Home")
            with self.assertRaises(DeskEnded) as ended:
                office_desk.save_tour(desk)
            with self.assertRaisesRegex(DeskError, "(?i)ended"):
                desk.text("frmRentalEntry", "txtID")
            self.assertEqual(desk.leave(), 1)
        return str(ended.exception)

    def repair(self):
        """A new start finds what was left, and a new save makes the tour whole."""
        with self.desk(self.office.config, "evening") as desk:
            desk.sign_in()
            office_desk.open_tours(desk)
            desk.pick("frmRentalEntry", "cmbTour", "Blue Harbor - Longer Way Home")
            left = self.lines()
            shown = [row for row in desk.cells("frmRentalEntry", "vsfgItems")[1:] if any(row)]
            self.assertEqual(len(shown), len(left))
            for number in range(len(left), LINES):
                self.add_line(desk, number)
            self.assertEqual(office_desk.save_tour(desk), self.tour)
            self.assertEqual(desk.leave(), 0)
        self.assertEqual(self.lines(), list(range(1, LINES + 1)))
        rates = self.rows(f'SELECT "BusRate" FROM "TourItems" WHERE "TourID" = {self.tour} ORDER BY "ID"')
        self.assertEqual([float(row[0]) for row in rates], [500.0 + number for number in range(LINES)])
        self.assertEqual(self.rows('SELECT COUNT(*) FROM "TourDropEmails" WHERE "Status" = \'Pending\''), [["1"]])

    def test_a_cut_line_leaves_the_head_and_the_lines_before_it(self):
        self.proxy.cut_before = AfterLines(3)
        text = self.save_and_lose()
        print(f"\ncut between two lines: {text}")
        self.assertRegex(text, "(?i)server|connection")
        self.assertEqual(self.name(), "Longer Way Home")
        self.assertEqual(self.lines(), [1, 2, 3])
        self.assertEqual(self.rows('SELECT "OldName", "NewName" FROM "OldTourName"'),
                         [["Long Way Home", "Longer Way Home"]])
        self.repair()

    def test_a_lost_answer_leaves_the_line_that_it_was_for(self):
        self.proxy.cut_answer = AfterLines(3)
        text = self.save_and_lose()
        print(f"\ncut before an answer: {text}")
        self.assertEqual(self.lines(), [1, 2, 3, 4])
        self.repair()

    def test_a_cut_before_the_first_line_leaves_none(self):
        self.proxy.cut_before = AfterLines(0)
        self.save_and_lose()
        self.assertEqual(self.name(), "Longer Way Home")
        self.assertEqual(self.lines(), [])
        self.repair()

    def test_a_killed_server_ends_the_desk_and_is_found_again_when_it_is_back(self):
        self.proxy.cut_before = AfterLines(2, then=lambda: self.server.do("kill"))
        text = self.save_and_lose()
        print(f"\nkilled server: {text}")
        self.assertRegex(text, "(?i)server|connection")
        begun = time.monotonic()
        with self.desk(self.office.config, "early") as desk:
            with self.assertRaises(DeskRefused) as refused:
                desk.call("app.forms")
            self.assertEqual(desk.leave(), 1)
        self.assertLess(time.monotonic() - begun, 10)
        self.assertIn(self.office.database, str(refused.exception))
        self.server.do("resume")
        self.assertEqual(self.name(), "Longer Way Home")
        self.assertEqual(self.lines(), [1, 2])
        self.repair()

    def test_an_idle_desk_ends_at_its_next_statement(self):
        with self.desk(self.office.config, "idle") as desk:
            desk.sign_in()
            office_desk.open_tours(desk)
            self.server.do("kill")
            self.server.do("resume")
            with self.assertRaises(DeskEnded) as ended:
                desk.pick("frmRentalEntry", "cmbTour", "Blue Harbor - Long Way Home")
            print(f"\nidle desk: {ended.exception}")
            self.assertEqual(desk.leave(), 1)
        self.assertEqual(self.lines(), list(range(1, LINES + 1)))


if __name__ == "__main__":
    unittest.main()

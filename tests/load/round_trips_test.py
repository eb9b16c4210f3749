#!/usr/bin/env python3
"""How often a desk waits for its server: with 5 ms on each round trip the count is what a clerk feels.

Usage: round_trips_test.py PROGRAM [UNITTEST OPTIONS]      the server is the one of ROVANTA_TEST_SERVER
"""

import collections
import os
import sys
import time
import unittest
import urllib.parse

import desk as office_desk
from desk import Desk
from proxy import Proxy
from server import Office, text_of

PROGRAM = sys.argv.pop(1)
DELAY = 0.005
MANY = 40
BUSES = ("Silver Arrow", "Blue Comet", "Road Box")
TOLD = ("Schedule Conflict", "Recalculate Invoices")
# What the screens are told to ask, and what may come on top of it.
LOAD_STATEMENTS = 5  # The head, the customer, the lines, the invoices, the payments.
SAVE_STATEMENTS = 7  # The head and the mail each read and written, the lines deleted, their table opened, the list.
ALLOWANCE = 20


class RoundTrips(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        server = os.environ["ROVANTA_TEST_SERVER"]
        cls.office = Office(PROGRAM, server)
        cls.addClassCleanup(cls.office.close)
        folder = urllib.parse.parse_qs(urllib.parse.urlsplit(server).query)["host"][0]
        cls.proxy = Proxy(folder)
        cls.addClassCleanup(cls.proxy.close)
        with Desk(PROGRAM, cls.office.config, "maker", TOLD) as desk:
            desk.sign_in()
            office_desk.open_tours(desk)
            for name, count in (("One Night", 1), ("Whole Year", MANY)):
                office_desk.new_tour(desk, "Blue Harbor", name)
                for number in range(count):
                    month, week = divmod(number, 4)
                    start = f"2026-{month + 1:02}-{week * 7 + 1:02}"
                    end = f"2026-{month + 1:02}-{week * 7 + 3:02}"
                    office_desk.add_line(desk, BUSES[number % 3], "Lee Marsh", start, end, 500 + number)
                office_desk.save_tour(desk)
            desk.leave()
        cls.detour = cls.office.config_for(text_of(cls.proxy.folder, cls.office.database))

    def setUp(self):
        self.desk = Desk(PROGRAM, self.detour, self.id(), TOLD)
        self.addCleanup(self.desk.leave)
        self.desk.sign_in()
        office_desk.open_tours(self.desk)
        self.proxy.delay = DELAY

    def tearDown(self):
        self.proxy.delay = 0

    def count(self, what, work):
        """The round trips of the work and the statements in them, by their first words."""
        self.proxy.restart_counting()
        begun = time.monotonic()
        work()
        took = time.monotonic() - begun
        turns, statements = self.proxy.turns, list(self.proxy.statements)
        print(f"\n{what}: {turns} round trips, {len(statements)} statements, {took * 1000:.0f} ms", end="")
        self.assertGreaterEqual(took, turns * DELAY)
        return turns, statements

    def load(self, name):
        return self.count(f'Loading "{name}"', lambda: self.desk.pick("frmRentalEntry", "cmbTour", "Blue Harbor - " + name))

    def test_loading_costs_no_round_trip_for_a_line(self):
        one, _ = self.load("One Night")
        many, statements = self.load("Whole Year")
        self.assertEqual(len(self.desk.cells("frmRentalEntry", "vsfgItems")), MANY + 1)
        self.assertLess(many, LOAD_STATEMENTS + ALLOWANCE)
        self.assertEqual(many, one, statements)

    def test_saving_costs_one_round_trip_for_a_line(self):
        save = lambda: office_desk.save_tour(self.desk)
        self.load("One Night")
        one, _ = self.count("Saving it", save)
        self.load("Whole Year")
        many, statements = self.count("Saving it", save)
        self.assertLess(many, SAVE_STATEMENTS + MANY + ALLOWANCE)
        self.assertEqual(many - one, MANY - 1, statements)

    def test_a_daily_pass_asks_nothing_but_what_is_told_for_each_line(self):
        self.load("Whole Year")
        self.desk.click("frmRentalEntry", "btnCalculate")
        turns, statements = self.count("The daily pass", lambda: self.desk.click("frmCreateInvoices", "btnCalculate"))
        written = self.desk.query("SELECT COUNT(InvoiceID) AS Lines FROM InvoiceItems")[0][0]
        invoices = self.desk.query("SELECT COUNT(ID) AS Invoices FROM Invoice")[0][0]
        shapes = collections.Counter(" ".join(statement.split()[:12]) for statement in statements)
        for shape, times in shapes.most_common(8):
            print(f"\n    {times} x {shape[:110]}", end="")
        print(f"\n    {invoices} invoices of {written} lines", end="")
        # It asks for the kind of the vehicle of each of the tour's lines. Each invoice looks for a number to use again,
        # opens its table and writes its head; each of its lines is written.
        self.assertLess(turns, MANY + 3 * invoices + written + ALLOWANCE)

    def test_a_list_is_one_round_trip(self):
        self.desk.call("form.close", form="frmRentalEntry")
        turns, statements = self.count("Opening the Tour screen", lambda: office_desk.open_tours(self.desk))
        self.assertLess(turns, ALLOWANCE, statements)


if __name__ == "__main__":
    unittest.main()

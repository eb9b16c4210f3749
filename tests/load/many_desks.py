#!/usr/bin/env python3
"""Many desks at once on one database server: mixed office work, and at the end every row is accounted for.

Each desk is a program of its own. It keeps a ledger of what its screens told it was saved: tours, lines, invoices,
payments. When all have gone home, the tables must hold exactly what stands in the ledgers.

Usage: many_desks.py PROGRAM [--desks N] [--seconds N] [--seed N] [--results FILE]
The server is the one of ROVANTA_TEST_SERVER.
"""

import argparse
import collections
import os
import random
import statistics
import sys
import threading
import time
import traceback

import desk as office_desk
from desk import Desk
from server import Office

CUSTOMERS = 60
BUSES = 30
DRIVERS = 10
SHARED_INVOICES = 10
# A double booking is told, a change of vehicles asks, a second pass asks and tells.
TOLD = ("Schedule Conflict", "Recalculate Invoices", "Delete Confirmation", "Invoices Deleted")
METHODS = ("Cash", "Check", "Visa", "MC", "AmEx", "Disc", "Other")


def customer_name(number):
    return f"Load Artist {number:03}"


def furnish(desk):
    """What twenty desks need to stay busy; the first customer's invoices are those that all of them take payments for."""
    for number in range(CUSTOMERS):
        desk.execute("INSERT INTO Customer (Name, LegalName, City, State, Inactive, EnteredBy) VALUES "
                     f"('{customer_name(number)}', 'Load Artist {number:03} LLC', 'Austin', 'TX', 0, 'office')")
    for number in range(BUSES):
        desk.execute("INSERT INTO Bus (Name, Type, OwnerID, Bunks, Lease, CommAmount, CommPercent, Satellite, Internet, "
                     f"Inactive) VALUES ('Load Coach {number:02}', 'Bus', 1, 12, 500, 0, 0.1, 0, 0, 0)")
    for number in range(DRIVERS):
        desk.execute(f"INSERT INTO Driver (Name, DefaultRate, Inactive) VALUES ('Load Driver {number}', 250, 0)")
    shared = desk.query(f"SELECT ID FROM Customer WHERE Name = '{customer_name(0)}'")[0][0]
    for _ in range(SHARED_INVOICES):
        desk.execute("INSERT INTO Invoice (TourID, CustomerID, InvoiceDate, DueDate, SubTotal, Tax, InvoiceTotal, Paid, "
                     f"Type) VALUES (1, {shared}, '4/1/2026', '4/1/2026', 9000000, 0, 9000000, 0, 'Manual')")
    return [row[0] for row in desk.query(f"SELECT ID FROM Invoice WHERE CustomerID = {shared}")]


class Ledger:
    """What the screens of one desk told it was saved."""

    def __init__(self):
        self.tours = {}  # number: (name, rates of its lines)
        self.invoices = {}  # number: (tour, total)
        self.payments = []  # (invoice, cents)


class Clerk(threading.Thread):
    """One desk and the person at it."""

    def __init__(self, number, load):
        super().__init__(name=f"desk-{number:02}")
        self.load = load
        self.random = random.Random(load.seed * 1000 + number)
        self.ledger = Ledger()
        self.times = collections.defaultdict(list)
        self.failure = None
        self.desk = None
        self.names = 0
        # Tours whose invoices nobody has paid for; a pass over others would take the payments away.
        self.unpaid = {}
        self.customers = {}

    def run(self):
        try:
            self.timed("start and sign in", self.arrive)
            while time.monotonic() < self.load.end:
                self.do_something()
            self.go_home()
        except Exception:
            self.failure = traceback.format_exc()
        finally:
            if self.desk is not None and self.desk.process.poll() is None:
                self.desk.kill()

    def timed(self, kind, work):
        begun = time.monotonic()
        work()
        self.times[kind].append(time.monotonic() - begun)

    def do_something(self):
        kind = self.random.choices(list(KINDS), [weight for weight, _ in KINDS.values()])[0]
        KINDS[kind][1](self, kind)

    def arrive(self):
        self.desk = Desk(self.load.program, self.load.office.config, self.name, TOLD)
        self.desk.sign_in()
        office_desk.open_tours(self.desk)

    def go_home(self):
        code = self.desk.leave()
        if code != 0:
            raise RuntimeError(f"{self.name} went home with exit code {code}")

    def come_again(self, kind):
        self.go_home()
        self.timed(kind, self.arrive)

    def search(self, kind):
        self.desk.menu("ContactNavigator")
        self.desk.set("frmCustomerNavigator", "txtName", f"Artist {self.random.randrange(CUSTOMERS):03}")
        self.timed(kind, lambda: self.desk.click("frmCustomerNavigator", "btnFind"))
        self.desk.call("form.close", form="frmCustomerNavigator")

    def open_list(self, kind):
        self.desk.call("form.close", form="frmRentalEntry")
        self.timed(kind, lambda: office_desk.open_tours(self.desk))

    def book_line(self):
        start = self.random.randrange(1, 14)
        month = self.random.randrange(4, 13)
        rate = self.random.randrange(300, 1200)
        office_desk.add_line(self.desk, f"Load Coach {self.random.randrange(BUSES):02}",
                             f"Load Driver {self.random.randrange(DRIVERS)}", f"2026-{month:02}-{start:02}",
                             f"2026-{month:02}-{start + self.random.randrange(3, 15):02}", rate)
        return rate

    def save_new_tour(self, kind):
        self.names += 1
        name = f"{self.name} Tour {self.names}"
        status = self.random.choice(("Contract - Signed", "Contract - Signed", "Quote - Active"))
        customer = self.random.randrange(1, CUSTOMERS)
        office_desk.new_tour(self.desk, customer_name(customer), name, status)
        rates = [self.book_line() for _ in range(self.random.randrange(1, 6))]
        self.timed(kind, lambda: self.desk.click("frmRentalEntry", "btnSave"))
        tour = int(self.desk.text("frmRentalEntry", "txtID"))
        if tour in self.ledger.tours:
            raise RuntimeError(f"{self.name}: tour {tour} is there twice")
        self.ledger.tours[tour] = (name, rates)
        self.customers[tour] = customer_name(customer)
        self.unpaid[tour] = f"{customer_name(customer)} - {name}"

    def open_own_tour(self):
        """Puts an own tour on the screen, or none where there is none yet. Other desks' tours came in between."""
        if not self.unpaid:
            return None
        tour = self.random.choice(list(self.unpaid))
        self.desk.pick("frmRentalEntry", "cmbTour", self.unpaid[tour])
        if int(self.desk.text("frmRentalEntry", "txtID")) != tour:
            raise RuntimeError(f"{self.name}: another tour than {tour} came up")
        return tour

    def change_tour(self, kind):
        tour = self.open_own_tour()
        if tour is None:
            return
        name, rates = self.ledger.tours[tour]
        rate = self.book_line()
        self.timed(kind, lambda: self.desk.click("frmRentalEntry", "btnSave"))
        self.ledger.tours[tour] = (name, [*rates, rate])

    def raise_invoices(self, kind):
        tour = self.open_own_tour()
        if tour is None:
            return
        again = any(owner == tour for owner, _ in self.ledger.invoices.values())
        if again:
            self.desk.call("ui.answer", answers=["yes"])
        self.desk.click("frmRentalEntry", "btnCalculate")
        self.timed(kind, lambda: self.desk.click("frmCreateInvoices", "btnCalculate"))
        shown = office_desk.shown_invoices(self.desk)
        if not shown:
            raise RuntimeError(f"{self.name}: the pass over tour {tour} shows no invoice")
        kept = {number: told for number, told in self.ledger.invoices.items() if told[0] != tour}
        kept.update({number: (tour, total) for number, (total, _) in shown.items()})
        self.ledger.invoices = kept

    def take_payment(self, kind):
        """Half of the payments go to the invoices that every desk pays into at the same time."""
        own = list(self.ledger.invoices)
        if own and self.random.random() < 0.5:
            invoice = self.random.choice(own)
            tour = self.ledger.invoices[invoice][0]
            customer = self.customers[tour]
            self.unpaid.pop(tour, None)
        else:
            invoice, customer = self.random.choice(self.load.shared), customer_name(0)
        cents = self.random.randrange(1, 5000)
        form = "frmReceivePayment"
        self.desk.menu("ReceivePayments")
        self.desk.pick(form, "cmbCustomer", customer)
        if str(invoice) in self.desk.entries(form, "cmbInvoice"):
            self.desk.pick(form, "cmbInvoice", str(invoice))
            self.desk.set(form, "txtPaymentAmount", f"{cents / 100:.2f}")
            self.desk.pick(form, "cmbPaymentMethod", self.random.choice(METHODS))
            self.timed(kind, lambda: self.desk.click(form, "btnSave"))
            self.ledger.payments.append((invoice, cents))
        self.desk.call("form.close", form=form)


# What the clerks do, and how often beside the others.
KINDS = {
    "search contacts": (3, Clerk.search),
    "open the tour list": (3, Clerk.open_list),
    "save a new tour": (5, Clerk.save_new_tour),
    "change a tour": (4, Clerk.change_tour),
    "daily pass": (3, Clerk.raise_invoices),
    "take a payment": (6, Clerk.take_payment),
    "start and sign in": (0.3, Clerk.come_again),
}


class Load:
    def __init__(self, options):
        self.program = options.program
        self.seed = options.seed
        self.office = Office(options.program, os.environ["ROVANTA_TEST_SERVER"])
        with Desk(self.program, self.office.config, "maker") as desk:
            desk.sign_in()
            self.shared = furnish(desk)
            desk.leave()
        self.begun = time.monotonic()
        self.end = self.begun + options.seconds
        self.clerks = [Clerk(number, self) for number in range(1, options.desks + 1)]

    def run(self):
        for clerk in self.clerks:
            clerk.start()
        for clerk in self.clerks:
            clerk.join()
        self.took = time.monotonic() - self.begun
        return [clerk.failure for clerk in self.clerks if clerk.failure]

    def account(self):
        """Compares the ledgers with the tables, and tells every difference."""
        with Desk(self.program, self.office.config, "auditor") as desk:
            desk.sign_in()
            tables = {
                "tours": {row[0]: row[1] for row in desk.query("SELECT ID, TourName FROM Tour WHERE ID <> 1")},
                "lines": grouped(desk.query("SELECT TourID, ID, BusRate FROM TourItems WHERE TourID <> 1 ORDER BY "
                                            "TourID, ID")),
                "invoices": {row[0]: (row[1], round(row[2], 2)) for row in
                             desk.query("SELECT ID, TourID, InvoiceTotal FROM Invoice WHERE Type = 'Daily'")},
                "payments": sorted((row[0], round(row[1] * 100)) for row in
                                   desk.query("SELECT InvoiceID, Amount FROM InvoicePayments")),
                "paid": {row[0]: round(row[1] * 100) for row in
                         desk.query("SELECT ID, Paid FROM Invoice WHERE Paid <> 0")},
                "invoice lines": self.bad_invoices(desk),
                "drop mails": sorted(row[0] for row in desk.query("SELECT TourID FROM TourDropEmails")),
            }
            contracts = [row[0] for row in desk.query("SELECT ID FROM Tour WHERE ID <> 1 AND Status <> 'Quote - Active'")]
            desk.leave()
        told = self.told(contracts)
        self.rows = {what: len(rows) for what, rows in tables.items() if what != "invoice lines"}
        self.rows["lines"] = sum(len(lines) for lines in tables["lines"].values())
        self.paid = sum(tables["paid"].values()) / 100
        return [f"{what}: the desks were told {difference(told[what], found)}, the tables hold "
                f"{difference(found, told[what])}" for what, found in tables.items() if found != told[what]]

    def told(self, contracts):
        tours, invoices, payments = {}, {}, []
        for clerk in self.clerks:
            tours.update(clerk.ledger.tours)
            invoices.update(clerk.ledger.invoices)
            payments += clerk.ledger.payments
        paid = collections.Counter()
        for invoice, cents in payments:
            paid[invoice] += cents
        return {
            "tours": {tour: name for tour, (name, _) in tours.items()},
            "lines": {tour: list(enumerate(rates, 1)) for tour, (_, rates) in tours.items()},
            "invoices": invoices,
            "payments": sorted(payments),
            "paid": dict(paid),
            "invoice lines": [],
            "drop mails": sorted(contracts),
        }

    @staticmethod
    def bad_invoices(desk):
        """Invoices whose lines do not sum up to their head, and lines without one."""
        heads = {row[0]: round(row[1], 2) for row in desk.query("SELECT ID, SubTotal FROM Invoice WHERE Type = 'Daily'")}
        sums = {row[0]: round(row[1], 2) for row in
                desk.query("SELECT InvoiceID, SUM(PriceExt) AS Total FROM InvoiceItems GROUP BY InvoiceID")}
        return [(number, heads.get(number), sums.get(number)) for number in sorted(heads.keys() | sums.keys())
                if number not in heads or number not in sums or abs(heads[number] - sums[number]) > 0.02]

    def idle_kinds(self):
        """Work that never came up, about which the run has proved nothing."""
        return [f"nobody did: {kind}" for kind in KINDS if not any(clerk.times[kind] for clerk in self.clerks)]

    def figures(self):
        """The table of figures: how often, how fast, and how slow at worst."""
        times = collections.defaultdict(list)
        for clerk in self.clerks:
            for kind, measured in clerk.times.items():
                times[kind] += measured
        count = sum(len(measured) for measured in times.values())
        lines = [f"{len(self.clerks)} desks, {self.took:.0f} s, {count} operations: {count / self.took:.1f} per second.",
                 f"At the end: {', '.join(f'{number} {what}' for what, number in self.rows.items() if what != 'paid')}; "
                 f"${self.paid:,.2f} paid on {self.rows['paid']} invoices. All of it as the desks were told.", "",
                 "| What | How often | Per second | Median | 95 of 100 within | 99 of 100 within | Slowest |",
                 "|---|---|---|---|---|---|---|"]
        for kind, measured in sorted(times.items()):
            measured.sort()
            within = lambda part, all_of=measured: all_of[min(len(all_of) - 1, int(len(all_of) * part))]
            cells = [statistics.median(measured), within(0.95), within(0.99), measured[-1]]
            lines.append(f"| {kind} | {len(measured)} | {len(measured) / self.took:.1f} | " +
                         " | ".join(f"{cell * 1000:.0f} ms" for cell in cells) + " |")
        return "\n".join(lines) + "\n"


def grouped(rows):
    lines = collections.defaultdict(list)
    for tour, number, rate in rows:
        lines[tour].append((number, rate))
    return dict(lines)


def difference(left, right):
    """What is in the left and not in the right, the first few of it."""
    if isinstance(left, dict):
        return dict([(key, value) for key, value in left.items() if right.get(key) != value][:5])
    return list((collections.Counter(left) - collections.Counter(right)).elements())[:5]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--desks", type=int, default=20)
    parser.add_argument("--seconds", type=float, default=120)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--results", help="writes the figures there, too")
    options = parser.parse_args()
    load = Load(options)
    try:
        failures = load.run()
        differences = load.idle_kinds() + load.account()
    finally:
        load.office.close()
    for text in failures + differences:
        print(text, file=sys.stderr)
    if failures or differences:
        return 1
    figures = load.figures()
    print(figures)
    if options.results:
        with open(options.results, "w", encoding="utf-8") as file:
            kind = "PostgreSQL server" if load.office.on_postgres else "server by ODBC"
            file.write(f"# Many desks on one {kind}\n" + figures)
    return 0


if __name__ == "__main__":
    sys.exit(main())

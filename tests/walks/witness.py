"""Whom the screen names before a confirming tap, he alone is booked to: he and the money accounts, and the item that it names."""
from collections import Counter

CUSTOMERS = {"CariKartlar": "CariKod", "CariHareket": "cariharkod", "VadeGün": "CariKod", "Cari": "CariKod", "Datam": "CariKod"}


class Witness:
    def __init__(self, stores, customer, code, items):
        """`code` tells which of several that bear the name is meant; `items` are the names of those that may move."""
        self.stores, self.before = stores, stores.tables()
        cards = self.before["CariKartlar"]
        bearers = [row["CariKod"] for row in cards if row["Unvan"] == customer] or [row["CariKod"] for row in cards if row["Unvan"].startswith(customer)]
        self.codes = {code} if len(bearers) > 1 else set(bearers)
        self.items = items

    def booked(self):
        return self.stores.tables() != self.before

    def complaints(self):
        """What was booked to others."""
        after = self.stores.tables()
        told = [f"{table}: {row}" for table, column in CUSTOMERS.items() for row in self.changed(table, after)
                if row[column] not in self.codes and not row[column].startswith("=")]
        return told + [f"StokKartlar: {row}" for row in self.changed("StokKartlar", after) if row["StokAdi"] not in self.items]

    def changed(self, table, after):
        """The rows that are there before or afterwards only."""
        before, now = ([tuple(row.items()) for row in tables[table]] for tables in (self.before, after))
        counts, others = Counter(before), Counter(now)
        return [dict(row) for row in (counts - others) + (others - counts)]

#!/usr/bin/env python3
"""Looks over a shop's books with plain SQLite: are all files sound, is every posting there whole, and do the cards tell what the rows tell?

    shop_check.py <KARVEL_HOME>

Cards also carry what was moved before the oldest row. So a card's quantities are held against an opening that must not change:
a check that runs twice takes Openings() of the untouched shop first.
"""
import os
import sqlite3
import sys

FILES = ("Cari.mdb", "Stok.mdb", "Karvel.mdb", "Index.mdb", "SeriNo.mdb", "Fatura.mdb")
LINES = ("Satış", "İade", "Alış")


class Shop:
    def __init__(self, home):
        self.folder = os.path.join(home, "C", "KarvelData")

    def open(self, name):
        # Reads like any other terminal, so that a journal that a dead desk left behind is heeded and not read over.
        connection = sqlite3.connect(os.path.join(self.folder, name), timeout=60, isolation_level=None)
        connection.execute("PRAGMA query_only=1")
        return connection

    def all(self):
        connection = self.open("Cari.mdb")
        for schema, name in (("stok", "Stok.mdb"), ("karvel", "Karvel.mdb"), ("indeks", "Index.mdb"), ("fatura", "Fatura.mdb")):
            connection.execute(f"ATTACH ? AS {schema}", (os.path.join(self.folder, name),))
        connection.execute("BEGIN")  # one moment over all files
        return connection

    def rows(self):
        """All that the files hold: {"Cari.mdb Gurup": [row, …]}, each table's rows in an order of their own."""
        held = {}
        for name in FILES:
            connection = self.open(name)
            for (table,) in connection.execute("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'").fetchall():
                held[f"{name} {table}"] = sorted(connection.execute(f'SELECT * FROM "{table}"').fetchall(), key=repr)
            connection.close()
        return held


def integrity(shop):
    faults = []
    for name in FILES:
        connection = shop.open(name)
        result = connection.execute("PRAGMA integrity_check").fetchall()
        if result != [("ok",)]:
            faults.append(f"{name}: {result[:3]}")
        connection.close()
    return faults


def near(a, b):
    return abs(a - b) < 0.0005 + 1e-9 * max(abs(a), abs(b))


def openings(shop):
    """What the cards held before the first row: {StokKod: (GirenMik, GirenTutar, CikanMik, CikanTutar, Kar)}."""
    connection = shop.all()
    rows = connection.execute(
        """SELECT StokKod, GirenMik - coalesce(gm, 0), GirenTutar - coalesce(gt, 0), CikanMik - coalesce(cm, 0), CikanTutar - coalesce(ct, 0),
                  k.Kar - coalesce(r.kar, 0)
           FROM StokKartlar k LEFT JOIN (
             SELECT StokHarKod, sum(CASE WHEN GirisCikis = 'Satış' THEN 0 ELSE Miktar END) gm, sum(CASE WHEN GirisCikis = 'Satış' THEN 0 ELSE Tutar END) gt,
                    sum(CASE WHEN GirisCikis = 'Satış' THEN Miktar ELSE 0 END) cm, sum(CASE WHEN GirisCikis = 'Satış' THEN Tutar ELSE 0 END) ct,
                    sum(CASE WHEN GirisCikis = 'Satış' THEN Kar ELSE 0 END) kar
             FROM StokHareket GROUP BY StokHarKod) r ON r.StokHarKod = k.StokKod""").fetchall()
    connection.close()
    return {row[0]: row[1:] for row in rows}


def whole_postings(connection, wiped=()):
    """Every DigerId is there once in each book that it belongs in, or nowhere. Of ids that are `wiped`, rows may stay behind alone."""
    faults = []
    marks = ",".join("?" for _ in LINES)

    def find(what, sql, *values):
        rows = [row for row in connection.execute(sql, values) if row[0] not in wiped]
        faults.extend(f"{what}: {row}" for row in rows[:5])

    find("day-book lines of one id", "SELECT DigerId, count(*) FROM Datam GROUP BY DigerId HAVING count(*) > 1")
    find("stock movements of one id", "SELECT DigerId, count(*) FROM StokHareket GROUP BY DigerId HAVING count(*) > 1")
    find("ledger rows of one line", "SELECT DigerId, count(*) FROM CariHareket WHERE Nerde = 'S' GROUP BY DigerId HAVING count(*) > 1")
    find("money movements that are not a pair", "SELECT DigerId, count(*) FROM CariHareket WHERE Nerde = 'C' GROUP BY DigerId HAVING count(*) <> 2")
    find("lines without a stock movement", f"SELECT DigerId FROM Datam WHERE Durum IN ({marks}) AND DigerId NOT IN (SELECT DigerId FROM StokHareket)", *LINES)
    find("lines without a ledger row", f"SELECT DigerId FROM Datam WHERE Durum IN ({marks}) AND DigerId NOT IN (SELECT DigerId FROM CariHareket WHERE Nerde = 'S')",
         *LINES)
    find("collections without ledger rows",
         f"SELECT DigerId FROM Datam WHERE Durum NOT IN ({marks}, 'Iptal') AND DigerId NOT IN (SELECT DigerId FROM CariHareket WHERE Nerde = 'C')", *LINES)
    find("stock movements without a line", "SELECT DigerId FROM StokHareket WHERE DigerId NOT IN (SELECT DigerId FROM Datam)")
    find("ledger rows without a line", "SELECT DigerId FROM CariHareket WHERE Nerde <> 'F' AND DigerId NOT IN (SELECT DigerId FROM Datam)")
    find("invoices of one number", "SELECT FaturaNo, count(*) FROM Faturalar GROUP BY FaturaNo HAVING count(*) > 1")
    find("invoices that differ from their lines",
         """SELECT f.DigerId FROM Faturalar f LEFT JOIN (SELECT DigerId, sum(FatTutar) t, sum(Kdvsi) k FROM FatHareket GROUP BY DigerId) h ON h.DigerId = f.DigerId
            WHERE h.t IS NULL OR abs(f.FatTop - h.t) > 0.0005 OR abs(f.FatKdvTut - h.k) > 0.0005""")
    find("invoices without their tax on the ledger",
         """SELECT DigerId FROM Faturalar f WHERE (SELECT count(*) FROM CariHareket c WHERE c.DigerId = f.DigerId AND c.Nerde = 'F' AND c.cariharkod = '=110'
            AND abs(c.Borc - f.FatKdvTut) < 0.0005) <> 1""")
    find("invoice lines without an invoice", "SELECT DigerId FROM FatHareket WHERE DigerId NOT IN (SELECT DigerId FROM Faturalar)")
    find("taxes without an invoice", "SELECT DigerId FROM CariHareket WHERE Nerde = 'F' AND DigerId NOT IN (SELECT DigerId FROM Faturalar)")
    find("lines that name an invoice that isn't there",
         "SELECT DigerId FROM Datam WHERE Aciklama LIKE 'FatNo %' AND substr(Aciklama, 7) NOT IN (SELECT FaturaNo FROM Faturalar)")
    # A receipt's movement names no customer, and the item by the first letters of its name.
    find("rows of one line that differ",
         """SELECT d.DigerId FROM Datam d JOIN StokHareket s ON s.DigerId = d.DigerId JOIN CariHareket c ON c.DigerId = d.DigerId AND c.Nerde = 'S'
            WHERE (s.Carisi <> '' AND (d.CariKod <> s.Carisi OR d.StokKod <> s.StokHarKod)) OR d.CariKod <> c.cariharkod OR d.StokKod <> c.Carisi
               OR abs(d.Tutar - s.Tutar) > 0.0005 OR abs(d.Tutar - c.Borc - c.Alacak) > 0.0005 OR abs(d.Miktar - s.Miktar) > 0.0005""")
    find("numbers above the year's counter",
         """SELECT max(CAST(substr(DigerId, 2) AS INTEGER)), Indexi FROM Datam JOIN Mdbindex ON Mdbindex.Tarih = substr(Datam.Tarih, 1, 4)
            GROUP BY Mdbindex.Tarih HAVING max(CAST(substr(DigerId, 2) AS INTEGER)) > CAST(Indexi AS INTEGER)
               AND length(max(CAST(substr(DigerId, 2) AS INTEGER))) = length(Indexi)""")
    return faults


def balances(connection):
    """The balance rule holds on every account."""
    faults = []
    for code, debit, credit, balance, side in connection.execute("SELECT CariKod, Borc, Alacak, Bakiye, Hesap FROM CariKartlar"):
        # A card that was never posted to may have no side yet; and totals that differ behind the fifteenth digit may stand on either.
        sides = ("Borç", "Alacak") if near(debit, credit) else ("Alacak",) if credit > debit else ("Borç",)
        # The balance is kept in whole kuruş.
        if abs(balance - abs(debit - credit)) > 0.0051 or (side or "Borç") not in sides:
            faults.append(f"account {code}: balance {balance} {side} of {debit} {credit}")
    return faults


def account_totals(connection):
    """Accounts tell the sums of their ledger rows."""
    faults = []
    for code, debit, credit, rows_debit, rows_credit in connection.execute(
            """SELECT CariKod, k.Borc, k.Alacak, coalesce(b, 0), coalesce(a, 0) FROM CariKartlar k
               LEFT JOIN (SELECT cariharkod, sum(Borc) b, sum(Alacak) a FROM CariHareket GROUP BY cariharkod) h ON h.cariharkod = k.CariKod"""):
        if not near(debit, rows_debit) or not near(credit, rows_credit):
            faults.append(f"account {code}: card {debit} {credit}, rows {rows_debit} {rows_credit}")
    return faults


def card_totals(connection, shop, before):
    """Cards tell their opening and the sums of their rows, and the rule of what is left holds."""
    faults = []
    if before is not None:
        now = openings(shop)
        for code, values in before.items():
            if code not in now or not all(near(a, b) for a, b in zip(values, now[code])):
                faults.append(f"card {code}: opening was {values}, is {now.get(code)}")
    for code, moved_in, moved_out, oversold, left in connection.execute("SELECT StokKod, GirenMik, CikanMik, KalanA, KalanB FROM StokKartlar"):
        difference = moved_in - moved_out
        if not near(left, max(0, difference)) or not near(oversold, max(0, -difference)):
            faults.append(f"card {code}: in {moved_in}, out {moved_out}, but KalanA {oversold}, KalanB {left}")
    return faults


def check(home, before=None, quick=False):
    """The faults of the shop, a line each; none when all is well. `quick` leaves out the integrity check."""
    shop = Shop(home)
    faults = [] if quick else integrity(shop)
    connection = shop.all()
    faults += whole_postings(connection) + balances(connection) + account_totals(connection) + card_totals(connection, shop, before)
    connection.close()
    return faults


def check_worked_on(home, wiped):
    """The same for a shop where lines were corrected, cancelled and wiped too: by the rules of these the cards tell other sums than the rows
    that are left. `wiped` holds the ids of customers whose history was deleted."""
    shop = Shop(home)
    faults = integrity(shop)
    connection = shop.all()
    faults += whole_postings(connection, wiped) + balances(connection)
    connection.close()
    return faults


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    faults = check(sys.argv[1])
    for fault in faults[:20]:
        print(fault)
    print(f"{len(faults)} faults" if faults else "all is well")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

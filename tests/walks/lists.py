"""The lists on the screen: who and what stands in them, in which order, and what is in front."""
import functools

from texts import fold, same

WALK_IN = "Muhtelif Müşteri"
ALL_GROUPS = "Tüm Guruplar"
WHOLESALE = "Toptan"


def ordered(rows, column, down):
    """Equal rows stand by their age, whichever way it goes."""
    key = (lambda row: fold(row[column])) if rows and isinstance(rows[0][column], str) else (lambda row: row[column])
    return sorted(reversed(rows) if down else rows, key=key, reverse=down)


class RowList:
    """A list on the screen: which rows, in which order, and the one in front."""

    def __init__(self, shop, table, column):
        self.shop, self.table = shop, table
        self.chosen = lambda row: True
        self.order = (column, False)
        self.front = None

    def rows(self):
        return ordered([row for row in self.shop.tables[self.table] if self.chosen(row)], *self.order)

    def read(self):
        """The first row comes in front."""
        rows = self.rows()
        self.bring(rows[0] if rows else None)

    def bring(self, row):
        """The row in front as it is now; another terminal may change it behind the list's back."""
        self.front = row
        self.seen = dict(row) if row else None

    def find(self, fits):
        """The first row that fits comes in front; none leaves it as it is."""
        found = next((row for row in self.rows() if fits(row)), None)
        if found is not None:
            self.front = found
        return found

    def current(self):
        return next((i for i, row in enumerate(self.rows()) if row is self.front), -1)


def standard(row):
    return (not row["HesKullan"] and not same(row["Gurup"], WHOLESALE) and not same(row["Gurup"], "plasiyer") and not row["CariKod"].startswith("=")
            and not same(row["CariKod"], "Merkez"))


def whom_one_looks_for(row):
    return not row["HesKullan"] and not same(row["Gurup"], "plasiyer") and not row["CariKod"].startswith("=") and not same(row["CariKod"], "Merkez")


@functools.cache
def of_group(group):
    return lambda row: not row["HesKullan"] and same(row["Gurup"], group)


def not_hidden(row):
    return not row["HesKullan"]


def on_sale(row):
    return not row["StokGizle"]

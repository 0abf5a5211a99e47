"""The tables of a firm on the tests' PostgreSQL, as another program reads them: through psql, in the form of the data files."""
import json
import os
import sqlite3
import subprocess
import tempfile

from shop_model import TABLES, ZERO

PROGRAMS = "/usr/lib/postgresql/15/bin"
DATABASE = "MuhasebeData"
NO_DATE = "-infinity"
SCHEMAS = {"index": "indeks", "temp": "gecici"}  # the others bear their file's name


def schema_of(firm, file):
    name = os.path.splitext(file)[0].lower()
    return f"{firm}_{SCHEMAS.get(name, name)}"


class Server:
    """The server of the whole test run, or one of this program's where there is none."""

    def __init__(self, programs):
        self.program, self.file = os.path.join(programs, "karvel-test-server"), os.environ.get("KARVEL_TEST_SERVER", "")
        self.own = not os.path.exists(self.file)
        if self.own:
            self.file = os.path.join(tempfile.mkdtemp(prefix="karvel-walk-server-"), "place")
            subprocess.run([self.program, "start", self.file], check=True)
        with open(self.file, encoding="ascii") as place:
            self.port, self.folder = place.read().split()
        os.environ["PGUSER"] = "karvel"

    def address(self):
        return f"127.0.0.1:{self.port}"

    def psql(self, *options):
        return [f"{PROGRAMS}/psql", "-X", "-q", "-A", "-t", "-v", "ON_ERROR_STOP=1", *options, f"host={self.folder} port={self.port} dbname={DATABASE}"]

    def end(self):
        if self.own:
            subprocess.run([self.program, "stop", self.file], check=True)
            os.rmdir(os.path.dirname(self.file))


class ServerStores:
    """What Stores is for the files."""

    def __init__(self, server, firm):
        self.server, self.firm = server, firm
        self.process = subprocess.Popen(server.psql(), stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, encoding="utf-8")
        self.types = {table: self.ask(f"SELECT json_object_agg(attname, typname ORDER BY attnum) FROM pg_attribute JOIN pg_type ON atttypid = pg_type.oid "
                                      f"WHERE attrelid = '{self.name(file, table)}'::regclass AND attnum > 0 AND attidentity = ''")
                      for file, tables in TABLES.items() for table in tables}
        self.question = "SELECT json_build_object(" + ", ".join(
            f"'{table}', (SELECT coalesce(json_agg({self.row(table)} ORDER BY {self.key()}), '[]') FROM {self.name(file, table)})"
            for file, tables in TABLES.items() for table in tables) + ")"

    def ask(self, question):
        self.process.stdin.write(question + ";\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer:
            raise RuntimeError("psql has gone")
        return json.loads(answer)

    def name(self, file, table):
        return f'"{schema_of(self.firm, file)}"."{table}"'

    @staticmethod
    def key():
        return '"karvel_sira"'

    def row(self, table):
        """A row as a list; a date as it stands in the files."""
        return "json_build_array(" + ", ".join(
            f"CASE WHEN \"{column}\" = '{NO_DATE}' THEN '' ELSE to_char(\"{column}\", 'YYYY-MM-DD HH24:MI:SS') END" if kind == "timestamp" else f'"{column}"'
            for column, kind in self.types[table].items()) + ")"

    def tables(self):
        """Every table's rows in the order of their age."""
        everything = self.ask(self.question)
        return {table: [self.as_in_files(table, row) for row in rows] for table, rows in everything.items()}

    def as_in_files(self, table, row):
        forms = {"float8": float, "bool": int}
        return {column: value if value is None else forms.get(kind, str)(value) for (column, kind), value in zip(self.types[table].items(), row)}

    def columns(self, table):
        """A new row of the table."""
        empty = {"float8": ZERO, "bool": 0}
        return {column: empty.get(kind, "") for column, kind in self.types[table].items()}

    def close(self):
        self.process.stdin.close()
        self.process.wait()
        drop = "".join(f'DROP SCHEMA IF EXISTS "{schema_of(self.firm, file)}" CASCADE;' for file in (*TABLES, "Temp.mdb", "DataStok.mdb"))
        subprocess.run([*self.server.psql("-c", drop)], check=True, stderr=subprocess.DEVNULL)


def fill(server, firm, folder):
    """The server's tables get the rows of a data folder's files, and nothing else."""
    asked = subprocess.run(server.psql("-c", f"SELECT table_schema || '.' || table_name || '.' || column_name FROM information_schema.columns "
                                       f"WHERE data_type LIKE 'timestamp%' AND table_schema LIKE '{firm}\\_%'"), check=True, stdout=subprocess.PIPE)
    dates = set(asked.stdout.decode().split("\n"))

    def field(name, value):
        if value == "" and name in dates:
            return NO_DATE
        return "\\N" if value is None else str(value).replace("\\", "\\\\")

    script = ""
    for file in sorted(os.listdir(folder)):
        if not file.lower().endswith(".mdb"):
            continue
        schema = schema_of(firm, file)
        with sqlite3.connect(os.path.join(folder, file)) as store:
            for (table,) in store.execute("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name").fetchall():
                found = store.execute(f'SELECT * FROM "{table}" ORDER BY rowid')
                script += f'TRUNCATE "{schema}"."{table}" RESTART IDENTITY;\n'
                columns = ", ".join(f'"{column[0]}"' for column in found.description)
                names = [f"{schema}.{table}.{column[0]}" for column in found.description]
                rows = ["\t".join(field(name, value) for name, value in zip(names, row)) for row in found]
                if rows:
                    script += f'COPY "{schema}"."{table}" ({columns}) FROM STDIN;\n' + "\n".join(rows) + "\n\\.\n"
    subprocess.run(server.psql("-1"), input=script, check=True, text=True, encoding="utf-8", stdout=subprocess.DEVNULL)

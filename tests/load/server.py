"""The suite's PostgreSQL servers and the offices on them."""

import os
import shutil
import subprocess
import tempfile
import urllib.parse

HERE = os.path.dirname(os.path.abspath(__file__))
TESTS = os.path.dirname(HERE)
SCRIPT = os.path.join(TESTS, "support", "postgres_server.sh")


def text_of(folder, database="postgres"):
    """The connection text of a database on the server whose socket lies in the folder."""
    return f"postgresql://app@/{database}?host={folder}"


class Server:
    """A server of a test's own, that may be killed and brought back."""

    def __init__(self):
        # Everybody may look in: the server runs as another user than root.
        self.top = tempfile.mkdtemp(prefix="rovanta-server-")
        os.chmod(self.top, 0o755)
        self.folder = os.path.join(self.top, "pg")
        self.do("start")
        # What the server said to be written must still be there after it was killed.
        self.psql("ALTER ROLE app SET synchronous_commit = on")

    def do(self, word):
        subprocess.run([SCRIPT, word, self.folder], check=True, timeout=120)

    def psql(self, sql, database="postgres"):
        done = subprocess.run(["psql", "-X", "-q", "-A", "-t", "-h", self.folder, "-U", "app", "-d", database, "-c", sql],
                              check=True, timeout=60, stdout=subprocess.PIPE, text=True)
        return done.stdout.strip()

    def text(self, database="postgres"):
        return text_of(self.folder, database)

    def close(self):
        self.do("stop")
        shutil.rmtree(self.top, ignore_errors=True)


class Office:
    """An office with the rows of fixtures/small.sql, its database on the server that the text names: a PostgreSQL
    server, or one by ODBC that goes with the test."""

    def __init__(self, program, server_text):
        self.top = tempfile.mkdtemp(prefix="rovanta-office-")
        self.server_text = server_text
        self.on_postgres = server_text.startswith("postgresql:")
        os.symlink(os.path.join(TESTS, "fixtures"), os.path.join(self.top, "fixtures"))
        story = os.path.join(self.top, "office.test")
        with open(story, "w", encoding="utf-8") as file:
            file.write("office small\n")
        self.folder = os.path.join(self.top, "office")
        subprocess.run([program, "--run", "--keep", self.folder, story], check=True, timeout=120,
                       stdout=subprocess.DEVNULL, env={**os.environ, "ROVANTA_TEST_SERVER": server_text})
        self.config = os.path.join(self.folder, "config.txt")
        with open(self.config, encoding="utf-8") as file:
            self.text = file.read().split('"Connection","')[1].split('"')[0]
        self.database = urllib.parse.urlsplit(self.text).path.lstrip("/")

    def config_for(self, connection):
        """Another configuration of the office, that reaches its database in another way."""
        folder = tempfile.mkdtemp(prefix="config-", dir=self.top)
        shutil.copytree(self.folder, folder, dirs_exist_ok=True)
        path = os.path.join(folder, "config.txt")
        with open(self.config, encoding="utf-8") as file:
            config = file.read()
        with open(path, "w", encoding="utf-8") as file:
            file.write(config.replace(self.text, connection))
        return path

    def close(self):
        if self.on_postgres:
            self.drop()
        shutil.rmtree(self.top, ignore_errors=True)

    def drop(self):
        host = urllib.parse.parse_qs(urllib.parse.urlsplit(self.server_text).query)["host"][0]
        subprocess.run(["psql", "-X", "-q", "-h", host, "-U", "app", "-d", "postgres", "-c",
                        f'DROP DATABASE IF EXISTS "{self.database}" WITH (FORCE)'], check=False, timeout=60)

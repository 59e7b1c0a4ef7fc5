# SPDX-License-Identifier: MIT
"""The sample shop in a PostgreSQL and a MariaDB of its own, each on a socket in a folder. As root, which both refuse to be
run by, they run as the user postgres or nobody."""
import os
import pathlib
import pwd
import shutil
import signal
import subprocess
import tempfile
import time

import shop

PATIENCE = 120  # seconds


def other_user():
    names = [entry.pw_name for entry in pwd.getpwall()]
    return pwd.getpwnam("postgres" if "postgres" in names else "nobody")


class Server:
    def __init__(self, folder):
        self.folder = folder / self.NAME
        self.folder.mkdir()
        self.user = {}
        if os.geteuid() == 0:
            account = other_user()
            self.user = {"user": account.pw_uid, "group": account.pw_gid, "extra_groups": []}
            os.chown(self.folder, account.pw_uid, account.pw_gid)
            at = folder
            while at != pathlib.Path(tempfile.gettempdir()) and at != at.parent:
                at.chmod(at.stat().st_mode | 0o011)
                at = at.parent
        self.log = open(folder / f"{self.NAME}.log", "w")
        self.process = None

    def run(self, *command, **more):
        subprocess.run([str(word) for word in command], check=True, stdout=self.log, stderr=self.log, cwd="/", **self.user, **more)

    def start(self, *command):
        self.process = subprocess.Popen([str(word) for word in command], stdout=self.log, stderr=self.log, cwd="/", **self.user)
        end = time.monotonic() + PATIENCE
        while True:
            try:
                return self.load()
            except subprocess.CalledProcessError:
                if self.process.poll() is not None or time.monotonic() > end:
                    raise
                time.sleep(0.2)

    def __enter__(self):
        self.make()
        return self

    def __exit__(self, *_):
        if self.process:
            self.process.send_signal(self.END)
            self.process.wait(PATIENCE)
        self.log.close()


class PostgreSQL(Server):
    NAME, END, undoes = "postgresql", signal.SIGINT, True

    @staticmethod
    def folder_of_programs():
        folders = sorted(pathlib.Path("/usr/lib/postgresql").glob("*/bin/initdb"), key=lambda path: int(path.parts[-3]))
        found = folders[-1] if folders else shutil.which("initdb")
        return pathlib.Path(found).parent if found else None

    def make(self):
        self.programs = self.folder_of_programs()
        self.run(self.programs / "initdb", "-D", self.folder / "data", "--username=wizard", "--auth=trust", "--encoding=UTF8",
                 "--locale=C", "--no-sync")
        self.address = f"postgresql://wizard@/postgres?host={self.folder}"
        self.start(self.programs / "postgres", "-D", self.folder / "data", "-k", self.folder, "-c", "listen_addresses=", "-c",
                   "fsync=off", "-c", "shared_buffers=8MB")

    def load(self):
        psql = [self.programs / "psql", "-X", "-q", "-v", "ON_ERROR_STOP=1", "-h", self.folder, "-U", "wizard", "-d", "postgres"]
        self.run(*psql, "-c", "SELECT 1")
        self.run(*psql, input=shop.script("shop-postgresql.sql").encode())


class PostgreSQLOverODBC(PostgreSQL):
    undoes = False

    @staticmethod
    def folder_of_programs():
        drivers = pathlib.Path("/etc/odbcinst.ini")
        has_driver = drivers.exists() and "[PostgreSQL Unicode]" in drivers.read_text()
        return PostgreSQL.folder_of_programs() if has_driver else None

    def make(self):
        super().make()
        self.address = f"odbc:DRIVER={{PostgreSQL Unicode}};Servername={self.folder};Database=postgres;UID=wizard"


class MariaDB(Server):
    NAME, END, undoes = "mariadb", signal.SIGTERM, False

    @staticmethod
    def folder_of_programs():
        names = ["/usr/sbin/mariadbd", "/usr/local/sbin/mariadbd", shutil.which("mariadbd")]
        found = next((name for name in names if name and pathlib.Path(name).exists()), None)
        return pathlib.Path(found) if found and shutil.which("mariadb-install-db") and shutil.which("mariadb") else None

    def make(self):
        self.socket = self.folder / "socket"
        self.address = f"mariadb://root@localhost/shop?socket={self.socket}"
        self.run("mariadb-install-db", "--no-defaults", "--auth-root-authentication-method=normal", "--skip-test-db",
                 f"--datadir={self.folder}/data")
        self.start(self.folder_of_programs(), "--no-defaults", f"--datadir={self.folder}/data", f"--socket={self.socket}",
                   "--skip-networking", f"--pid-file={self.folder}/pid",
                   f"--tmpdir={self.folder}",  # another server would remove temporary files from a folder of both "--innodb-buffer-pool-size=16M",
                   "--innodb-flush-log-at-trx-commit=0")

    def load(self):
        client = ["mariadb", "--no-defaults", f"--socket={self.socket}", "-u", "root", "--default-character-set=utf8mb4"]
        self.run(*client, "-e", "CREATE DATABASE IF NOT EXISTS shop CHARACTER SET utf8mb4")
        self.run(*client, "shop", input=shop.script("shop-mariadb.sql").encode())

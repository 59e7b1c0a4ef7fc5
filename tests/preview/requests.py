#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Asks the preview what its own pages never ask: with a wrong key, as another site, with requests that are too large or
none at all. Uses plain connections, so that nothing is made polite on the way.

    requests.py PROGRAM [COUNT]    PROGRAM is pelmo-scheme; COUNT is how many random requests of each kind to send, 100
                                   unless given
"""
import os
import pathlib
import random
import re
import signal
import socket
import subprocess
import sys
import tempfile
import time

import shop

PROGRAM = os.path.abspath(sys.argv[1])
PATIENCE = 60  # seconds
faults = []


def expect(found, wanted, what):
    if found != wanted:
        faults.append(f"{what}: {found!r} instead of {wanted!r}")


def is_whole(answer):
    head, end, body = answer.partition(b"\r\n\r\n")
    length = re.search(rb"Content-Length: (\d+)", head)
    return bool(end and length) and len(body) >= int(length[1])


class Program:
    def __init__(self, folder, *options, **environment):
        self.process = subprocess.Popen([PROGRAM, "preview", "XST1.txt", "XST2.txt", "--db", "sqlite:shop.db", *options],
                                        cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                        env={**os.environ, **environment})
        self.address = self.process.stdout.readline().strip()
        self.port, self.key = re.fullmatch(r"http://127\.0\.0\.1:(\d+)/\?key=([0-9a-f]{48})", self.address).groups()
        self.port = int(self.port)

    def send(self, data, patience=PATIENCE):
        """Sends bytes as they are; returns one answer, or nothing where there is none."""
        with socket.create_connection(("127.0.0.1", self.port), PATIENCE) as connection:
            connection.settimeout(patience)
            answer = b""
            try:
                connection.sendall(data)
                while not is_whole(answer) and (piece := connection.recv(1 << 16)):
                    answer += piece
            except (ConnectionError, TimeoutError):
                pass
            return answer

    def ask(self, method="GET", path="/", body=b"", cookie=True, host=None, **more):
        headers = {"Host": host or f"127.0.0.1:{self.port}", "Connection": "close", "Content-Length": str(len(body))}
        if cookie:
            headers["Cookie"] = f"pelmo_preview_{self.port}={self.key if cookie is True else cookie}"
        if method == "POST":
            headers["Origin"] = f"http://127.0.0.1:{self.port}"
        headers.update({name.replace("_", "-"): value for name, value in more.items()})
        lines = [f"{method} {path} HTTP/1.1"] + [f"{name}: {value}" for name, value in headers.items() if value is not None]
        return self.send("\r\n".join(lines).encode() + b"\r\n\r\n" + body)

    def status(self, *arguments, **more):
        answer = self.ask(*arguments, **more)
        return int(answer.split()[1]) if answer.startswith(b"HTTP/1.1 ") else None

    def runs(self):
        return self.process.poll() is None and self.status() == 200


def check_refusals(program):
    key = program.key
    other = ("1" if key[0] == "0" else "0") + key[1:]
    expect(program.status(), 200, "with the cookie")
    expect(program.status(cookie=False), 403, "without a cookie")
    expect(program.status(cookie=other), 403, "with another cookie")
    expect(program.status(cookie=False, path=f"/?key={key}"), 303, "with the key")
    expect(program.status(cookie=False, path=f"/?key={other}"), 403, "with another key")
    expect(program.status(cookie=False, path=f"/preview.js?key={key}"), 403, "another path with the key")
    for path in ("/", "/version", "/preview.js", "/preview.css", "/icon.svg", "/picture/x", "/nothing"):
        expect(program.status(path=path, cookie=False), 403, f"{path} without a cookie")
        expect(program.status(path=path, host="shop.example"), 421, f"{path} for another host")
        expect(program.status(path=path, Origin="http://shop.example"), 403, f"{path} from another origin")
        expect(program.status(path=path, Sec_Fetch_Site="cross-site"), 403, f"{path} from another site")
        expect(program.status(path=path, Sec_Fetch_Site="same-site"), 403, f"{path} from another port")
    node = b'{"n":1,"k":"0","t":"","g":false}'
    expect(program.status("POST", "/page", node), 200, "a page")
    expect(program.status("POST", "/page", node, Origin=None), 403, "a page without an origin")
    expect(program.status("POST", "/page", node, Origin="null"), 403, "a page from a sandbox")
    expect(program.status("POST", "/page", node, cookie=False), 403, "a page without a cookie")
    expect(program.status("POST", "/page", b"x"), 404, "a page of nothing")
    for method in ("HEAD", "PUT", "DELETE", "OPTIONS", "PATCH", "TRACE"):
        expect(program.status(method), 405, method)
    for path in ("/../etc/passwd", "/%2e%2e/etc/passwd", "//etc/passwd", "/picture/%2Fetc%2Fpasswd", "/picture/" + "a" * 9000):
        expect(program.status(path=path), 404, path[:40])


def check_headers(program):
    for path, cookie in (("/", True), ("/", False), ("/nothing", True), ("/preview.js", True), (f"/?key={program.key}", False)):
        head = program.ask(path=path, cookie=cookie).split(b"\r\n\r\n")[0].decode()
        for line in ("Content-Security-Policy: default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; "
                     "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'",
                     "X-Content-Type-Options: nosniff", "Referrer-Policy: no-referrer", "Cache-Control: no-store"):
            expect(line in head.split("\r\n"), True, f"{path} has {line[:30]}")
    head = program.ask(path=f"/?key={program.key}", cookie=False).decode()
    expect(re.findall(r"Set-Cookie: (.*)\r", head),
           [f"pelmo_preview_{program.port}={program.key}; Path=/; HttpOnly; SameSite=Strict"], "the cookie")


def check_large_requests(program):
    expect(program.status("POST", "/page", b" " * (7 << 20)), 404, "a body of 7 MiB")
    expect(program.status("POST", "/page", b" " * (9 << 20)), None, "a body of 9 MiB")
    expect(program.status("POST", "/page", b" " * (9 << 20), cookie=False), None, "the same of a stranger")
    expect(program.status(X="y" * (9 << 20)), None, "a header of 9 MiB")
    expect(program.runs(), True, "the program runs on")
    before = memory(program)
    for _ in range(20):
        program.ask("POST", "/page", b" " * (9 << 20), cookie=False)
    expect(memory(program) < before + (64 << 20), True, f"its memory stays: {before} and {memory(program)} bytes")


def memory(program):
    return int(re.search(r"VmRSS:\s+(\d+)", pathlib.Path(f"/proc/{program.process.pid}/status").read_text())[1]) << 10


def check_garbage(program, count):
    chance = random.Random(7)
    pieces = [b"GET / HTTP/1.1\r\n", b"POST /page HTTP/1.1\r\n", b"Host: 127.0.0.1\r\n", b"\r\n", b"\0", b"Content-Length: -1\r\n",
              b"Content-Length: 99999999999\r\n", b"Transfer-Encoding: chunked\r\n", b"ffffffff\r\n", b"HTTP/0.9", b"PRI * HTTP/2.0",
              b"\xFF" * 50, b"Cookie: " + b";" * 5000 + b"\r\n", b"GET " + b"/" * 70000, b"Upgrade: websocket\r\n",
              f"Host: 127.0.0.1:{program.port}\r\nCookie: pelmo_preview_{program.port}={program.key}\r\n".encode(),
              f"Origin: http://127.0.0.1:{program.port}\r\n".encode(), b'{"n":1,"k":"0","t":"","g":false}']
    for _ in range(count):
        program.send(b"".join(chance.choices(pieces, k=chance.randint(1, 8))), patience=0.05)
    expect(program.runs(), True, "the program runs on after garbage")
    with socket.create_connection(("127.0.0.1", program.port)) as idle:
        idle.send(b"GET")
        expect(program.runs(), True, "somebody who does not finish a request stops nobody else")


def check_pages(program, count):
    """Random nodes, most of which are not in the scheme."""
    chance = random.Random(8)
    for _ in range(count):
        node = chance.choice(["null", str(chance.randint(-5, 80)), "1e9", '"1"', "1.5"])
        key = chance.choice(["0", "1", "CTL", "1190", "2026", "'; DROP TABLE Given; --", "\\u0000", "x" * 1000])
        text = chance.choice(["", "A", "City bicycles", "<b>", "\\ud800", "y" * 100000])
        body = f'{{"n":{node},"k":"{key}","t":"{text}","g":{chance.choice(["true", "false"])}}}'.encode()
        status = program.status("POST", chance.choice(["/page", "/branch"]), body)
        expect(status in (200, 404), True, f"{status} for {body[:80]}")
    expect(program.runs(), True, "the program runs on after random nodes")


def check_end(program, number):
    program.process.send_signal(number)
    expect(program.process.wait(PATIENCE), 0, f"the code after signal {number}")
    expect(program.process.stdout.read(), "", "more lines")


def check_browser(folder):
    """With programs in the place of xdg-open: one that finds a browser, one that does not, and none."""
    tools = folder / "tools"
    tools.mkdir()
    opener = tools / "xdg-open"
    for script, words in (("#!/bin/sh\necho \"$@\" >opened\necho noise\necho noise >&2\n", None),
                          ("#!/bin/sh\necho noise >&2\nexit 3\n", "No browser could be opened: open the address yourself.\n"),
                          (None, "No browser could be opened: open the address yourself.\n")):
        opener.unlink(missing_ok=True)
        if script:
            opener.write_text(script)
            opener.chmod(0o755)
        program = Program(folder, PATH=str(tools))
        if words:
            expect(program.process.stdout.readline(), words, "what is said without a browser")
        else:
            opened = folder / "opened"
            end = time.monotonic() + PATIENCE
            while not (opened.exists() and opened.read_text()) and time.monotonic() < end:
                time.sleep(0.05)
            expect(opened.read_text(), program.address + "\n", "what is opened")
        check_end(program, signal.SIGINT)


def check_only_this_computer(program):
    lines = pathlib.Path("/proc/net/tcp").read_text() + pathlib.Path("/proc/net/tcp6").read_text()
    listening = re.findall(rf"\d+: (\w+):{program.port:04X} \w+:0000 0A", lines)
    expect(listening, ["0100007F"], "what is listened to")


def main():
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 100
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        shop.load(folder)
        before = (folder / "shop.db").read_bytes()
        start = time.monotonic()
        program = Program(folder, "--no-browser")
        program.status()
        print(f"the first page after {(time.monotonic() - start) * 1000:.0f} ms")
        for check in (check_only_this_computer, check_refusals, check_headers, check_large_requests):
            check(program)
        check_garbage(program, count)
        check_pages(program, count)
        check_end(program, signal.SIGINT)
        second = Program(folder, "--no-browser")
        expect(second.key == program.key, False, "the same key twice")
        check_end(second, signal.SIGTERM)
        check_browser(folder)
        expect((folder / "shop.db").read_bytes() == before, True, "the database is as it was")
    print("\n".join(faults) or "the preview answers nobody else")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

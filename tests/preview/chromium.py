# SPDX-License-Identifier: MIT
"""Drives a headless Chromium over its DevTools protocol, with nothing but the standard library.

    with Chromium() as browser:
        page = browser.page("http://127.0.0.1:8000/")
        page.run("document.title")
"""
import base64
import collections
import json
import os
import pathlib
import shutil
import signal
import socket
import struct
import subprocess
import tempfile
import time
import urllib.request

PATIENCE = 120  # seconds, on a busy machine

KEYS = {"ArrowDown": 40, "ArrowUp": 38, "ArrowLeft": 37, "ArrowRight": 39, "Home": 36, "End": 35, "Enter": 13, "Tab": 9,
        " ": 32}


def program():
    """The browser's program, or nothing where it is not installed."""
    return shutil.which("chromium") or shutil.which("chromium-browser")


class Socket:
    """A WebSocket to this computer: texts only, as DevTools sends them."""

    def __init__(self, address):
        host, _, path = address.removeprefix("ws://").partition("/")
        name, _, port = host.partition(":")
        self.socket = socket.create_connection((name, int(port)), PATIENCE)
        key = base64.b64encode(os.urandom(16)).decode()
        self.socket.sendall((f"GET /{path} HTTP/1.1\r\nHost: {host}\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                             f"Sec-WebSocket-Key: {key}\r\nSec-WebSocket-Version: 13\r\n\r\n").encode())
        self.stream = self.socket.makefile("rb")
        answer = b""
        while not answer.endswith(b"\r\n\r\n"):
            answer += self.stream.readline() or self.end()
        if b" 101 " not in answer.splitlines()[0]:
            raise ConnectionError(answer)

    def end(self):
        raise ConnectionError("the browser has ended")

    def send(self, text):
        data, mask = text.encode(), os.urandom(4)
        length = bytes([0x80 | len(data)]) if len(data) < 126 else (
            b"\xFE" + struct.pack("!H", len(data)) if len(data) < 1 << 16 else b"\xFF" + struct.pack("!Q", len(data)))
        masked = (int.from_bytes(data, "little") ^
                  int.from_bytes((mask * (len(data) // 4 + 1))[:len(data)], "little")).to_bytes(len(data), "little")
        self.socket.sendall(b"\x81" + length + mask + masked)

    def receive(self):
        """The next text, put together from its frames."""
        text = b""
        while True:
            first, second = self.stream.read(2) or self.end()
            length = second & 127
            if length >= 126:
                length = int.from_bytes(self.stream.read(2 if length == 126 else 8), "big")
            data = self.stream.read(length)
            kind = first & 15
            if kind == 8:
                self.end()
            if kind in (0, 1):
                text += data
                if first & 0x80:
                    return text.decode()

    def close(self):
        self.stream.close()
        self.socket.close()


class Page:
    """A page of the browser, with all that it wrote to its console and asked for."""

    def __init__(self, address):
        self.socket, self.count, self.results = Socket(address), 0, {}
        self.console, self.requests, self.failures = [], [], []
        self.types = collections.Counter()
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(f"{domain}.enable")

    def call(self, method, **parameters):
        self.count += 1
        wanted = self.count
        self.socket.send(json.dumps({"id": wanted, "method": method, "params": parameters}))
        while True:
            answer = json.loads(self.socket.receive())
            if answer.get("id") == wanted:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]
            self.note(answer)

    def note(self, event):
        method, parameters = event.get("method"), event.get("params", {})
        if method == "Runtime.consoleAPICalled":
            self.console.append(str([value.get("value") for value in parameters["args"]]))
        elif method == "Runtime.exceptionThrown":
            self.console.append(parameters["exceptionDetails"].get("exception", {}).get("description", "an exception"))
        elif method == "Log.entryAdded":
            self.console.append(f"{parameters['entry']['text']} {parameters['entry'].get('url', '')}")
        elif method == "Network.requestWillBeSent":
            self.requests.append(parameters["request"]["url"])
            self.types[parameters.get("type", "")] += 1

    def run(self, script):
        """The value of an expression; waits for a promise."""
        answer = self.call("Runtime.evaluate", expression=script, awaitPromise=True, returnByValue=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(f"{script[:200]}: {answer['exceptionDetails']}")
        return answer["result"].get("value")

    def wait(self, script, what=None):
        """Waits until an expression is true."""
        end = time.monotonic() + PATIENCE
        while True:
            if self.run(f"Boolean({script})"):
                return
            if time.monotonic() > end:
                raise TimeoutError(what or script)
            time.sleep(0.01)

    def open(self, address):
        self.call("Page.navigate", url=address)
        self.wait("document.readyState === 'complete'")

    def press(self, key, modifiers=0):
        code = KEYS.get(key, ord(key[0].upper()))
        text = {"text": "\r" if key == "Enter" else key} if len(key) == 1 or key == "Enter" else {}
        for kind in ("keyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=key, windowsVirtualKeyCode=code, modifiers=modifiers,
                      **(text if kind == "keyDown" else {}))

    def click(self, x, y):
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)

    def look(self, width, height, scheme="light", media=""):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self.call("Emulation.setEmulatedMedia", media=media, features=[{"name": "prefers-color-scheme", "value": scheme}])

    def picture(self, file):
        data = self.call("Page.captureScreenshot", format="png")["data"]
        pathlib.Path(file).write_bytes(base64.b64decode(data))


class Chromium:
    """The browser, with a folder of its own that nothing else uses."""

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        command = [program(), "--headless=new", "--disable-gpu", "--remote-debugging-port=0", "--no-first-run",
                   f"--user-data-dir={self.folder.name}", "--disable-background-networking", "--disable-sync",
                   "--disable-component-update", "--disable-dev-shm-usage", "--no-default-browser-check",
                   "about:blank"]
        if os.geteuid() == 0:
            command.insert(1, "--no-sandbox")
        self.process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                        start_new_session=True)
        port = pathlib.Path(self.folder.name) / "DevToolsActivePort"
        end = time.monotonic() + PATIENCE
        while not (port.exists() and port.read_text().count("\n")):
            if self.process.poll() is not None or time.monotonic() > end:
                raise ConnectionError("the browser does not start")
            time.sleep(0.05)
        self.port = port.read_text().split()[0]
        self.pages = []
        return self

    def page(self):
        """A new page, which shows nothing yet."""
        request = urllib.request.Request(f"http://127.0.0.1:{self.port}/json/new?about:blank", method="PUT")
        with urllib.request.build_opener(urllib.request.ProxyHandler({})).open(request, timeout=PATIENCE) as answer:
            page = Page(json.load(answer)["webSocketDebuggerUrl"])
        self.pages.append(page)
        return page

    def __exit__(self, *_):
        for page in self.pages:
            page.socket.close()
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()
        self.folder.cleanup()

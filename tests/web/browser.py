"""A headless Chromium for tests, driven over its debugging pipe: open pages, ask them, press keys, hear script errors."""
import base64
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

ANSWER_SECONDS = 60


def find_browser():
    return os.environ.get("MRD_BROWSER") or shutil.which("chromium") or shutil.which("chromium-browser")


class Browser:
    """One process with a new empty profile. Commands and answers are JSON texts that end with a zero byte."""

    def __init__(self):
        self.profile = tempfile.TemporaryDirectory(prefix="mrd-browser-", ignore_cleanup_errors=True)
        ours_in, theirs_out = os.pipe()
        theirs_in, self.out = os.pipe()
        self.process = subprocess.Popen(
            ["sh", "-c", 'exec "$@" 3<&%d 4>&%d' % (theirs_in, theirs_out), "sh", find_browser(), "--headless", "--no-sandbox",
             "--disable-gpu", "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync",
             "--disable-dev-shm-usage", "--disable-popup-blocking", "--user-data-dir=" + self.profile.name,
             "--remote-debugging-pipe", "about:blank"],
            pass_fds=(theirs_in, theirs_out), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(theirs_in)
        os.close(theirs_out)
        self.inward, self.read, self.count, self.events = ours_in, b"", 0, []

    def close(self):
        try:
            self.send("Browser.close")
            self.process.wait(10)
        except (OSError, AssertionError, subprocess.TimeoutExpired):
            self.process.kill()
            self.process.wait()
        os.close(self.inward)
        os.close(self.out)
        self.profile.cleanup()

    def message(self, seconds):
        """The next message, None when there is none in time."""
        until = time.monotonic() + seconds
        while b"\0" not in self.read:
            if not select.select([self.inward], [], [], max(0, until - time.monotonic()))[0]:
                return None
            part = os.read(self.inward, 1 << 16)
            if not part:
                raise AssertionError("the browser has ended")
            self.read += part
        text, self.read = self.read.split(b"\0", 1)
        return json.loads(text)

    def send(self, method, session=None, **parameters):
        self.count += 1
        number = self.count
        command = {"id": number, "method": method, "params": parameters}
        if session:
            command["sessionId"] = session
        os.write(self.out, json.dumps(command).encode() + b"\0")
        while True:
            message = self.message(ANSWER_SECONDS)
            if message is None:
                raise AssertionError("no answer to " + method)
            if message.get("id") == number:
                if "error" in message:
                    raise AssertionError("%s: %s" % (method, message["error"]["message"]))
                return message["result"]
            self.events.append(message)

    def wait_for(self, wanted, seconds=ANSWER_SECONDS):
        """The first event, past or coming, for which wanted(event) holds. None when there is none in time."""
        until, seen = time.monotonic() + seconds, 0
        while True:
            for event in self.events[seen:]:
                if wanted(event):
                    return event
            seen = len(self.events)
            message = self.message(max(0, until - time.monotonic()))
            if message is None:
                return None
            self.events.append(message)

    def targets(self):
        return [t for t in self.send("Target.getTargets")["targetInfos"] if t["type"] == "page"]

    def open(self, address, width=800, height=600):
        """A page in a window of this size, loaded with its pictures."""
        page = Page(self, self.send("Target.createTarget", url="about:blank")["targetId"])
        page.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        page.go(address)
        return page


class Page:
    def __init__(self, browser, target):
        self.browser, self.target = browser, target
        self.session = browser.send("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.command(domain + ".enable")

    def command(self, method, **parameters):
        return self.browser.send(method, self.session, **parameters)

    def go(self, address):
        self.forget_events()
        answer = self.command("Page.navigate", url=address)
        if answer.get("errorText"):
            raise AssertionError("%s: %s" % (address, answer["errorText"]))
        self.wait_until_loaded(address)

    def follow(self, expression):
        """Runs what leaves the page for another one, which is loaded afterwards."""
        self.forget_events()
        self.ask("void setTimeout(() => { %s; })" % expression)
        self.wait_until_loaded(expression)

    def forget_events(self):
        self.browser.events = [e for e in self.browser.events if e.get("sessionId") != self.session]

    def wait_until_loaded(self, what):
        loaded = lambda e: e.get("sessionId") == self.session and e["method"] == "Page.loadEventFired"
        if not self.browser.wait_for(loaded):
            raise AssertionError("not loaded: " + what)

    def ask(self, expression, **options):
        """The value of a JavaScript expression; a promise is waited for."""
        answer = self.command("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True,
                              userGesture=True, **options)
        if "exceptionDetails" in answer:
            raise AssertionError("%s: %s" % (expression, answer["exceptionDetails"]["exception"].get("description")))
        return answer["result"].get("value")

    def settle(self):
        """Two frames, in which scrolling, changes of size and what follows from them are delivered."""
        self.ask("new Promise(done => requestAnimationFrame(() => requestAnimationFrame(() => setTimeout(done, 30))))")

    def scroll(self, y):
        self.ask("window.scrollTo(0, %d)" % y)
        self.settle()

    def press(self, key):
        """The key goes down only: a window that closes by it does not see it come up."""
        code, text = {"Escape": (27, {}), "Enter": (13, {"text": "\r"})}[key]
        self.command("Input.dispatchKeyEvent", type="keyDown", key=key, code=key, windowsVirtualKeyCode=code, **text)

    def screenshot(self, path):
        with open(path, "wb") as file:
            file.write(base64.b64decode(self.command("Page.captureScreenshot")["data"]))

    def errors(self):
        """Script errors, refused content and files that could not be loaded since the page was opened."""
        found = []
        for event in self.browser.events:
            if event.get("sessionId") != self.session:
                continue
            what = event["params"]
            if event["method"] == "Runtime.exceptionThrown":
                details = what["exceptionDetails"]
                found.append(details.get("exception", {}).get("description") or details["text"])
            elif event["method"] == "Log.entryAdded" and what["entry"]["level"] == "error":
                found.append(what["entry"]["text"] + " " + what["entry"].get("url", ""))
            elif event["method"] == "Network.loadingFailed" and not what.get("canceled"):
                found.append("not loaded: " + what["errorText"])
        return found

    def close(self):
        self.browser.send("Target.closeTarget", targetId=self.target)

# A Windows desktop of Wine's in a window on $DISPLAY, with a report service beside it: what a person does there, by the
# X server's own mouse and keyboard, and what there is to see.
import json
import os
import pathlib
import shutil
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = ROOT / "build/windows/bin"
SERVICE = ROOT / "build/release/bin/demo-service"
SCRATCH = ROOT / "build/windows/desktop"
PROGRAM = SCRATCH / "program"
SIZE = (1024, 768)
LIMIT = 30  # seconds that anything may take


def run(*words, **options):
    return subprocess.run(words, capture_output=True, text=True, timeout=60, **options).stdout


def await_(condition, limit=LIMIT):
    """Gives what the condition gives once that is true; its last answer when the time is over."""
    end = time.monotonic() + limit
    while not (answer := condition()) and time.monotonic() < end:
        time.sleep(0.1)
    return answer


def start_service():
    """Two accounts whose figures grow sixty times as fast as the day. Tells programs by their environment."""
    folder = SCRATCH / "service"
    folder.mkdir(parents=True)
    service = subprocess.Popen(
        [SERVICE, "--folder", folder, "--speed", "60", "--account", "garden@example.test:rosemary",
         "--account", "recipes@example.test:saffron", "--consent", "auto"], stdout=subprocess.DEVNULL)
    port = folder / "port"
    assert await_(lambda: port.exists() and port.read_text().strip()), "no report service"
    host = f"localhost:{port.read_text().strip()}"
    os.environ.update(QUILLBOX_SERVICE=host, QUILLBOX_API=host, QUILLBOX_OAUTH_CLIENT_ID="quillbox-demo",
                      QUILLBOX_OAUTH_CLIENT_SECRET="no-secret", SSL_CERT_FILE=str(folder / "authority.pem"),
                      no_proxy="localhost")
    return service


class Loudspeaker:
    """A sound server of the test's own, which every program that is started from now on plays on."""

    def __init__(self):
        folder = SCRATCH / "sound"
        folder.mkdir()
        os.environ["PULSE_SERVER"] = f"unix:{folder}/server"
        self.recorded = folder / "recorded"
        self.server = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "-L",
             "module-null-sink sink_name=nothing", "-L",
             f"module-native-protocol-unix auth-anonymous=1 socket={folder}/server"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        assert await_(lambda: "nothing" in run("pactl", "list", "short", "sinks")), "no sound server"
        self.recorder = subprocess.Popen(
            ["parec", "--device=nothing.monitor", "--format=s16le", "--channels=1", "--rate=8000", "--latency-msec=20",
             "--raw", self.recorded], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def sounded(self):
        return self.recorded.exists() and any(self.recorded.read_bytes())

    def close(self):
        self.recorder.kill()
        self.server.kill()


def runs(program="quillbox.exe"):
    """How many there are."""
    return int(run("pgrep", "--count", "--exact", program) or 0)


class Desktop:
    """A virtual desktop with a taskbar of its own.

    All programs are started on it: one that comes from outside may take the keyboard from it."""

    def __init__(self, name="quillbox"):
        self.name = name
        self.folder = SCRATCH / f"seen-{name}"

    def start(self, program, *arguments):
        path = program if isinstance(program, str) else f"Z:{program}".replace("/", "\\")
        words = ["wine", "explorer", f"/desktop={self.name},{SIZE[0]}x{SIZE[1]}", path, *arguments]
        return subprocess.Popen(words, cwd=SCRATCH, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def open(self):
        """Whether there is one. It stays until close."""
        self.folder.mkdir(parents=True)
        self.start(PROGRAMS / "windows_seen.exe", f"Z:{self.folder}")
        return await_(lambda: not self.tell("windows").startswith("no answer"))

    def close(self):
        (self.folder / "end").touch()

    def tell(self, word):
        """What windows_seen answers."""
        asked, answer = self.folder / "asked", self.folder / "answer"
        answer.unlink(missing_ok=True)
        asked.write_text(word)
        asked.rename(self.folder / "ask")
        return answer.read_text("latin-1") if await_(answer.exists) else "no answer"

    def forget_settings(self):
        self._registry("delete", r"HKCU\Software\Quillbox", "/f")

    def store(self, section, name, value):
        self._registry("add", rf"HKCU\Software\Quillbox\{section}", "/v", name, "/d", value, "/f")

    def store_accounts(self, *texts):
        self.start(PROGRAMS / "demo-settings.exe", "write", *texts).wait(LIMIT)
        assert await_(lambda: texts[0] in self.tell("AdSense")), "no accounts"

    def open_addresses_with(self, program):
        self._registry("add", r"HKCR\http\shell\open\command", "/ve", "/d", f'"{program}" "%1"', "/f")

    def _registry(self, *words):
        self.start(r"C:\windows\system32\reg.exe", *words).wait(LIMIT)

    def windows(self):
        return [json.loads(line) for line in self.tell("windows").splitlines() if line.startswith("{")]

    def find(self, **wanted):
        """The first window that is all of it, or None."""
        return next((w for w in self.windows() if all(w.get(k) == v for k, v in wanted.items())), None)

    def await_window(self, **wanted):
        return await_(lambda: self.find(**wanted))

    def await_no_window(self, **wanted):
        return await_(lambda: self.find(**wanted) is None)


def key(*names):
    for name in names:
        run("xdotool", "key", name)
        time.sleep(0.1)


def write(text):
    names = {" ": "space", "@": "at", ".": "period", "\t": "Tab", "\n": "Return"}
    key(*(names.get(letter, letter) for letter in text))


def move(x, y):
    run("xdotool", "mousemove", str(x), str(y))


def rest_on(place):
    for x in range(-4, 5, 2):
        move(place[0] + x // 2, place[1])
        time.sleep(0.05)


def icon_is_drawn(place):
    """The icon has no window of its own that others could find: it is a green quill on a bar of one colour."""
    colours = run("convert", f"x:root[16x16+{place[0] - 8}+{place[1] - 8}]", "-unique-colors", "txt:-")
    return len(colours.splitlines()) > 8


def click(window, button=1):
    left, top, right, bottom = window["place"]
    move((left + right) // 2, (top + bottom) // 2)
    time.sleep(0.1)
    run("xdotool", "click", str(button))


def picture(name):
    (SCRATCH / "pictures").mkdir(exist_ok=True)
    run("import", "-window", "root", SCRATCH / f"pictures/{name}.png")


def clean():
    shutil.rmtree(SCRATCH, ignore_errors=True)
    PROGRAM.mkdir(parents=True)
    for file in [*PROGRAMS.glob("quillbox.exe"), *PROGRAMS.glob("dl.exe"), *PROGRAMS.glob("*.js"),
                 *PROGRAMS.glob("*.css"), ROOT / "assets/ReadMe.txt", ROOT / "assets/skin/skin.ini",
                 *(ROOT / "assets/sounds").glob("*.wav")]:
        shutil.copy(file, PROGRAM)
    # The first process starts Wine's services, which keep its streams: no pipe that somebody reads to its end.
    subprocess.run(["wine", "cmd", "/c", "exit"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=60)

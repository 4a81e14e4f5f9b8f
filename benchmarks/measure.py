"""Measures the built game; see README.md. Ends with 1 when a target is missed."""
import pathlib
import re
import statistics
import subprocess
import sys
import time

SOURCE = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(SOURCE / "tests/session"))
from session import DATA, PROGRAM, Desktop, Game, wait

BUILT = SOURCE / "build/release/benchmarks"
missed = []


def tell(what, figure, unit="", most=None):
    good = most is None or figure <= most
    if not good:
        missed.append(what)
    goal = "" if most is None else f"  at most {most}: {'good' if good else 'MISSED'}"
    print(f"{what:60} {figure:9.3f} {unit:3}{goal}", flush=True)


def changes(desktop, area, rest, first=10.0):
    """The times at which the screen changes there, until nothing has for `rest` seconds."""
    before, times, end = desktop.look(*area), [], time.monotonic() + first
    while (now := time.monotonic()) < end:
        if (seen := desktop.look(*area)) != before:
            before, end = seen, now + rest
            times.append(now)
        time.sleep(0.0003)
    return times


def rules():
    if subprocess.run([BUILT / "bench_rules"], check=False).returncode:
        missed.append("rules")


def middle(desktop):
    """Black until a window is painted."""
    return desktop.look(940, 660, 40, 80)


def start_time(desktop, command, folder, **environment):
    """Milliseconds from exec to something painted; a window is painted in one piece."""
    black = [bytes(160)] * 80
    wait("a free screen", lambda: middle(desktop) == black)
    begin = time.monotonic()
    process = subprocess.Popen([command], cwd=folder, env=desktop.environment | environment)
    while middle(desktop) == black:
        time.sleep(0.0002)
    end = time.monotonic()
    process.terminate()
    process.wait()
    return (end - begin) * 1000


def memory(process):
    """MiB, shared ones in proportion."""
    text = pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text(encoding="ascii")
    return int(re.search(r"Pss: +(\d+)", text)[1]) / 1024


def start(runs=41):
    with Desktop() as desktop:
        pictures = SOURCE / "assets/pictures"
        copies = {f"piece-{n}.png": f"piece-{n % 4 + 1}.gif" for n in range(16)}
        for copy, name in (copies | {"board.png": "board.bmp"}).items():
            subprocess.run(["convert", pictures / name, desktop.home / copy], check=True)
        floor = BUILT / "bench_floor"
        worlds = {"": {}, ", GNOME's theme": {"XDG_CURRENT_DESKTOP": "GNOME"}}
        ratios, times = ({world: [] for world in worlds} for _ in range(2))
        for run in range(-3, runs):
            bare = start_time(desktop, floor, desktop.home)
            for world, environment in worlds.items():
                ours = start_time(desktop, PROGRAM, DATA, **environment)
                if run >= 0:
                    ratios[world].append(ours / bare)
                    times[world].append(ours)
        for world in worlds:
            low, ratio, high = statistics.quantiles(ratios[world], n=4)
            tell(f"start{world}, median", statistics.median(times[world]), "ms")
            tell(f"start{world}, ratio to a bare program, lower quartile", low)
            tell(f"start{world}, ratio, upper quartile", high)
            tell(f"start{world}, ratio, median", ratio, "", 0.95)
        process = desktop.start(floor, cwd=desktop.home)
        wait("the bare program", lambda: any(map(any, middle(desktop))))
        bare = memory(process)
        process.terminate()
        process.wait()
        sound_server(desktop)
        game = Game(desktop)
        game.begins()
        time.sleep(2)
        tell("memory after the first sound", memory(game.process), "MiB")
        tell("memory, ratio to a bare program", memory(game.process) / bare, "", 1.2)
    times = []
    for _ in range(runs // 2):
        with Desktop() as desktop:
            game = Game(desktop)
            x, y, width, _ = game.place("Starta")
            game.hand("mousemove", *game.middle("Starta"))
            begin = time.monotonic()
            hand = subprocess.Popen(["xdotool", "click", "1"], env=desktop.environment)
            shown = changes(desktop, (x + width + 100, y - 160, 40, 80), 0.1)
            times.append((shown[0] - begin) * 1000)
            hand.wait()
    tell("from the click on Starta to the painted main window", statistics.median(times), "ms")


def sound_server(desktop):
    """Plays to nobody; programs started from now on are told of it."""
    options = "-n --daemonize=no --use-pid-file=no --exit-idle-time=-1 -L module-null-sink"
    socket = desktop.home / "sound"
    load = f"module-native-protocol-unix auth-anonymous=1 socket={socket}"
    environment = desktop.environment | {"PULSE_SERVER": ""}
    desktop.start("pulseaudio", *options.split(), "-L", load, env=environment)
    wait("the sound server", socket.exists)
    desktop.environment["PULSE_SERVER"] = f"unix:{socket}"


def mouse(runs=21, movements=100):
    hovers, drags = [], []
    with Desktop("openbox") as desktop:
        game = Game(desktop)
        game.begins()
        places = [game.middle(name) for name in ("mnuArkiv", "mnuOm", "butMini", "butAvsluta")]
        x, y, *_ = game.place("main")
        away = ("mousemove", *game.middle("labMeddelande"))
        path = [word for i in range(movements) for word in ("mousemove", *places[i % 4])]
        for _ in range(runs):
            begin = time.monotonic()
            hand = subprocess.Popen(["xdotool", *map(str, [*path, *away])], env=desktop.environment)
            # Movements that come at once count as one.
            seen = [begin, *changes(desktop, (x, y, 570, 34), 0.3, 0.3)]
            hovers.append((seen[-1] - begin) * 1000)
            hand.wait()
        for run in range(runs):
            x, y = game.middle("Namnlist")
            left, top, *_ = game.place("main")
            by = 100 if run % 2 == 0 else -100
            steps = [("mousemove", x + by * i // movements, y) for i in range(movements + 1)]
            words = [word for step in steps for word in step]
            desktop.hand("mousemove", x, y, "mousedown", 1)
            begin = time.monotonic()
            hand = subprocess.Popen(["xdotool", *map(str, words)], env=desktop.environment)
            drags.append((changes(desktop, (left, top, 570, 34), 0.3)[-1] - begin) * 1000)
            hand.wait()
            assert game.find("main")[0] == left + by, "the window does not follow"
            desktop.hand("mouseup", 1)
    for what, times in (("over the buttons", hovers), ("with the title bar", drags)):
        tell(f"{movements} movements {what}, median", statistics.median(times), "ms", 50)


def costs(process):
    """Wake-ups and nanoseconds of CPU so far, by thread."""
    found = {}
    for task in pathlib.Path(f"/proc/{process.pid}/task").iterdir():
        switches = re.findall(r"ctxt_switches:\s+(\d+)", (task / "status").read_text())
        cpu = (task / "schedstat").read_text().split()[0]
        found[task.name] = (sum(map(int, switches)), int(cpu))
    return found


def rests(game, world, state):
    """What was done before may still have to come to an end: sounds, tool tips, connections."""
    before = None
    while before != (before := costs(game.process)):
        time.sleep(3)
    time.sleep(5)
    after = costs(game.process)
    for i, what, unit in ((0, "wake-ups in 5 s", ""), (1, "CPU in 5 s", "ns")):
        # A thread that has ended woke up for that.
        spent = sum(row[i] - before.get(task, (0, 0))[i] for task, row in after.items())
        tell(f"{world}, {state}: {what}", spent + len(before.keys() - after.keys()), unit, 0)


def rest():
    for world in ("no sound server", "sound server"):
        seen = set()
        while len(seen) < 2:
            with Desktop("openbox") as desktop:
                if world == "sound server":
                    sound_server(desktop)
                game = Game(desktop)
                if not seen:
                    game.find("start")
                    rests(game, world, "start window")
                game.begins()
                if not seen:
                    rests(game, world, "throw awaited")
                game.throws()
                offered = game.look("butEn_pjäs")[4][16:19] == b"\0\xff\xff"
                state = "move awaited" if offered else "turn over"
                if state not in seen:
                    rests(game, world, state)
                seen.add(state)
                if len(seen) < 2:
                    continue
                game.opens_menu()
                rests(game, world, "menu open")
                game.hand("key", "Escape")
                game.goes_out("mnuArkiv")
                game.lights("mnuOm")
                rests(game, world, "picture button lit")
                game.click("mnuOm")
                game.find("about")
                rests(game, world, "about window")
                game.click("Klar")
                game.closes("about")
                game.goes_out("mnuOm")
                game.click("butAvsluta")
                game.find("farewell")
                rests(game, world, "farewell window")


def pace(throws=50):
    """Games begun again and again: what is seen of a throw, and of the walk that it may allow."""
    deviations = []
    for _ in range(throws):
        with Desktop() as desktop:
            game = Game(desktop)
            game.begins()
            x, y, *_ = game.place("main")
            for click, area in (
                ("Tärning", (x + 32, y + 164, 132, 50)),
                ("butEn_pjäs", game.place("Picture1")),
            ):
                place = game.middle(click)
                hand = ["xdotool", *map(str, ("mousemove", *place, "click", 1))]
                hand = subprocess.Popen(hand, env=desktop.environment)
                times = changes(desktop, area, 0.5)
                hand.wait()
                # What comes at once is one picture; the same face twice looks like a longer pause.
                times = [t for t, last in zip(times, [0, *times]) if t - last > 0.06]
                for last, now in zip(times, times[1:]):
                    pauses = max(round((now - last) / 0.2), 1)
                    deviations.append(abs(now - last - 0.2 * pauses) * 1000)
    tell("pictures of throws and walks", len(deviations))
    tell("deviation from 200 ms, median", statistics.median(deviations), "ms", 1)
    tell("deviation, 99th percentile", statistics.quantiles(deviations, n=100, method="inclusive")[-1], "ms", 8)


for name in sys.argv[1:] or ("rules", "start", "mouse", "rest", "pace"):
    print(f"== {name}", flush=True)
    globals()[name]()
if missed:
    sys.exit(f"targets missed: {', '.join(missed)}")

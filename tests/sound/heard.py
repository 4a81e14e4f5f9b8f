"""What can be heard of the game: a sound server of the test's own plays into a recording."""
import faulthandler, os, re, shutil, signal, sys, tempfile, time
from pathlib import Path
from subprocess import DEVNULL, PIPE, STDOUT, Popen, getoutput

# A pipe has every sample; the monitor of a null sink loses the first milliseconds of a sound.
SERVER = r"""mkfifo pipe; cat pipe > recording & exec setpriv --pdeathsig KILL pulseaudio -n \
    --use-pid-file=no --realtime=no --high-priority=no --exit-idle-time=-1 \
    -L module-native-protocol-unix -L "module-pipe-sink file=$PWD/pipe format=s16le rate=44100 \
    channels=1 use_system_clock_for_timing=yes" """


def wait(condition):
    while not condition():
        time.sleep(0.005)


def heard():
    parts = re.split(rb"\0{1764,}", recording.read_bytes())  # by 20 ms of silence
    return [part.strip(b"\0") for part in parts if part.strip(b"\0")]


def wait_for_end_of(sound, quiet=bytes(17640)):  # 200 ms
    wait(lambda: recording.read_bytes().endswith(quiet) and b"".join(heard()).endswith(sound))


def play(*names):
    for name in names:
        os.write(game.stdin.fileno(), name.encode() + b"\n")
        assert game.stdout.readline() == name.encode() + b"\n"


def wait_until_asleep():
    wait(lambda: not re.search(r"\) [^S]", getoutput(f"cat /proc/{game.pid}/task/*/stat")))


faulthandler.dump_traceback_later(100, exit=True)
scratch = tempfile.TemporaryDirectory()
os.environ.update(HOME=scratch.name, XDG_RUNTIME_DIR=scratch.name, QT_QPA_PLATFORM="offscreen")
os.environ["PULSE_SERVER"] = f"unix:{scratch.name}/pulse/native"
shutil.copytree(sys.argv[2], scratch.name + "/sp\udce5r")  # no UTF-8
os.chdir(scratch.name + "/sp\udce5r")
click, step, dice = (Path(f"s{n}.wav").read_bytes()[44:].strip(b"\0") for n in (1, 2, 3))
file = Path("s3.wav").read_bytes()
Path("cut.wav").write_bytes(file[:-2])
Path("slow.wav").write_bytes(file[:24] + (4000).to_bytes(4, "little") + file[28:])  # 12 s
game = Popen(sys.argv[1], stdin=PIPE, stdout=PIPE, stderr=STDOUT)

# Without a server there is silence.
play("s1.wav")
for ending in signal.SIGKILL, signal.SIGSTOP:
    wait_until_asleep()
    recording = Path(scratch.name, ending.name, "recording")
    recording.parent.mkdir()
    server = Popen(SERVER, shell=True, cwd=recording.parent, stderr=DEVNULL)
    wait(lambda: recording.exists() and recording.read_bytes())
    for name, sound in ("s1.wav", click), ("s2.wav", step):
        play(name)
        wait_for_end_of(sound)
    # What is no sound changes nothing.
    play("s3.wav")
    wait(lambda: len(heard()) == 3)
    for name in "missing.wav", "../SIGKILL/pipe", ".", "brs.dat", "cut.wav":
        play(name)
        wait_until_asleep()
    wait_for_end_of(dice)
    # A new sound cuts off the old.
    play("slow.wav")
    wait(lambda: len(heard()) == 4)
    play("s1.wav")
    wait_for_end_of(click)
    assert heard()[:3] == [click, step, dice] and len(b"".join(heard())) < 8 * len(dice)
    # What has been heard leaves the game at rest.
    wait(lambda: len(os.listdir(f"/proc/{game.pid}/task")) == 2)
    # A server that dies or stops holds up nothing, not even the end.
    play("slow.wav")
    server.send_signal(ending)
    play(*["s1.wav", "slow.wav"] * 500)
assert game.communicate()[0] == b"" and game.returncode == 0

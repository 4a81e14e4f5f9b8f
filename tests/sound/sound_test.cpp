// What can be heard of the program: a sound server of the test's own plays into a recording.
#include "platform/sound.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <random>

#include "tests/sound/pulse_server.h"
#include "tests/sound/waiting.h"
#include "tests/sound/wave_bytes.h"

namespace brusbo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// A clip of the given length, as the file of one width says it and as it must sound. Noise, so it
// cannot be mistaken for another or for a part of itself; no sample is silent.
struct TestClip {
    TestClip(const fs::path& folder, const char* name, unsigned bits, int milliseconds)
        : path(folder / name) {
        std::mt19937 random(bits + static_cast<unsigned>(milliseconds));
        std::string data;
        for (int i = 0; i < sample_rate * milliseconds / 1000; ++i) {
            const int high = static_cast<int>(random() % 100U) + 1;
            heard.push_back(static_cast<std::int16_t>(high * 256));
            const unsigned byte = static_cast<unsigned>(high) + (bits == 8 ? 128U : 0U);
            data += std::string(bits / 8 - 1, '\0') + static_cast<char>(byte);
        }
        std::ofstream(path, std::ios::binary)
            << wave(format_chunk(1, 1, bits) + chunk("data", data));
    }
    std::string path;
    Samples heard;
};

struct Burst {
    std::size_t start;
    Samples samples;
};

// The sounds of a recording, told apart by 10 ms of silence.
std::vector<Burst> bursts(const Samples& recording) {
    std::vector<Burst> found;
    std::size_t last = 0;
    for (std::size_t i = 0; i < recording.size(); ++i) {
        if (recording[i] == 0) continue;
        if (found.empty() || i - last > sample_rate / 100) found.push_back({i, {}});
        auto& samples = found.back().samples;
        samples.resize(i - found.back().start);
        samples.push_back(recording[i]);
        last = i;
    }
    return found;
}

std::size_t silence_at_end(const Samples& recording) {
    const auto sounding = [](std::int16_t sample) { return sample != 0; };
    return static_cast<std::size_t>(std::find_if(recording.rbegin(), recording.rend(), sounding) -
                                    recording.rbegin());
}

// Nothing when they are the same.
std::string difference(const Samples& heard, const TestClip& clip) {
    if (heard == clip.heard) return {};
    const auto same =
        std::mismatch(heard.begin(), heard.end(), clip.heard.begin(), clip.heard.end()).first -
        heard.begin();
    return "heard " + std::to_string(heard.size()) + " samples, of them " + std::to_string(same) +
           " as in the clip of " + std::to_string(clip.heard.size());
}

double microseconds(const std::function<void()>& call) {
    const auto start = Clock::now();
    call();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

struct HeardSound : testing::Test {
    void SetUp() override {
        if (!PulseServer::is_installed()) GTEST_SKIP() << "pulseaudio is not installed";
        fs::create_directory(folder.path / "home");
        fs::create_directory(folder.path / "runtime");
        fs::permissions(folder.path / "runtime", fs::perms::owner_all);
        setenv("HOME", (folder.path / "home").c_str(), 1);
        setenv("XDG_RUNTIME_DIR", (folder.path / "runtime").c_str(), 1);
        for (const char* other : {"PULSE_SERVER", "PULSE_COOKIE", "PULSE_CLIENTCONFIG",
                                  "PULSE_RUNTIME_PATH", "XDG_CONFIG_HOME"}) {
            unsetenv(other);
        }
        testing::internal::CaptureStderr();
    }
    void TearDown() override {
        if (IsSkipped()) return;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_TRUE(fs::is_empty(folder.path / "home")) << "something was left in the home folder";
    }

    void play(const std::string& path) { sound->play(QString::fromStdString(path)); }
    // Returns when the file has been opened and closed again.
    void play_until_read(const std::string& path) {
        const int watch = inotify_init1(IN_CLOEXEC);
        inotify_add_watch(watch, path.c_str(), IN_CLOSE);
        play(path);
        pollfd readable{watch, POLLIN, 0};
        EXPECT_EQ(poll(&readable, 1, 30000), 1) << path << " was not read";
        close(watch);
    }
    // Returns the sounds once the last one ends as the clip does and 200 ms of silence follow.
    std::vector<Burst> heard_until_end_of(const TestClip& clip) {
        Samples recording;
        wait_until(
            [&] {
                recording = server.recording();
                const auto silence = silence_at_end(recording);
                if (silence < sample_rate / 5 || recording.size() < silence + 100) return false;
                return std::equal(clip.heard.end() - 100, clip.heard.end(),
                                  recording.end() - static_cast<std::ptrdiff_t>(silence) - 100);
            },
            "the end of " + clip.path);
        return bursts(recording);
    }

    TemporaryFolder folder;
    TestClip click{folder.path, "click.wav", 8, 60};
    TestClip step{folder.path, "step.wav", 16, 120};
    TestClip rattle{folder.path, "rattle.wav", 24, 1000};
    PulseServer server{folder.path / "server", folder.path / "runtime"};
    std::unique_ptr<Sound> sound = std::make_unique<Sound>();
};

TEST_F(HeardSound, EachClipSoundsOnceAndWholeAndThenTheThreadRests) {
    server.start();
    std::size_t count = 0;
    for (const auto* clip : {&click, &step, &rattle, &click}) {
        play(clip->path);
        const auto heard = heard_until_end_of(*clip);
        ASSERT_EQ(heard.size(), ++count);
        EXPECT_EQ(difference(heard.back().samples, *clip), "");
    }
    const auto wakeups = [] {
        std::string all;
        for (const auto& thread : fs::directory_iterator("/proc/self/task")) {
            std::string name;
            std::getline(std::ifstream(thread.path() / "comm"), name);
            if (name != "brusbo-sound") continue;
            std::ifstream status(thread.path() / "status");
            for (std::string line; std::getline(status, line);) {
                if (line.find("ctxt_switches") != std::string::npos) all += line + '\n';
            }
        }
        return all;
    };
    wait_until(
        [&] {
            const auto before = wakeups();
            std::this_thread::sleep_for(2s);
            return !before.empty() && wakeups() == before;
        },
        "the thread to sleep for two seconds");
}

TEST_F(HeardSound, SixStepsSoundSixTimesAndEvenly) {
    server.start();
    // The first sound makes the connection, as a click does in the game.
    play(click.path);
    heard_until_end_of(click);
    std::vector<double> calls;
    const auto start = Clock::now();
    for (int i = 0; i < 6; ++i) {
        std::this_thread::sleep_until(start + i * 200ms);
        calls.push_back(std::chrono::duration<double>(Clock::now() - start).count());
        play(step.path);
    }
    wait_until([this] { return bursts(server.recording()).size() >= 7; }, "six steps");
    const auto heard = heard_until_end_of(step);
    ASSERT_EQ(heard.size(), 7U);
    for (std::size_t i = 1; i < 7; ++i) {
        EXPECT_EQ(difference(heard[i].samples, step), "");
        const auto since_first = static_cast<double>(heard[i].start - heard[1].start) / sample_rate;
        EXPECT_NEAR(since_first, calls[i - 1] - calls[0], 0.05);
    }
}

TEST_F(HeardSound, ANewSoundCutsOffTheOld) {
    server.start();
    play(rattle.path);
    wait_until([this] { return !bursts(server.recording()).empty(); }, "the rattle");
    play(click.path);
    heard_until_end_of(click);
    const auto recording = server.recording();
    const auto old = bursts(recording).front().start;
    const auto at =
        std::search(recording.begin(), recording.end(), click.heard.begin(), click.heard.end()) -
        recording.begin();
    Samples first(recording.begin() + static_cast<std::ptrdiff_t>(old), recording.begin() + at);
    first.resize(first.size() - silence_at_end(first));
    EXPECT_GT(first.size(), 0U);
    EXPECT_LT(first.size(), rattle.heard.size());
    EXPECT_TRUE(std::equal(first.begin(), first.end(), rattle.heard.begin()));
    EXPECT_EQ(silence_at_end(recording),
              recording.size() - static_cast<std::size_t>(at) - click.heard.size());
}

TEST_F(HeardSound, ABadFileIsSilentAndLeavesTheSoundThatPlays) {
    server.start();
    const auto bad = [this](const char* name, const std::string& bytes) {
        std::ofstream(folder.path / name, std::ios::binary) << bytes;
        return (folder.path / name).string();
    };
    const std::string pipe = folder.path / "pipe";
    mkfifo(pipe.c_str(), 0600);
    const std::string whole = wave(format_chunk(1, 1, 16) + chunk("data", std::string(9000, 'x')));
    play(rattle.path);
    wait_until([this] { return !bursts(server.recording()).empty(); }, "the rattle");
    play("missing.wav");
    play_until_read(bad("empty", ""));
    play_until_read(bad("text", "No sound."));
    play_until_read(bad("truncated", whole.substr(0, 5000)));
    play_until_read(folder.path);
    play_until_read(pipe);
    const auto heard = heard_until_end_of(rattle);
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(difference(heard[0].samples, rattle), "");
}

TEST_F(HeardSound, AFrozenServerDelaysNothing) {
    server.start();
    play(rattle.path);
    wait_until([this] { return !bursts(server.recording()).empty(); }, "the rattle");
    // In turn, so both see the same machine.
    std::vector<double> times[2];
    for (int round = 0; round < 20; ++round) {
        const bool frozen = round % 2 == 1;
        frozen ? server.freeze() : server.thaw();
        for (int i = 0; i < 25; ++i) {
            times[frozen].push_back(microseconds([this] { play(step.path); }));
            std::this_thread::sleep_for(1ms);
        }
    }
    for (auto& some : times) std::nth_element(some.begin(), some.begin() + 125, some.end());
    const double ordinary = times[false][125];
    const double frozen = times[true][125];
    RecordProperty("ordinary_us", std::to_string(ordinary));
    RecordProperty("frozen_us", std::to_string(frozen));
    EXPECT_LT(frozen, 10 * ordinary);
    play_until_read(click.path);
    // Ends although the server does not answer, and so does a new one that has yet to connect.
    sound = std::make_unique<Sound>();
    play_until_read(click.path);
    sound = std::make_unique<Sound>();
    server.thaw();

    play(rattle.path);
    // What the server had before may sound until the rattle cuts it off.
    auto last = heard_until_end_of(rattle).back().samples;
    last.erase(last.begin(), last.end() - std::min(last.end() - last.begin(),
                                                   rattle.heard.end() - rattle.heard.begin()));
    EXPECT_EQ(difference(last, rattle), "");
}

TEST_F(HeardSound, ComesBackWithANewServer) {
    for (int life = 0; life < 3; ++life) {
        server.start();
        play(step.path);
        const auto heard = heard_until_end_of(step);
        ASSERT_EQ(heard.size(), 1U);
        EXPECT_EQ(difference(heard[0].samples, step), "");
        play(rattle.path);
        wait_until([this] { return bursts(server.recording()).size() == 2; }, "the rattle");
        server.kill();
        play_until_read(click.path);
    }
}

TEST_F(HeardSound, WithoutAServerThereIsSilenceAndNothingIsWritten) {
    play_until_read(click.path);
    sound = std::make_unique<Sound>();
    EXPECT_TRUE(fs::is_empty(folder.path / "runtime"));
    unsetenv("XDG_RUNTIME_DIR");
    play_until_read(click.path);
    sound.reset();
}

}  // namespace
}  // namespace brusbo

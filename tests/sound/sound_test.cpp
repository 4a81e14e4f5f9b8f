// What can be heard of the program: a sound server of the test's own plays into a recording.
#include "platform/sound.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/inotify.h>
#include <sys/stat.h>

#include <QAbstractButton>
#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "dialogs/program.h"
#include "platform/sound_backend/wave_file.h"

namespace brusbo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
// A sound in a recording, without silence at its ends.
using Burst = std::span<const std::int16_t>;

constexpr int sample_rate = 44100;

// Throws when it has not come true after half a minute.
void wait_until(const std::string& what, const std::function<bool()>& is_true_at_last) {
    const auto deadline = Clock::now() + 30s;
    while (!is_true_at_last()) {
        if (Clock::now() > deadline) throw std::runtime_error("waited in vain for " + what);
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(2ms);
    }
}

// 20 ms of silence tell sounds apart.
std::vector<Burst> bursts(Burst recording) {
    std::vector<Burst> found;
    for (const auto& sample : recording) {
        if (sample == 0) continue;
        const auto* const end = found.empty() ? nullptr : &found.back().back();
        if (!end || &sample - end > sample_rate / 50) found.emplace_back(&sample, 1);
        found.back() = {found.back().data(), &sample + 1};
    }
    return found;
}

// A sound of the game, and what is to be heard of it.
struct GameSound {
    GameSound(const fs::path& folder, const char* name) : path(folder / name) {
        fs::copy(fs::path(BRUSBO_ASSETS) / "data" / name, path);
        clip = read_wave_file(path).value();
        const auto* const samples = reinterpret_cast<const std::int16_t*>(clip.samples.data());
        heard = bursts({samples, clip.samples.size() / 2}).at(0);
    }
    bool is(Burst burst) const { return std::ranges::equal(burst, heard); }
    bool ends(Burst all) const { return all.size() >= heard.size() && is(all.last(heard.size())); }

    const fs::path path;
    Clip clip;
    Burst heard;
};

struct HeardSound : testing::Test {
    void SetUp() override {
        for (const char* name : {"home", "runtime", "server"}) fs::create_directory(folder / name);
        clearenv();
        setenv("HOME", (folder / "home").c_str(), 1);
        setenv("XDG_RUNTIME_DIR", (folder / "runtime").c_str(), 1);
        testing::internal::CaptureStderr();
    }
    void TearDown() override {
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_TRUE(fs::is_empty(folder / "home")) << "something was left in the home folder";
        kill_server();
        fs::current_path(started_in);
    }

    // PulseAudio without D-Bus and devices, playing into a pipe; what comes out is recorded sample
    // by sample. (The monitor of a null sink loses the first milliseconds of a sound: the sink
    // writes them over silence that a recorder has had already.)
    void start_server() {
        for (const char* old : {"ear", "recording"}) fs::remove(folder / "server" / old);
        server.setWorkingDirectory(QString::fromStdString(folder / "server"));
        // A test that is killed leaves no server behind.
        server.start("sh", {"-c",
                            "exec env HOME=$PWD setpriv --pdeathsig KILL pulseaudio -n"
                            " --daemonize=no --use-pid-file=no --realtime=no"
                            " --high-priority=no --exit-idle-time=-1"
                            " -L module-native-protocol-unix -L \"module-pipe-sink"
                            " use_system_clock_for_timing=yes format=s16le rate=44100"
                            " channels=1 file=$PWD/ear\""});
        // The pipe comes last: once it is there, so is all else.
        wait_until("the server", [this] { return fs::exists(folder / "server/ear"); });
        // Ends with the server.
        const auto record = "cd " + (folder / "server").string() + "; cat ear > recording &";
        ASSERT_EQ(std::system(record.c_str()), 0);
        wait_until("a sample", [this] { return heard(), !recording.empty(); });
    }
    void signal_server(int signal) { ::kill(static_cast<pid_t>(server.processId()), signal); }
    void kill_server() {
        server.kill();
        server.waitForFinished();
    }

    // The sounds since the start of the server.
    std::vector<Burst> heard() {
        std::ifstream file(folder / "server/recording", std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        recording.resize(bytes.size() / 2);
        bytes.copy(reinterpret_cast<char*>(recording.data()), recording.size() * 2);
        return bursts(recording);
    }
    // The same once they end with this one, whole, and 200 ms of silence.
    std::vector<Burst> heard_until_end_of(const GameSound& last) {
        std::vector<Burst> all;
        wait_until("whole " + last.path.string(), [&] {
            all = heard();
            return !all.empty() && last.ends(all.back()) &&
                   &recording.back() - &all.back().back() > sample_rate / 5;
        });
        return all;
    }
    void play(const fs::path& path) { sound->play(QString::fromStdString(path)); }
    void play_until_heard(const GameSound& some) {
        const auto before = heard().size();
        play(some.path);
        wait_until("a start", [&] { return heard().size() > before; });
    }
    // Returns when the file has been opened and closed again.
    void play_until_read(const fs::path& path) {
        const int watch = inotify_init1(IN_CLOEXEC);
        inotify_add_watch(watch, path.c_str(), IN_CLOSE);
        play(path);
        pollfd readable{watch, POLLIN, 0};
        EXPECT_EQ(poll(&readable, 1, 30000), 1) << path << " was not read";
        close(watch);
    }

    const fs::path started_in = fs::current_path();
    const QTemporaryDir temporary;
    const fs::path folder = temporary.path().toStdString();
    const GameSound click{folder, "s1.wav"};
    const GameSound step{folder, "s2.wav"};
    const GameSound dice{folder, "s3.wav"};
    QProcess server;
    std::vector<std::int16_t> recording;
    std::unique_ptr<Sound> sound = std::make_unique<Sound>();
};

/// The game, where every throw is a 6.
class Sixes : public Program {
   public:
    std::vector<Clock::time_point> plays;

    void play_sound(std::string_view file_name) override {
        plays.push_back(Clock::now());
        Program::play_sound(file_name);
    }
    float random_value() override { return 0.99F; }
};

TEST_F(HeardSound, AThrowAndSixEvenStepsOfTheGameSoundOnceAndWhole) {
    start_server();
    fs::current_path(folder);
    fs::copy(fs::path(BRUSBO_ASSETS) / "data/brs.dat", "brs.dat");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the platform cannot do is no matter.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    int count = 1;
    QApplication application(count, &program_invocation_name);
    prepare_application();
    Sixes game;
    const auto press = [](const char* button) {
        wait_until(button, [button] {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (auto* const found = window->findChild<QAbstractButton*>(button);
                    found && found->isVisible())
                    return found->click(), true;
            return false;
        });
    };
    game.Main();
    press("Starta");
    heard_until_end_of(click);
    press("Tärning");
    heard_until_end_of(dice);
    press("butEn_pjäs");
    const auto all = heard_until_end_of(step);

    EXPECT_TRUE(click.is(all[0]) && dice.is(all[1]));
    EXPECT_EQ(std::ranges::count_if(all, [this](Burst burst) { return dice.is(burst); }), 1);
    // The first step cuts off the click of the button.
    ASSERT_GE(all.size(), 8U);
    const auto steps = std::span(all).last<6>();
    EXPECT_TRUE(step.ends(steps[0]));
    const auto plays = std::span(game.plays).last<6>();
    for (std::size_t i = 1; i < 6; ++i) {
        EXPECT_TRUE(step.is(steps[i])) << "step " << i;
        const double played = std::chrono::duration<double>(plays[i] - plays[0]).count();
        const auto* const first = &steps[0].back() + 1 - step.heard.size();
        EXPECT_NEAR(static_cast<double>(&steps[i][0] - first) / sample_rate, played, 0.05);
    }
}

TEST_F(HeardSound, ANewSoundCutsOffTheOld) {
    start_server();
    play_until_heard(dice);
    play(click.path);
    const auto all = heard_until_end_of(click);
    const auto cut = bursts({all[0].data(), &all.back().back() + 1 - click.heard.size()}).at(0);
    EXPECT_LT(cut.size(), dice.heard.size());
    EXPECT_TRUE(std::ranges::equal(cut, dice.heard.first(cut.size())));
}

TEST_F(HeardSound, ABadFileIsSilentAndLeavesTheSoundThatPlays) {
    start_server();
    std::ofstream(folder / "text") << "No sound.";
    mkfifo((folder / "pipe").c_str(), 0600);
    for (const char* name : {"cut", "huge"}) fs::copy(step.path, folder / name);
    fs::resize_file(folder / "cut", 5000);
    fs::resize_file(folder / "huge", std::uintmax_t{1} << 40U);
    play_until_heard(dice);
    play("missing.wav");
    for (const char* bad : {"text", "pipe", "cut", "huge", "home"}) play_until_read(folder / bad);
    EXPECT_TRUE(dice.is(heard_until_end_of(dice)[0]));
}

TEST_F(HeardSound, AFrozenServerDelaysNothing) {
    start_server();
    play_until_heard(dice);
    // In turn, so both see the same machine.
    std::vector<Clock::duration> times[2];
    for (int i = 0; i < 500; ++i) {
        const bool frozen = i / 25 % 2 == 1;
        if (i % 25 == 0) signal_server(frozen ? SIGSTOP : SIGCONT);
        const auto start = Clock::now();
        play(step.path);
        times[frozen].push_back(Clock::now() - start);
        std::this_thread::sleep_for(1ms);
    }
    for (auto& some : times) std::nth_element(some.begin(), some.begin() + 125, some.end());
    EXPECT_LT(times[true][125].count(), 10 * times[false][125].count());
    // Ends although the server does not answer, and so does a new one that has yet to connect.
    for (int i = 0; i < 2; ++i) {
        play_until_read(click.path);
        sound = std::make_unique<Sound>();
    }
    signal_server(SIGCONT);
    // What the server had before may sound until the dice cut it off.
    play(dice.path);
    heard_until_end_of(dice);
}

TEST_F(HeardSound, WithoutAServerThereIsSilenceThatEndsWithANewOne) {
    play_until_read(click.path);
    sound = std::make_unique<Sound>();
    EXPECT_TRUE(fs::is_empty(folder / "runtime")) << "something was written for want of a server";
    play_until_read(click.path);
    for (int life = 0; life < 3; ++life) {
        start_server();
        play(step.path);
        EXPECT_TRUE(step.is(heard_until_end_of(step)[0]));
        play_until_heard(dice);
        kill_server();
        play_until_read(click.path);
    }
}

// The environment changes only before the first sound: from then on a thread reads it.
TEST_F(HeardSound, WithoutARuntimeDirectoryNothingIsWritten) {
    unsetenv("XDG_RUNTIME_DIR");
    play_until_read(click.path);
    sound.reset();
}

}  // namespace
}  // namespace brusbo

// The program beside a sound thread that hangs.
#include <gtest/gtest.h>

#include <fstream>

#include "platform/sound.h"
#include "tests/sound/waiting.h"

namespace brusbo {
namespace {

namespace fs = std::filesystem;

struct StuckSound : testing::Test {
    void hang(Sound& sound) {
        sound.play(QString::fromStdString(taken));
        wait_until([this] { return fs::exists(taken); }, "the module to take the request");
    }
    std::string release() {
        std::ofstream(taken + ".go").flush();
        wait_until([this] { return fs::exists(taken + ".end"); }, "the module to end");
        std::string end;
        std::ifstream(taken + ".end") >> end;
        return end;
    }

    TemporaryFolder folder;
    const std::string taken = folder.path / "taken";
};

TEST_F(StuckSound, KeepsTheNewestRequestOnly) {
    Sound sound;
    hang(sound);
    for (int i = 0; i < 10000; ++i) sound.play(QString::number(i));
    EXPECT_EQ(release(), "9999");
}

TEST_F(StuckSound, IsAbandonedByTheEndingProgramAndEndsByItself) {
    {
        Sound sound;
        hang(sound);
    }
    EXPECT_FALSE(fs::exists(taken + ".end"));
    EXPECT_EQ(release(), "closed");
}

}  // namespace
}  // namespace brusbo

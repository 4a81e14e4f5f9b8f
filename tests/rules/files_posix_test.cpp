// What becomes of positions files that are odd, missing or forbidden, where files are POSIX's.

#include <unistd.h>

#include <cstdlib>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

// Loaded by somebody without special rights, also where the tests are run by root.
TEST_F(Game, LoadingWhateverTheFile) {
    const std::pair<const char*, std::string> rows[] = {
        {"true", "0 0 0, 0 bytes"},
        {"head -c 7296 \"$GOOD\" > brs.dat",
         "14 0 176, 7296 bytes"},  // the goal is its last record
        {"(cat \"$GOOD\"; printf 11111) > brs.dat",
         "14 142 176, 14469 bytes"},  // more than is read
        {"cp \"$GOOD\" brs.dat; chmod 444 brs.dat; chmod 555 .", "14 142 176, 14464 bytes"},
        {"cp \"$GOOD\" brs.dat; chmod 222 brs.dat", ": Permission denied, 14464 bytes"},
        {"chmod 555 .", ": Permission denied"},
        {"mkdir brs.dat", ": Is a directory"},
        {"mkfifo brs.dat; chmod 444 brs.dat", ": Illegal seek"},
        {"ln -s no/where brs.dat", ": No such file or directory"},
    };
    ASSERT_EQ(setenv("GOOD", good_positions.c_str(), 1), 0);
    for (const auto& [command, expected] : rows) {
        const Workplace workplace;
        std::filesystem::permissions(".", std::filesystem::perms(0777));
        ASSERT_EQ(std::system(command), 0);
        ASSERT_EQ(getuid() == 0 ? seteuid(65534) : 0, 0);
        std::string seen = outcome(Ladda_Positioner);
        ASSERT_EQ(seteuid(getuid()), 0);
        if (std::filesystem::is_regular_file("brs.dat"))
            seen += ", " + std::to_string(std::filesystem::file_size("brs.dat")) + " bytes";
        const std::string cannot = "Kan inte öppna " + (workplace.path / "brs.dat").string();
        EXPECT_EQ(seen, (expected.front() == ':' ? cannot : "") + expected) << command;
        std::filesystem::permissions(".", std::filesystem::perms(0777));
    }
}

}  // namespace
}  // namespace brusbo::test

// The positions file: what its records mean, and what becomes of files that are odd or missing.

#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

/// A record of this length; behind the text anything may stand.
std::string record(const std::string& text, std::size_t length) {
    std::string bytes{static_cast<char>(length % 256), static_cast<char>(length / 256)};
    return bytes + text + std::string(126 - text.size(), '7');
}
std::string record(const std::string& text) { return record(text, text.size()); }

/// "x y" of player 1's first square, or the error that stops the reading.
std::string outcome(const std::function<void()>& read) {
    try {
        read();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    const auto [x, y] = point_of(1, 1);
    return std::to_string(x) + " " + std::to_string(y);
}

std::string outcome_of_bytes(const std::string& bytes) {
    std::istringstream file(bytes);
    return outcome([&] { read_positions(file); });
}

TEST(PositionsFile, TextsAndTheirValues) {
    const std::string outside = "brs.dat, post 1: Numerical result out of range";
    const std::string rows[] = {
        // clang-format off
        "176=176", "=0", "  1 2  3=123", "\t4\n2 =42", "- 5=-5", "+7=7", "12abc=12", "abc12=0",
        "45.5=46", "44.5=44", "0.5=0", "-0.5=0", "-45.5=-46", "-44.5=-44", "44.51=45", "45.49=45",
        "1.2.3=1", ".6=1", "5.=5", ".=0", "+-5=0", "1-2=1", "1,5=1", "1\r2=1", 
        "\2403=0", "1e2=100", "1 E + 2=100", "15e-1=2", "3e=3", "3e+=3", "3ex=3", "e3=0",
        "2e1e1=20", "2e1.5=20", "1d2=1", "0x1F=0", "&H1F=0", "inf=0", "nan=0", "1e-400=0",
        "2147483647.4=2147483647", "-2147483648.5=-2147483648", "0e99999999999999999999=0",
        "2147483647.5=outside", "-2147483649=outside", "-1e99999999999999999999=outside",
        // clang-format on
        std::string("1\0002=1", 5), std::string(126, '0') + "=0",
        std::string(126, '9') + "=outside"};
    for (const std::string& row : rows) {
        const std::size_t equals = row.rfind('=');
        const std::string value = row.substr(equals + 1);
        EXPECT_EQ(outcome_of_bytes(record(row.substr(0, equals))),
                  value == "outside" ? outside : value + " 0");
    }
}

TEST(PositionsFile, LengthsAndShortFiles) {
    EXPECT_EQ(outcome_of_bytes("\3"), "0 0");                     // half a length
    EXPECT_EQ(outcome_of_bytes({'\3', '\0', '1', '2'}), "12 0");  // half a text
    EXPECT_EQ(outcome_of_bytes(record("1234", 2)), "12 0");
    const std::string too_long = "brs.dat, post 2: texten är längre än posten";
    for (const std::size_t length : {127U, 256U, 65535U})
        EXPECT_EQ(outcome_of_bytes(record("1") + record("1", length)), too_long);
    std::istream unreadable(nullptr);
    EXPECT_EQ(outcome([&] { read_positions(unreadable); }), "brs.dat, post 1: Input/output error");
}

// Each record's value is its number, so every entry tells which record it came from. A file may end
// anywhere, also right behind the goal, and nothing is read from a record 114.
TEST(PositionsFile, RecordsAndTheirSquares) {
    for (const int records : {113, 57}) {
        std::string bytes;
        for (int n = 1; n <= records; ++n) bytes += record(std::to_string(n));
        outcome_of_bytes(records == 113 ? bytes + record("", 999) : bytes);
        const auto value = [&](int n) { return n <= records ? n : 0; };
        for (int p = 1; p <= most_players; ++p) {
            for (int r = 1; r <= 44; ++r) {
                const int x = r > 40 ? r + 4 * (p - 1) : (r - 1 + 10 * (p - 1)) % 40 + 1;
                EXPECT_EQ(point_of(p, r), Point(x, value(57 + x))) << p << ", " << r;
            }
            EXPECT_EQ(point_of(p, 45), Point(57, 57));
            for (const int r : {0, 46, 55}) EXPECT_EQ(point_of(p, r), Point(0, 0));
        }
    }
}

// Loaded by somebody without special rights, also where the tests are run by root.
TEST_F(Game, LoadingWhateverTheFile) {
    const std::pair<const char*, std::string> rows[] = {
        {"true", "0 0, 0 bytes"},
        {"cp $GOOD brs.dat", "14 142, 14464 bytes"},
        {"cp $GOOD brs.dat; chmod 444 brs.dat; chmod 555 .", "14 142, 14464 bytes"},
        {"cp $GOOD brs.dat; chmod 222 brs.dat", ": Permission denied, 14464 bytes"},
        {"chmod 555 .", ": Permission denied"},
        {"mkdir brs.dat", ": Is a directory"},
        {"mkfifo brs.dat; chmod 444 brs.dat", ": Illegal seek"},
        {"ln -s no/where brs.dat", ": No such file or directory"},
        {"ln -s /dev/zero brs.dat", "0 0"},
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
        const std::string cannot = "Kan inte öppna " + workplace.path + "/brs.dat";
        EXPECT_EQ(seen, (expected.front() == ':' ? cannot : "") + expected) << command;
        std::filesystem::permissions(".", std::filesystem::perms(0777));
    }
}

}  // namespace
}  // namespace brusbo::test

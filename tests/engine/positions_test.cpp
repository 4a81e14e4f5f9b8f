// The positions file: what its records mean, and what becomes of files that are odd or missing.

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "tests/engine/game.h"

namespace brusbo::test {
namespace {

namespace fs = std::filesystem;

std::string record(std::string_view text, int length = -1) {
    const std::size_t size = length < 0 ? text.size() : static_cast<std::size_t>(length);
    std::string bytes = {static_cast<char>(size % 256), static_cast<char>(size / 256)};
    bytes += text;
    bytes.resize(128, '7');  // behind the text anything may stand
    return bytes;
}

/// The value of a file's first record, or the error that reading it stops with.
std::string first_value(const std::string& bytes) {
    std::istringstream file(bytes);
    try {
        read_positions(file);
    } catch (const std::system_error& error) {
        return "stops: " + error.code().message();
    }
    return std::to_string(Positioner[1][axis_x][1]);
}

TEST(PositionsFile, TextsAndTheirValues) {
    using namespace std::string_literals;
    const std::string rows[] = {
        // clang-format off
        "176=176", "=0", "  1 2  3=123", "\t4\n2 =42", "- 5=-5", "+7=7", "12abc=12", "abc12=0",
        "45.5=46", "44.5=44", "0.5=0", "1.5=2", "-0.5=0", "-45.5=-46", "-44.5=-44", "44.51=45",
        "45.49=45", "1.2.3=1", ".6=1", "5.=5", ".=0", "+-5=0", "1-2=1", "1,5=1", "1\r2=1",
        "1\0002=1"s, "\2403=0", "1e2=100", "1 E + 2=100", "15e-1=2", "25e-1=2", "3e=3",
        "3e+=3", "3ex=3", "e3=0", "2e1e1=20", "1d2=1", "0x1F=0", "&H1F=0", "inf=0", "nan=0",
        "2147483647=2147483647", "2147483647.4=2147483647", "-2147483648.5=-2147483648",
        "2147483647.5=outside", "2147483648=outside", "-2147483649=outside", "1e400=outside",
        "-1e99999999999999999999=outside", "1e-400=0", "0e99999999999999999999=0",
        // clang-format on
        std::string(126, '0') + "=0", std::string(126, '9') + "=outside",
        "0." + std::string(120, '0') + "1=0"};
    for (const std::string& row : rows) {
        const std::size_t equals = row.rfind('=');
        const std::string value = row.substr(equals + 1);
        EXPECT_EQ(first_value(record(row.substr(0, equals))),
                  value == "outside" ? "stops: Numerical result out of range" : value)
            << row;
    }
}

TEST(PositionsFile, LengthsAndShortFiles) {
    EXPECT_EQ(first_value(""), "0");
    EXPECT_EQ(first_value("\3"), "0");                     // half a length
    EXPECT_EQ(first_value({'\3', '\0', '1', '2'}), "12");  // half a text
    EXPECT_EQ(first_value(record("1234", 2)), "12");
    EXPECT_EQ(first_value(record("1", 126)), "stops: Numerical result out of range");  // 1777...
    for (const int length : {127, 128, 255, 256, 65535})
        EXPECT_EQ(first_value(record("1", length)), "stops: Bad message") << length;
    // What is never read cannot stop anything: record 114.
    std::string whole;
    for (int n = 1; n <= 113; ++n) whole += record("9");
    EXPECT_EQ(first_value(whole + record("x", 999)), "9");
}

// Each record's value is its number, so every entry tells which record it came from.
TEST(PositionsFile, RecordsAndTheirSquares) {
    std::string bytes;
    for (int n = 1; n <= 114; ++n) bytes += record(std::to_string(n));
    ASSERT_EQ(first_value(bytes), "1");
    for (const int axis : {axis_x, axis_y}) {
        const int y = axis == axis_y ? 57 : 0;
        const auto at = [&](int player, int square) { return Positioner[player][axis][square]; };
        for (int r = 1; r <= 44; ++r) EXPECT_EQ(at(1, r), y + r);
        for (int r = 1; r <= 40; ++r) {
            EXPECT_EQ(at(2, r), y + (r <= 30 ? r + 10 : r - 30));
            EXPECT_EQ(at(3, r), y + (r <= 20 ? r + 20 : r - 20));
            EXPECT_EQ(at(4, r), y + (r <= 10 ? r + 30 : r - 10));
        }
        for (int r = 41; r <= 44; ++r) {
            EXPECT_EQ(at(2, r), y + r + 4);
            EXPECT_EQ(at(3, r), y + r + 8);
            EXPECT_EQ(at(4, r), y + r + 12);
        }
        for (int p = 1; p <= most_players; ++p) {
            EXPECT_EQ(at(p, 45), 57);
            EXPECT_EQ(at(p, 0), 0);
            for (int r = 46; r <= 55; ++r) EXPECT_EQ(at(p, r), 0);
        }
    }
}

// Along every player's path neighbours lie one hole apart, and the board is its own mirror image.
TEST(PositionsFile, CommittedFileIsABoard) {
    std::ifstream file(good_positions, std::ios::binary);
    read_positions(file);
    const auto x = [](int p, int r) { return Positioner[p][axis_x][r]; };
    const auto y = [](int p, int r) { return Positioner[p][axis_y][r]; };
    for (int p = 1; p <= most_players; ++p)
        for (int r = 1; r < 45; ++r) {
            const int across = std::abs(x(p, r) - x(p, r + 1));
            const int down = std::abs(y(p, r) - y(p, r + 1));
            EXPECT_EQ(std::min(across, down), 0) << p << ", " << r;
            EXPECT_NEAR(std::max(across, down), 32, 2) << p << ", " << r;
        }
    for (int r = 1; r <= 39; ++r) {
        EXPECT_EQ(x(1, r), x(1, 40 - r)) << r;
        EXPECT_EQ(y(1, r), 352 - y(1, 40 - r)) << r;
    }
    EXPECT_EQ(std::pair(x(1, 1), y(1, 1)), std::pair(14, 142));
    EXPECT_EQ(std::pair(x(4, 45), y(4, 45)), std::pair(176, 176));
}

class Loading : public Game {
   protected:
    /// Loads from the current directory, as somebody without special rights if asked; the
    /// outcome is "x y of player 1's first square", or the error.
    static std::string outcome(bool unprivileged = false) {
        if (unprivileged && geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
            return "cannot become somebody else";
        try {
            Ladda_Positioner();
        } catch (const std::system_error& error) {
            return "stops: " + error.code().message();
        }
        return std::to_string(Positioner[1][axis_x][1]) + " " +
               std::to_string(Positioner[1][axis_y][1]);
    }
    static void expect_unprivileged(const std::string& expected) {
        EXPECT_EXIT(
            {
                const std::string result = outcome(true);
                std::fprintf(stderr, "<%s>\n", result.c_str());
                std::_Exit(result == expected ? 0 : 1);
            },
            testing::ExitedWithCode(0), "")
            << expected;
    }
    static std::string bytes(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    Workplace workplace;
};

TEST_F(Loading, FillsTheRecordsAndPicturesWhateverTheFile) {
    Spelare = {};
    EXPECT_EQ(outcome(), "0 0");  // there is no file
    const std::pair<int, int> corners[] = {{36, 34}, {274, 34}, {274, 272}, {36, 274}};
    for (int p = 1; p <= most_players; ++p) {
        EXPECT_EQ(std::pair(Spelare[p].Bo_x, Spelare[p].Bo_y), corners[p - 1]);
        for (int j = 0; j < 4; ++j) EXPECT_EQ(Spelare[p].Bildnr[j], 4 * (p - 1) + j);
    }
    std::string expected;
    for (int b = 0; b < 16; ++b) {
        static constexpr const char* stores[] = {"gimgRöd", "gimgBlå", "gimgGrön", "gimgGul"};
        const std::string index = "(" + std::to_string(b) + ") ";
        expected +=
            "picture Pjäs" + index + stores[b / 4] + " 0; picture Plus" + index + "gimgPlus 0; ";
    }
    EXPECT_EQ(recorder.take(), expected +
                                   "picture mnuArkiv gimgArkiv 0; picture mnuOm gimgOm 0; picture "
                                   "butMini gimgMinimera 0; picture butAvsluta GimgAvsluta 0");
}

TEST_F(Loading, CreatesAMissingFileAndKeepsAnyOther) {
    EXPECT_EQ(outcome(), "0 0");
    EXPECT_TRUE(fs::is_regular_file("brs.dat"));
    EXPECT_EQ(fs::file_size("brs.dat"), 0U);
    EXPECT_EQ(outcome(), "0 0");

    fs::copy_file(good_positions, "brs.dat", fs::copy_options::overwrite_existing);
    EXPECT_EQ(outcome(), "14 142");
    EXPECT_EQ(bytes("brs.dat"), bytes(good_positions));

    fs::resize_file("brs.dat", 60 * 128 + 3);
    EXPECT_EQ(outcome(), "14 142");
    EXPECT_EQ(Positioner[1][axis_y][5], 0);
    EXPECT_EQ(fs::file_size("brs.dat"), 60U * 128 + 3);
}

TEST_F(Loading, FilesThatMayNotBeWrittenOrRead) {
    fs::copy_file(good_positions, "brs.dat");
    fs::permissions(".", fs::perms(0555));
    fs::permissions("brs.dat", fs::perms(0444));
    expect_unprivileged("14 142");
    fs::permissions("brs.dat", fs::perms(0222));
    expect_unprivileged("stops: Permission denied");
    fs::permissions(".", fs::perms(0755));
    fs::remove("brs.dat");
    fs::permissions(".", fs::perms(0555));
    expect_unprivileged("stops: Permission denied");
    EXPECT_FALSE(fs::exists("brs.dat"));
    fs::permissions(".", fs::perms(0755));
}

TEST_F(Loading, ThingsThatAreNoOrdinaryFiles) {
    struct Row {
        const char* purpose;
        void (*set_up)();
        const char* outcome;
    };
    const Row rows[] = {
        {"directory", [] { fs::create_directory("brs.dat"); }, "stops: Is a directory"},
        {"pipe, which must not be waited for", [] { ASSERT_EQ(mkfifo("brs.dat", 0666), 0); },
         "stops: Illegal seek"},
        {"link to a pipe",
         [] {
             ASSERT_EQ(mkfifo("pipe", 0666), 0);
             fs::create_symlink("pipe", "brs.dat");
         },
         "stops: Illegal seek"},
        {"socket",
         [] {
             const int socket_handle = socket(AF_UNIX, SOCK_STREAM, 0);
             sockaddr_un address = {AF_UNIX, "brs.dat"};
             ASSERT_EQ(
                 bind(socket_handle, reinterpret_cast<const sockaddr*>(&address), sizeof address),
                 0);
             close(socket_handle);
         },
         "stops: Illegal seek"},
        {"link to a file",
         [] {
             fs::copy_file(good_positions, "file");
             fs::create_symlink("file", "brs.dat");
         },
         "14 142"},
        {"link to nowhere, where a file can be", [] { fs::create_symlink("new", "brs.dat"); },
         "0 0"},
        {"link to nowhere at all", [] { fs::create_symlink("no/where", "brs.dat"); },
         "stops: No such file or directory"},
        {"link to itself", [] { fs::create_symlink("brs.dat", "brs.dat"); },
         "stops: Too many levels of symbolic links"},
        {"empty device", [] { fs::create_symlink("/dev/null", "brs.dat"); }, "0 0"},
        {"endless device", [] { fs::create_symlink("/dev/zero", "brs.dat"); }, "0 0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.purpose);
        const Workplace own_workplace;
        row.set_up();
        EXPECT_EQ(outcome(), row.outcome);
    }
}

}  // namespace
}  // namespace brusbo::test

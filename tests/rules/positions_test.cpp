// The positions file: what its records mean, and what becomes of files that are odd or missing.

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <system_error>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

namespace fs = std::filesystem;

std::string record(std::string_view text, std::size_t length) {
    std::string bytes = {static_cast<char>(length % 256), static_cast<char>(length / 256)};
    bytes += text;
    bytes.resize(128, '7');  // behind the text anything may stand
    return bytes;
}
std::string record(std::string_view text) { return record(text, text.size()); }

/// "x y" of player 1's first square, or the error that stops the reading.
template <typename Read>
std::string outcome(Read read) {
    try {
        read();
    } catch (const std::system_error& error) {
        return error.code().message();
    }
    const auto [x, y] = point_of(1, 1);
    return std::to_string(x) + " " + std::to_string(y);
}

std::string outcome_of_bytes(const std::string& bytes) {
    std::istringstream file(bytes);
    return outcome([&] { read_positions(file); });
}

TEST(PositionsFile, TextsAndTheirValues) {
    using namespace std::string_literals;
    const std::string rows[] = {
        // clang-format off
        "176=176", "=0", "  1 2  3=123", "\t4\n2 =42", "- 5=-5", "+7=7", "12abc=12", "abc12=0",
        "45.5=46", "44.5=44", "0.5=0", "-0.5=0", "-45.5=-46", "-44.5=-44", "44.51=45", "45.49=45",
        "1.2.3=1", ".6=1", "5.=5", ".=0", "+-5=0", "1-2=1", "1,5=1", "1\r2=1", "1\0002=1"s,
        "\2403=0", "1e2=100", "1 E + 2=100", "15e-1=2", "3e=3", "3e+=3", "3ex=3", "e3=0",
        "2e1e1=20", "1d2=1", "0x1F=0", "&H1F=0", "inf=0", "nan=0", "2147483647.4=2147483647",
        "-2147483648.5=-2147483648", "2147483647.5=outside", "-2147483649=outside",
        "1e400=outside", "-1e99999999999999999999=outside", "1e-400=0",
        "0e99999999999999999999=0",
        // clang-format on
        std::string(126, '0') + "=0", std::string(126, '9') + "=outside"};
    for (const std::string& row : rows) {
        const std::size_t equals = row.rfind('=');
        const std::string value = row.substr(equals + 1);
        EXPECT_EQ(outcome_of_bytes(record(row.substr(0, equals))),
                  value == "outside" ? "Numerical result out of range" : value + " 0")
            << row;
    }
}

TEST(PositionsFile, LengthsAndShortFiles) {
    EXPECT_EQ(outcome_of_bytes("\3"), "0 0");                     // half a length
    EXPECT_EQ(outcome_of_bytes({'\3', '\0', '1', '2'}), "12 0");  // half a text
    EXPECT_EQ(outcome_of_bytes(record("1234", 2)), "12 0");
    EXPECT_EQ(outcome_of_bytes(record("1", 126)), "Numerical result out of range");  // 1777...
    for (const std::size_t length : {127U, 256U, 65535U})
        EXPECT_EQ(outcome_of_bytes(record("1", length)), "Bad message") << length;
}

// Each record's value is its number, so every entry tells which record it came from; nothing is
// read from the last.
TEST(PositionsFile, RecordsAndTheirSquares) {
    std::string bytes;
    for (int n = 1; n <= 113; ++n) bytes += record(std::to_string(n));
    ASSERT_EQ(outcome_of_bytes(bytes + record("", 999)), "1 58");
    for (int p = 1; p <= most_players; ++p) {
        const int turned = 10 * (p - 1), lane = 4 * (p - 1);
        for (int r = 1; r <= 44; ++r) {
            const int x = r > 40 ? r + lane : r + turned > 40 ? r + turned - 40 : r + turned;
            EXPECT_EQ(point_of(p, r), Point(x, 57 + x)) << p << ", " << r;
        }
        EXPECT_EQ(point_of(p, 45), Point(57, 57));
        for (const int r : {0, 46, 55}) EXPECT_EQ(point_of(p, r), Point(0, 0));
    }
}

void good_file() { fs::copy_file(good_positions, "brs.dat"); }
void file_for(int rights) {
    good_file();
    fs::permissions("brs.dat", fs::perms(rights));
    fs::permissions(".", fs::perms(0555));
}
void link_to(const char* target) { fs::create_symlink(target, "brs.dat"); }
void special_file(mode_t kind) { ASSERT_EQ(mknod("brs.dat", kind | 0666, 0), 0); }

// Loaded by somebody without special rights.
TEST_F(Game, LoadingWhateverTheFile) {
    struct File {
        const char* purpose;
        void (*make)();
        const char* outcome;
        int size;  ///< afterwards; -1 for no ordinary file
    };
    const File rows[] = {
        {"missing", [] {}, "0 0", 0},
        {"good", good_file, "14 142", 14464},
        {"may only be read", [] { file_for(0444); }, "14 142", 14464},
        {"may only be written", [] { file_for(0222); }, "Permission denied", 14464},
        {"missing, and may not be created", [] { fs::permissions(".", fs::perms(0555)); },
         "Permission denied", -1},
        {"directory", [] { fs::create_directory("brs.dat"); }, "Is a directory", -1},
        {"pipe, not to be waited for", [] { special_file(S_IFIFO); }, "Illegal seek", -1},
        {"socket", [] { special_file(S_IFSOCK); }, "Illegal seek", -1},
        {"link to where a file can be", [] { link_to("new"); }, "0 0", 0},
        {"link to nowhere", [] { link_to("no/where"); }, "No such file or directory", -1},
        {"endless device", [] { link_to("/dev/zero"); }, "0 0", -1},
    };
    for (const File& row : rows) {
        SCOPED_TRACE(row.purpose);
        const Workplace workplace;
        fs::permissions(".", fs::perms(0777));
        row.make();
        const auto load = [] {
            if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) std::abort();
            std::cerr << '<' << outcome(Ladda_Positioner) << '>';
            std::_Exit(0);
        };
        EXPECT_EXIT(load(), testing::ExitedWithCode(0), "<" + std::string(row.outcome) + ">");
        std::error_code none;
        const bool ordinary = fs::is_regular_file("brs.dat", none);
        EXPECT_EQ(ordinary ? static_cast<int>(fs::file_size("brs.dat")) : -1, row.size);
        fs::permissions(".", fs::perms(0777));
    }
}

}  // namespace
}  // namespace brusbo::test

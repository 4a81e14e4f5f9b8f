// The positions file: what its records mean.

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

/// A record of this length; behind the text anything may stand.
std::string record(const std::string& text, std::size_t length) {
    std::string bytes{static_cast<char>(length % 256), static_cast<char>(length / 256)};
    return bytes + (text + std::string(126, '7')).substr(0, 126);
}

std::string outcome_of_bytes(const std::string& bytes) {
    std::istringstream file(bytes);
    return outcome([&] { read_positions(file); });
}

TEST(PositionsFile, TextsAndTheirValues) {
    std::istringstream rows(
        "176=176|=0|  1 2  3=123|\t4\n2 =42|- 5=-5|+7=7|12abc=12|abc12=0|45.5=46|44.5=44|-0.5=0|"
        "-44.5=-44|44.51=45|45.49=45|1.2.3=1|.6=1|5.=5|.=0|+-5=0|1-2=1|1,5=1|1\r2=1|\2403=0|"
        "1e2=100|1 E + 2=100|15e-1=2|3e+=3|3ex=3|e3=0|2e1e1=20|2e1.5=20|0x1F=0|inf=0|1e-400=0|"
        "2147483647.4=2147483647|-2147483648.5=-2147483648|0e99999999999999999999=0|"
        "2147483647.5=outside|-2147483649=outside|-1e99999999999999999999=outside");
    for (std::string text, value; getline(getline(rows, text, '='), value, '|');) {
        const bool outside = value == "outside";
        EXPECT_EQ(outcome_of_bytes(record(text, text.size())),
                  outside ? "brs.dat, post 1: talet är för stort" : value + " 0 0");
    }
}

TEST(PositionsFile, LengthsAndShortFiles) {
    EXPECT_EQ(outcome_of_bytes("\3"), "0 0 0");                     // half a length
    EXPECT_EQ(outcome_of_bytes({'\3', '\0', '1', '2'}), "12 0 0");  // half a text
    EXPECT_EQ(outcome_of_bytes(record("1234", 2)), "12 0 0");
    EXPECT_EQ(outcome_of_bytes(record(std::string(125, '0') + "12", 126)), "1 0 0");
    for (const std::size_t length : {127U, 256U, 65535U})
        EXPECT_EQ(outcome_of_bytes(record("1", length)),
                  "brs.dat, post 1: texten är längre än posten");
    std::istream unreadable(nullptr);
    EXPECT_EQ(outcome([&] { read_positions(unreadable); }), "brs.dat, post 1: kan inte läsas");
}

}  // namespace
}  // namespace brusbo::test

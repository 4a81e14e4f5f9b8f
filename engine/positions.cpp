#include "engine/positions.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "engine/pieces.h"
#include "engine/state.h"
#include "engine/world.h"

namespace brusbo {

namespace {

constexpr int record_size = 128;
constexpr int longest_text = record_size - 2;
constexpr int goal_record = 57;

[[noreturn]] void stop(int error, const std::filesystem::path& path) {
    throw std::system_error(error, std::generic_category(), "Kan inte öppna " + path.string());
}

/// Opens without truncating; a missing file is created.
std::fstream open_positions(const std::filesystem::path& path) {
    std::error_code ignored;
    const auto kind = std::filesystem::status(path, ignored).type();
    // Neither has records to go to; opening a pipe could also wait for ever.
    if (kind == std::filesystem::file_type::directory) stop(EISDIR, path);
    if (kind == std::filesystem::file_type::fifo) stop(ESPIPE, path);

    using std::ios;
    std::fstream file(path, ios::in | ios::out | ios::app | ios::binary);
    if (!file.is_open()) {
        const int error = errno;
        file.open(path, ios::in | ios::binary);
        if (!file.is_open()) stop(error, path);
    }
    return file;
}

/// The number that a text starts with, rounded to the nearest whole number, halves to the even
/// neighbour; 0 for a text that starts with no number. Blanks, tabs and line feeds count for
/// nothing anywhere. Throws for a number outside 32 bits, with the place in the message.
std::int32_t whole_number(std::string_view text, const std::string& place) {
    // from_chars would also read words for numbers, but no plus in front.
    std::string number;
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\n') continue;
        if (std::string_view("0123456789.eE+-").find(c) == std::string_view::npos) break;
        number += c;
    }
    std::string_view digits = number;
    if (digits.starts_with('+')) digits.remove_prefix(digits.starts_with("+-") ? digits.size() : 1);

    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // A text so short leaves the range of a double by its exponent alone. Too small is zero,
        // too large is too large for 32 bits all the more.
        const bool tiny = digits[digits.find_first_of("eE") + 1] == '-';
        value = tiny ? 0 : std::numeric_limits<double>::infinity();
    }

    const double rounded = std::nearbyint(value);  // halves to the even neighbour
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        throw std::runtime_error(place + ": talet är för stort");
    return static_cast<std::int32_t>(rounded);
}

/// The value of record n, 1..113; what lies behind the end of the file reads as zero bytes.
std::int32_t record_value(std::istream& file, int n) {
    std::array<char, record_size> record{};
    file.clear();
    file.seekg(std::streamoff{record_size} * (n - 1));
    if (file) file.read(record.data(), record_size);
    const std::string place = "brs.dat, post " + std::to_string(n);
    if (file.bad()) throw std::runtime_error(place + ": kan inte läsas");

    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(record[at]); };
    const unsigned length = byte(0) + 256U * byte(1);
    if (length > longest_text) throw std::runtime_error(place + ": texten är längre än posten");
    return whole_number({record.data() + 2, length}, place);
}

}  // namespace

void read_positions(std::istream& file) {
    constexpr int ring = 40;
    for (const int axis : {axis_x, axis_y}) {
        const int offset = axis == axis_x ? 0 : goal_record;
        for (int r = 1; r <= 44; ++r) Positioner[1][axis][r] = record_value(file, offset + r);
        for (int p = 2; p <= most_players; ++p) {
            for (int r = 1; r <= ring; ++r)
                Positioner[p][axis][r] = Positioner[1][axis][(r - 1 + 10 * (p - 1)) % ring + 1];
            for (int r = 41; r <= 44; ++r)
                Positioner[p][axis][r] = record_value(file, offset + r + 4 * (p - 1));
        }
        const std::int32_t goal = record_value(file, goal_record);
        for (int p = 1; p <= most_players; ++p) Positioner[p][axis][square_goal] = goal;
    }
}

void Ladda_Positioner() {
    {
        std::fstream file = open_positions(std::filesystem::current_path() / "brs.dat");
        read_positions(file);
    }
    for (int p = 1; p <= most_players; ++p) {
        const LayoutPlace nest = screen().layout_place({Element::Pjäs, pieces_each * (p - 1)});
        Spelare[p].Bo_x = static_cast<std::int32_t>(std::nearbyint(nest.left));
        Spelare[p].Bo_y = static_cast<std::int32_t>(std::nearbyint(nest.top));
    }
    for (int j = 0; j < pieces_each; ++j)
        for (int p = 1; p <= most_players; ++p)
            Spelare[p].Bildnr[j] = static_cast<std::uint8_t>(pieces_each * (p - 1) + j);
    for (int b = 0; b < piece_count; ++b) {
        const int owner = Vilken_pjäs(static_cast<std::int16_t>(b));
        screen().set_picture({Element::Pjäs, b}, piece_picture(owner));
        screen().set_picture({Element::Plus, b}, {Store::gimgPlus, 0});
    }
    screen().set_picture(Element::mnuArkiv, {Store::gimgArkiv, 0});
    screen().set_picture(Element::mnuOm, {Store::gimgOm, 0});
    screen().set_picture(Element::butMini, {Store::gimgMinimera, 0});
    screen().set_picture(Element::butAvsluta, {Store::GimgAvsluta, 0});
}

}  // namespace brusbo

// Any bytes as a positions file: the reader fills the table or stops with an error of its own, and
// never touches the entries that no record fills.

#include "engine/positions.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <system_error>

#include "engine/state.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

bool fills_the_table(const std::string& bytes) {
    std::istringstream file(bytes);
    try {
        brusbo::read_positions(file);
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    brusbo::reset_to_program_start();
    const bool filled = fills_the_table(bytes);
    const auto table = brusbo::Positioner;

    for (int p = 1; p <= brusbo::most_players; ++p) {
        const auto& [x, y] = std::pair(table[p][brusbo::axis_x], table[p][brusbo::axis_y]);
        require(x[0] == 0 && y[0] == 0);
        for (int r = 46; r <= 55; ++r) require(x[r] == 0 && y[r] == 0);
        require(!filled || (x[45] == y[45] && x[45] == table[1][brusbo::axis_x][45]));
    }
    // Missing records are empty ones, and what follows the last record is never looked at.
    if (filled && size % 128 == 0) {
        std::string longer = bytes;
        longer.resize(113 * 128);
        require(fills_the_table(longer + std::string(256, '\xFF')));
        require(brusbo::Positioner == table);
    }
    return 0;
}

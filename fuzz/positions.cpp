// Any bytes as a positions file: the reader fills the table or stops with an error of its own, and
// never touches the entries that no record fills.

#include "engine/positions.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>

#include "engine/state.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brusbo;
    reset_to_program_start();
    std::istringstream file(std::string(data, data + size));
    try {
        read_positions(file);
    } catch (const std::runtime_error&) {
    }
    for (const auto& player : Positioner)
        for (const auto& axis : player)
            for (int square = 0; square <= square_finished; ++square)
                if ((square < 1 || square > square_goal) && axis[square] != 0) std::abort();
    return 0;
}

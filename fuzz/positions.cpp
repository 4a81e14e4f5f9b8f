// Any bytes as a positions file: the reader fills the table or stops with an error of its own.

#include "engine/positions.h"

#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream file(std::string(data, data + size));
    try {
        brusbo::read_positions(file);
    } catch (const std::runtime_error&) {
    }
    return 0;
}

// Builds wave files, good and bad.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace brusbo {

inline std::string little_endian(std::uint32_t value, std::size_t size) {
    std::string bytes;
    for (; size > 0; --size, value >>= 8U) bytes += static_cast<char>(value & 0xFFU);
    return bytes;
}

inline std::string chunk(const std::string& tag, const std::string& body) {
    const auto size = static_cast<std::uint32_t>(body.size());
    return tag + little_endian(size, 4) + body + std::string(size % 2, '\0');
}

inline std::string format_chunk(unsigned coding, unsigned channels, unsigned bits,
                                unsigned rate = 44100, const std::string& extension = "") {
    const unsigned frame = channels * bits / 8;
    return chunk("fmt ", little_endian(coding, 2) + little_endian(channels, 2) +
                             little_endian(rate, 4) + little_endian(rate * frame, 4) +
                             little_endian(frame, 2) + little_endian(bits, 2) + extension);
}

inline std::string wave(const std::string& chunks) {
    return "RIFF" + little_endian(static_cast<std::uint32_t>(chunks.size() + 4), 4) + "WAVE" +
           chunks;
}

}  // namespace brusbo

// Reads wave files into memory.
#pragma once

#include <pulse/sample.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace brusbo {

struct Clip {
    pa_sample_spec format;
    // Whole frames only, at least one.
    std::vector<std::uint8_t> samples;
};

// Nothing for anything but a complete wave file of at most 64 MiB with uncompressed samples
// (8, 16, 24 or 32 bits, or 32-bit floating point), any number of other chunks among them. Waits
// for no writer: pipes and devices are refused.
std::optional<Clip> read_wave_file(const std::string& path);

// The same for the bytes of a file.
std::optional<Clip> parse_wave(std::span<const std::uint8_t> file);

}  // namespace brusbo

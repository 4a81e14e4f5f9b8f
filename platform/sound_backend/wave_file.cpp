#include "platform/sound_backend/wave_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

namespace brusbo {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t largest_file = std::size_t{64} << 20U;
constexpr unsigned integer_samples = 1;
constexpr unsigned float_samples = 3;
constexpr unsigned extensible = 0xFFFE;

bool starts_with(Bytes bytes, std::string_view tag) {
    return bytes.size() >= tag.size() && std::equal(tag.begin(), tag.end(), bytes.begin());
}

// Little-endian.
std::uint32_t number(Bytes bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    while (size-- > 0) value = value << 8U | bytes[at + size];
    return value;
}

pa_sample_format_t sample_format(unsigned coding, unsigned bits) {
    if (coding == float_samples) return bits == 32 ? PA_SAMPLE_FLOAT32LE : PA_SAMPLE_INVALID;
    if (coding != integer_samples) return PA_SAMPLE_INVALID;
    switch (bits) {
        case 8:
            return PA_SAMPLE_U8;
        case 16:
            return PA_SAMPLE_S16LE;
        case 24:
            return PA_SAMPLE_S24LE;
        case 32:
            return PA_SAMPLE_S32LE;
        default:
            return PA_SAMPLE_INVALID;
    }
}

// Nothing when the chunk describes what cannot be played.
std::optional<pa_sample_spec> parse_format(Bytes chunk) {
    if (chunk.size() < 16) return {};
    auto coding = number(chunk, 0, 2);
    if (coding == extensible) {
        if (chunk.size() < 40) return {};
        coding = number(chunk, 24, 2);
    }
    const auto channels = number(chunk, 2, 2);
    if (channels > PA_CHANNELS_MAX) return {};
    const pa_sample_spec format{.format = sample_format(coding, number(chunk, 14, 2)),
                                .rate = number(chunk, 4, 4),
                                .channels = static_cast<std::uint8_t>(channels)};
    if (!pa_sample_spec_valid(&format)) return {};
    if (number(chunk, 12, 2) != pa_frame_size(&format)) return {};
    return format;
}

}  // namespace

std::optional<Clip> parse_wave(Bytes file) {
    if (file.size() < 12 || !starts_with(file, "RIFF") || !starts_with(file.subspan(8), "WAVE"))
        return {};
    std::optional<pa_sample_spec> format;
    for (Bytes rest = file.subspan(12); rest.size() >= 8;) {
        const std::size_t size = number(rest, 4, 4);
        if (size > rest.size() - 8) return {};
        const Bytes chunk = rest.subspan(8, size);
        if (starts_with(rest, "fmt ")) {
            format = parse_format(chunk);
            if (!format) return {};
        } else if (starts_with(rest, "data")) {
            if (!format) return {};
            const auto whole = chunk.first(size - size % pa_frame_size(&*format));
            if (whole.empty()) return {};
            return Clip{*format, {whole.begin(), whole.end()}};
        }
        // Chunks begin at even places.
        rest = rest.subspan(std::min(8 + size + size % 2, rest.size()));
    }
    return {};
}

std::optional<Clip> read_wave_file(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0) return {};
    std::vector<std::uint8_t> bytes;
    struct stat status {};
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0 &&
        static_cast<std::size_t>(status.st_size) <= largest_file) {
        bytes.resize(static_cast<std::size_t>(status.st_size));
        std::size_t length = 0;
        while (length < bytes.size()) {
            const auto count = read(file, bytes.data() + length, bytes.size() - length);
            if (count <= 0) break;
            length += static_cast<std::size_t>(count);
        }
        bytes.resize(length);
    }
    close(file);
    return parse_wave(bytes);
}

}  // namespace brusbo

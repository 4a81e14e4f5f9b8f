#include "platform/sound_backend/wave_file.h"

#include <gtest/gtest.h>

namespace brusbo {
namespace {

using namespace std::string_literals;

std::string two(std::size_t n) { return {static_cast<char>(n), static_cast<char>(n >> 8U)}; }
std::string four(std::size_t n) { return two(n) + two(n >> 16U); }

std::string chunk(const std::string& tag, const std::string& body) {
    return tag + four(body.size()) + body + std::string(body.size() % 2, '\0');
}

std::string format(unsigned code, unsigned channels, unsigned bits, const std::string& more = "") {
    const unsigned frame = channels * bits / 8;
    return chunk("fmt ", two(code) + two(channels) + four(44100) + four(44100 * frame) +
                             two(frame) + two(bits) + more);
}

std::string wave(const std::string& body) { return "RIFF" + four(body.size() + 4) + "WAVE" + body; }

const std::string ten = "0123456789";
const std::string data = chunk("data", ten);
const std::string good = wave(format(1, 1, 16) + data);
const std::string extension = "\x16\0\x10\0\0\0\0\0\1\0\0\0\0\0\x10\0"s + "12345678";

// The samples are none where the file is to be refused.
const struct {
    const char* what;
    std::string file;
    std::string samples;
    pa_sample_format_t format = PA_SAMPLE_INVALID;
} rows[] = {
    {"24 bits, last frame cut", wave(format(1, 1, 24) + data), "012345678", PA_SAMPLE_S24LE},
    {"floating point", wave(format(3, 1, 32) + data), "01234567", PA_SAMPLE_FLOAT32LE},
    {"extensible", wave(format(0xFFFE, 1, 16, extension) + data), ten, PA_SAMPLE_S16LE},
    {"odd chunk", wave(chunk("LIST", "odd") + format(1, 1, 16) + data), ten, PA_SAMPLE_S16LE},
    {"8 bits, odd data", wave(format(1, 1, 8) + "data\3\0\0\0abc"s), "abc", PA_SAMPLE_U8},
    {"big-endian", "RIFX" + good.substr(4), ""},
    {"half a sample", wave(format(1, 1, 16) + chunk("data", "1")), ""},
    {"data before its format", wave(data + format(1, 1, 16)), ""},
    {"cut in the head", good.substr(0, 11), ""},
    {"cut in the data", good.substr(0, good.size() - 1), ""},
    {"data of 4 GiB", wave(format(1, 1, 16) + "data\xff\xff\xff\xff" + ten), ""},
    {"format too short", wave(chunk("fmt ", "12345678") + data), ""},
    {"extensible without its extension", wave(format(0xFFFE, 1, 16) + data), ""},
    {"12 bits", wave(format(1, 2, 12) + data), ""},
    {"no channel", wave(format(1, 0, 16) + data), ""},
    {"257 channels", wave(format(1, 257, 8) + chunk("data", std::string(600, '1'))), ""},
    {"compressed", wave(format(0x55, 1, 16) + data), ""},
};

TEST(WaveFile, IsReadOrRefused) {
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        // No longer than the file, so that the sanitizers see a step beyond its end.
        const auto clip = parse_wave(std::vector<std::uint8_t>(row.file.begin(), row.file.end()));
        ASSERT_EQ(clip.has_value(), !row.samples.empty());
        if (!clip) continue;
        EXPECT_EQ(clip->format.format, row.format);
        EXPECT_EQ(clip->format.rate, 44100U);
        EXPECT_EQ(std::string(clip->samples.begin(), clip->samples.end()), row.samples);
    }
}

}  // namespace
}  // namespace brusbo

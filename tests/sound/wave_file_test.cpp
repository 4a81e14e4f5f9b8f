#include "platform/sound_backend/wave_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "tests/sound/waiting.h"
#include "tests/sound/wave_bytes.h"

namespace brusbo {
namespace {

struct Row {
    const char* what;
    std::string file;
    // Invalid where the file is to be refused.
    pa_sample_format_t format;
    std::string samples;
};

const std::string ten = "0123456789";
const std::string good_format = format_chunk(1, 1, 16);
const std::string good = wave(good_format + chunk("data", ten));
const std::string extension(std::string("\x16\0\x10\0\0\0\0\0\1\0\0\0\0\0\x10\0", 16) + "12345678");
constexpr auto refused = PA_SAMPLE_INVALID;

const Row rows[] = {
    {"8 bits", wave(format_chunk(1, 1, 8) + chunk("data", ten)), PA_SAMPLE_U8, ten},
    {"16 bits", good, PA_SAMPLE_S16LE, ten},
    {"24 bits, last frame cut", wave(format_chunk(1, 1, 24) + chunk("data", ten)), PA_SAMPLE_S24LE,
     "012345678"},
    {"32 bits", wave(format_chunk(1, 1, 32) + chunk("data", ten)), PA_SAMPLE_S32LE, "01234567"},
    {"floating point", wave(format_chunk(3, 1, 32) + chunk("data", ten)), PA_SAMPLE_FLOAT32LE,
     "01234567"},
    {"two channels", wave(format_chunk(1, 2, 16) + chunk("data", ten)), PA_SAMPLE_S16LE,
     "01234567"},
    {"extensible", wave(format_chunk(0xFFFE, 1, 16, 44100, extension) + chunk("data", ten)),
     PA_SAMPLE_S16LE, ten},
    {"other chunks, of odd length too",
     wave(chunk("LIST", "odd") + good_format + chunk("fact", "") + chunk("data", ten)),
     PA_SAMPLE_S16LE, ten},
    {"data of odd length without its filling byte",
     wave(format_chunk(1, 1, 8) + "data" + little_endian(3, 4) + "abc"), PA_SAMPLE_U8, "abc"},
    {"something after the data", good + "something", PA_SAMPLE_S16LE, ten},
    {"empty", "", refused, ""},
    {"text", "This is no wave file, however long it may go on.", refused, ""},
    {"big-endian", "RIFX" + good.substr(4), refused, ""},
    {"another RIFF file",
     "RIFF\x04\1\1\1"
     "AVI " +
         good.substr(12),
     refused, ""},
    {"no chunk", wave(""), refused, ""},
    {"no data", wave(good_format), refused, ""},
    {"no sample", wave(good_format + chunk("data", "")), refused, ""},
    {"half a sample", wave(good_format + chunk("data", "1")), refused, ""},
    {"data before its format", wave(chunk("data", ten) + good_format), refused, ""},
    {"cut in the data", good.substr(0, good.size() - 1), refused, ""},
    {"cut in the format", good.substr(0, 30), refused, ""},
    {"cut in the head", good.substr(0, 11), refused, ""},
    {"data of 4 GiB", wave(good_format + "data\xff\xff\xff\xff" + ten), refused, ""},
    {"a format of 4 GiB", wave("fmt \xff\xff\xff\xff" + good_format.substr(8)), refused, ""},
    {"format too short", wave(chunk("fmt ", "12345678") + chunk("data", ten)), refused, ""},
    {"12 bits", wave(format_chunk(1, 2, 12) + chunk("data", ten)), refused, ""},
    {"no bits", wave(format_chunk(1, 1, 0) + chunk("data", ten)), refused, ""},
    {"no channel", wave(format_chunk(1, 0, 16) + chunk("data", ten)), refused, ""},
    {"257 channels", wave(format_chunk(1, 257, 8) + chunk("data", std::string(600, '1'))), refused,
     ""},
    {"rate 0", wave(format_chunk(1, 1, 16, 0) + chunk("data", ten)), refused, ""},
    {"rate of 4 GHz", wave(format_chunk(1, 1, 16, 0xFFFFFFFFU) + chunk("data", ten)), refused, ""},
    {"compressed", wave(format_chunk(0x55, 1, 16) + chunk("data", ten)), refused, ""},
    {"extensible without its extension", wave(format_chunk(0xFFFE, 1, 16) + chunk("data", ten)),
     refused, ""},
};

TEST(WaveFile, IsReadOrRefused) {
    const TemporaryFolder folder;
    const auto path = folder.path / "row.wav";
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        std::ofstream(path, std::ios::binary) << row.file;
        const auto clip = read_wave_file(path);
        ASSERT_EQ(clip.has_value(), row.format != refused);
        if (!clip) continue;
        EXPECT_EQ(clip->format.format, row.format);
        EXPECT_EQ(clip->format.rate, 44100U);
        EXPECT_EQ(std::string(clip->samples.begin(), clip->samples.end()), row.samples);
    }
}

TEST(WaveFile, IsNothingButAFile) {
    const TemporaryFolder folder;
    const auto pipe = folder.path / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const auto& path : {pipe, folder.path, folder.path / "missing",
                             std::filesystem::path("/dev/zero"), std::filesystem::path()}) {
        EXPECT_FALSE(read_wave_file(path)) << path;
    }
    const auto huge = folder.path / "huge";
    std::ofstream(huge, std::ios::binary) << good;
    std::filesystem::resize_file(huge, std::uintmax_t{1} << 40U);
    EXPECT_FALSE(read_wave_file(huge));
}

}  // namespace
}  // namespace brusbo

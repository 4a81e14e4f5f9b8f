// The committed sounds: what the source gives, and within what a player's ears will bear.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "assets/tools/sound_synthesis.h"

namespace {

constexpr std::size_t header_length = 44;

std::string file_bytes(const std::string& name) {
    std::ifstream file(std::string(BRUSBO_ASSETS "/data/") + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::vector<std::int16_t> samples_of(const std::string& bytes) {
    std::vector<std::int16_t> samples;
    for (std::size_t at = header_length; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        samples.push_back(static_cast<std::int16_t>(low | (high << 8U)));
    }
    return samples;
}

double milliseconds(std::size_t samples) {
    return 1000.0 * static_cast<double>(samples) / brusbo::samples_per_second;
}

int peak(const std::vector<std::int16_t>& samples, std::size_t from = 0) {
    int highest = 0;
    for (std::size_t i = from; i < samples.size(); ++i) {
        highest = std::max(highest, std::abs(int(samples[i])));
    }
    return highest;
}

// The loudest 25 ms, in decibels of full scale.
double loudness(const std::vector<std::int16_t>& samples) {
    constexpr std::size_t window = brusbo::samples_per_second / 40;
    double sum = 0;
    double loudest = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        sum += double(samples[i]) * samples[i];
        if (i >= window) {
            sum -= double(samples[i - window]) * samples[i - window];
        }
        loudest = std::max(loudest, sum);
    }
    return 10 * std::log10(loudest / window / (32768.0 * 32768.0));
}

// The mathematics library may round the last bit of a sample differently.
TEST(CommittedSounds, AreWhatTheSourceGives) {
    for (const brusbo::NamedSound& sound : brusbo::all_sounds()) {
        const std::string made = brusbo::wave_file(sound.samples);
        const std::string committed = file_bytes(sound.file);
        ASSERT_EQ(committed.size(), made.size()) << sound.file;
        EXPECT_EQ(committed.substr(0, header_length), made.substr(0, header_length));
        const std::vector<std::int16_t> samples = samples_of(committed);
        for (std::size_t i = 0; i < samples.size(); ++i) {
            ASSERT_LE(std::abs(samples[i] - sound.samples[i]), 1) << sound.file << " at " << i;
        }
    }
}

TEST(CommittedSounds, AreSixteenBitMonoWaves) {
    // "RIFF", length, "WAVEfmt ", 16, PCM, 1 channel, 44100 Hz, 88200 bytes/s, 2 bytes, 16 bits
    const std::string format("WAVEfmt \x10\0\0\0\1\0\1\0\x44\xAC\0\0\x88\x58\1\0\2\0\x10\0data",
                             32);
    for (const char* name : {"s1.wav", "s2.wav", "s3.wav"}) {
        const std::string bytes = file_bytes(name);
        EXPECT_EQ(bytes.substr(0, 4), "RIFF") << name;
        EXPECT_EQ(bytes.substr(8, 32), format) << name;
    }
}

struct Limits {
    const char* file;
    double shortest;  // milliseconds, the closing silence included
    double longest;
};

TEST(CommittedSounds, KeepTheirLimits) {
    const Limits rows[] = {{"s1.wav", 20, 80}, {"s2.wav", 60, 150}, {"s3.wav", 900, 1200}};
    for (const Limits& row : rows) {
        SCOPED_TRACE(row.file);
        const std::vector<std::int16_t> samples = samples_of(file_bytes(row.file));
        EXPECT_GE(milliseconds(samples.size()), row.shortest);
        EXPECT_LE(milliseconds(samples.size()), row.longest);
        const int highest = peak(samples);
        EXPECT_GT(highest, 32768 / 8);
        EXPECT_LT(highest, 30000) << "clipped";
        std::size_t onset = 0;
        while (onset < samples.size() && std::abs(int(samples[onset])) < highest / 10) {
            ++onset;
        }
        EXPECT_LT(milliseconds(onset), 3);
        const std::size_t two = 2 * brusbo::samples_per_second / 1000;
        EXPECT_EQ(peak(samples, samples.size() - two), 0) << "ends in silence";
        EXPECT_LT(peak(samples, samples.size() - 4 * two), highest / 300) << "ends softly";
    }
}

TEST(CommittedSounds, AreLevelWithOneAnother) {
    const double click = loudness(samples_of(file_bytes("s1.wav")));
    const double step = loudness(samples_of(file_bytes("s2.wav")));
    const double die = loudness(samples_of(file_bytes("s3.wav")));
    EXPECT_NEAR(click, step, 3);
    EXPECT_NEAR(die, step, 3);
}

}  // namespace

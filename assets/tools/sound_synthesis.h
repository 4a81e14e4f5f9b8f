// The three sounds of the game, computed from nothing: small knocks of wood and bone.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace brusbo {

inline constexpr int samples_per_second = 44100;

struct NamedSound {
    std::string file;
    std::vector<std::int16_t> samples;  // mono
};

// s1.wav a click, s2.wav the step of a wooden counter, s3.wav a die shaken in a cup and thrown.
// The same samples on every run.
std::vector<NamedSound> all_sounds();

// A complete RIFF wave file: 16 bits, mono, `samples_per_second`.
std::string wave_file(const std::vector<std::int16_t>& samples);

}  // namespace brusbo

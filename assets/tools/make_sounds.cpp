// Makes the three sounds of the game, computed from nothing: small knocks of wood and bone. The
// same samples on every run. Usage: make_sounds FOLDER

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int samples_per_second = 44100;

using Samples = std::vector<std::int16_t>;  // mono
using Track = std::vector<double>;

std::size_t sample_index(double seconds) {
    return static_cast<std::size_t>(seconds * samples_per_second);
}

// A small generator of our own: the sounds must not depend on a library's.
class Noise {
   public:
    explicit Noise(std::uint32_t seed) : state_(seed) {}

    // Evenly distributed in [-1, 1).
    double next() {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<double>(state_ >> 8U) / 8388608.0 - 1.0;
    }

    double between(double low, double high) { return low + (next() + 1) / 2 * (high - low); }

   private:
    std::uint32_t state_;
};

// One way in which a struck body rings.
struct Mode {
    double hertz;
    double decay;  // seconds until the amplitude has fallen to 1/e
    double amplitude;
};

struct Knock {
    std::vector<Mode> modes;
    double contact;  // seconds during which the bodies touch: shorter sounds harder
    double contact_amplitude;
};

// Adds the knock, starting at `at` seconds; what would lie beyond the end of the track is dropped.
void strike(Track& track, double at, const Knock& knock, double loudness, double pitch,
            Noise& noise) {
    const std::size_t start = sample_index(at);
    double smoothed = 0;
    for (std::size_t i = start; i < track.size(); ++i) {
        const double t = static_cast<double>(i - start) / samples_per_second;
        double value = 0;
        for (const Mode& mode : knock.modes) {
            // A body that is struck takes a moment to swing: no step at the start.
            value += mode.amplitude * std::exp(-t / mode.decay) *
                     std::sin(2 * std::numbers::pi * mode.hertz * pitch * t);
        }
        smoothed += 0.45 * (noise.next() - smoothed);
        value += knock.contact_amplitude * std::exp(-t / knock.contact) * smoothed;
        track[i] += loudness * value;
    }
}

// The last `seconds` fade to nothing, so the end does not click.
void fade_out(Track& track, double seconds) {
    const std::size_t length = std::min(sample_index(seconds), track.size());
    for (std::size_t i = 0; i < length; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(length);
        track[track.size() - 1 - i] *= part * part * (3 - 2 * part);
    }
}

// Loudest stretch of 25 ms, as the ear hears a knock: mean square after taking off the lows.
double strength(const Track& track) {
    const std::size_t window = sample_index(0.025);
    double low = 0;
    double sum = 0;
    double strongest = 0;
    Track squares(track.size());
    for (std::size_t i = 0; i < track.size(); ++i) {
        low += 0.04 * (track[i] - low);
        squares[i] = (track[i] - low) * (track[i] - low);
        sum += squares[i];
        if (i >= window) sum -= squares[i - window];
        strongest = std::max(strongest, sum);
    }
    return std::sqrt(strongest / static_cast<double>(window));
}

// Brings the track to the strength (of full scale) and ends it in three milliseconds of silence.
Samples finished(Track track, double wanted_strength) {
    fade_out(track, 0.02);
    const double gain = wanted_strength / strength(track) * 32767;
    Samples samples;
    for (const double value : track) {
        samples.push_back(
            static_cast<std::int16_t>(std::lround(std::clamp(value * gain, -30000.0, 30000.0))));
    }
    samples.insert(samples.end(), sample_index(0.003), 0);
    return samples;
}

// A fingernail on a small wooden box.
Samples click() {
    const Knock knock{{{1750, 0.006, 0.9}, {2930, 0.004, 0.6}, {4600, 0.002, 0.35}}, 0.0012, 0.5};
    Noise noise(11);
    Track track(sample_index(0.060));
    strike(track, 0, knock, 1, 1, noise);
    return finished(std::move(track), 0.115);
}

// A counter set down in its hole: dull and warm, with a little of the board below it.
Samples step() {
    const Knock knock{
        {{190, 0.022, 0.55}, {520, 0.016, 0.9}, {1130, 0.010, 0.55}, {2070, 0.005, 0.25}},
        0.002,
        0.35};
    Noise noise(22);
    Track track(sample_index(0.120));
    strike(track, 0, knock, 1, 1, noise);
    return finished(std::move(track), 0.11);
}

// Shaken four times in a leather cup, thrown, and a few ever closer bounces on the board.
Samples throw_of_the_die() {
    const Knock cup{{{640, 0.012, 0.7}, {1480, 0.008, 0.6}, {2650, 0.005, 0.4}}, 0.002, 0.45};
    const Knock board{
        {{230, 0.020, 0.5}, {780, 0.014, 0.8}, {1900, 0.008, 0.6}, {3300, 0.004, 0.3}},
        0.0015,
        0.5};
    Noise noise(33);
    Noise chance(5);
    Track track(sample_index(1.06));
    double at = 0;
    while (at < 0.54) {
        const double swing = 0.72 + 0.28 * std::cos(2 * std::numbers::pi * at / 0.14);
        strike(track, at, cup, swing * chance.between(0.55, 1), chance.between(0.85, 1.2), noise);
        at += chance.between(0.022, 0.048);
    }
    at = 0.60;
    double gap = 0.115;
    double loudness = 1.25;
    while (gap > 0.012 && at < 1.0) {
        strike(track, at, board, loudness, chance.between(0.92, 1.1), noise);
        at += gap;
        gap *= chance.between(0.66, 0.78);
        loudness *= 0.74;
    }
    return finished(std::move(track), 0.13);
}

void append_number(std::string& bytes, std::uint32_t value, int length) {
    for (int i = 0; i < length; ++i) {
        bytes +=
            static_cast<char>(static_cast<unsigned char>(value >> (8U * static_cast<unsigned>(i))));
    }
}

/// A complete RIFF wave file: 16 bits, mono, `samples_per_second`.
std::string wave_file(const Samples& samples) {
    constexpr std::uint32_t bytes_per_sample = 2;
    const auto data_length = static_cast<std::uint32_t>(samples.size() * bytes_per_sample);
    std::string bytes = "RIFF";
    append_number(bytes, 36 + data_length, 4);
    bytes += "WAVEfmt ";
    append_number(bytes, 16, 4);
    append_number(bytes, 1, 2);  // PCM
    append_number(bytes, 1, 2);  // one channel
    append_number(bytes, samples_per_second, 4);
    append_number(bytes, samples_per_second * bytes_per_sample, 4);
    append_number(bytes, bytes_per_sample, 2);
    append_number(bytes, 8 * bytes_per_sample, 2);
    bytes += "data";
    append_number(bytes, data_length, 4);
    for (const std::int16_t sample : samples)
        append_number(bytes, static_cast<std::uint16_t>(sample), 2);
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_sounds FOLDER\n");
        return 2;
    }
    const std::pair<const char*, Samples> sounds[] = {
        {"s1.wav", click()}, {"s2.wav", step()}, {"s3.wav", throw_of_the_die()}};
    for (const auto& [name, samples] : sounds) {
        std::ofstream file(std::string(argv[1]) + '/' + name, std::ios::binary);
        file << wave_file(samples);
        file.close();
        if (!file) {
            std::perror(name);
            return 1;
        }
    }
    return 0;
}

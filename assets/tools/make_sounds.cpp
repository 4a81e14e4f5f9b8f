// Makes the three sounds of the game, computed from nothing: small knocks of wood and bone. The
// same samples on every run. Usage: make_sounds FOLDER

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <utility>
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

// One way in which a struck body rings; it is the body's own, however it is struck.
struct Mode {
    double hertz;
    double decay;  // seconds until the amplitude has fallen to 1/e
    double amplitude;
};

struct Hit {
    double at;  // seconds
    double loudness;
    double contact;    // seconds during which the bodies touch: shorter sounds harder
    double place = 0;  // part by which its place makes a mode stronger or weaker, at most
};

// How much of a new sample a low pass lets in that weakens what lies above `hertz`.
double share_below(double hertz) {
    return 1 - std::exp(-2 * std::numbers::pi * hertz / samples_per_second);
}

// Adds the hit; what would lie beyond the end of the track is dropped.
void strike(Track& track, std::vector<Mode> modes, const Hit& hit, Noise& noise) {
    constexpr double contact_amplitude = 0.7;
    for (Mode& mode : modes) {
        // A long touch does not set off what swings several times meanwhile.
        const double swings = mode.hertz * hit.contact;
        mode.amplitude *= noise.between(1 - hit.place, 1 + hit.place) / (1 + swings * swings);
    }
    const std::size_t start = sample_index(hit.at);
    double below_6000 = 0;
    double below_2000 = 0;
    for (std::size_t i = start; i < track.size(); ++i) {
        const double t = static_cast<double>(i - start) / samples_per_second;
        // A body that is struck takes a moment to swing: no step at the start.
        double value = 0;
        for (const auto& [hertz, decay, amplitude] : modes)
            value += amplitude * std::exp(-t / decay) * std::sin(2 * std::numbers::pi * hertz * t);
        const double sample = noise.next();
        below_6000 += share_below(6000) * (sample - below_6000);
        below_2000 += share_below(2000) * (sample - below_2000);
        const double touch = t / hit.contact * std::exp(1 - t / hit.contact);
        value += contact_amplitude * touch * (below_6000 - below_2000);
        track[i] += hit.loudness * value;
    }
}

// The room answers: each reflection is later by so many seconds and weaker by so much.
void reflect(Track& track) {
    constexpr std::pair<double, double> reflections[] = {
        {0.0043, 0.15}, {0.0071, 0.11}, {0.0112, 0.08}};
    const Track direct = track;
    for (const auto& [later, share] : reflections) {
        const std::size_t offset = sample_index(later);
        for (std::size_t i = offset; i < track.size(); ++i) track[i] += share * direct[i - offset];
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

// Takes off what only shifts the whole track, brings it to the strength (of full scale) and ends it
// in three milliseconds of silence.
Samples finished(Track track, double wanted_strength) {
    double shift = 0;
    for (double& value : track) {
        shift += share_below(30) * (value - shift);
        value -= shift;
    }
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
    const std::vector<Mode> box = {{520, 0.007, 0.55},
                                   {830, 0.006, 0.5},
                                   {1750, 0.006, 0.9},
                                   {2930, 0.004, 0.6},
                                   {4600, 0.002, 0.35}};
    Noise noise(11);
    Track track(sample_index(0.060));
    strike(track, box, {0, 1, 0.0001}, noise);
    return finished(std::move(track), 0.115);
}

const std::vector<Mode>& board() {
    static const std::vector<Mode> modes = {
        {180, 0.022, 0.45}, {310, 0.018, 0.45}, {520, 0.015, 0.8},  {790, 0.012, 0.6},
        {1260, 0.009, 0.5}, {1900, 0.007, 0.5}, {3300, 0.004, 0.35}};
    return modes;
}

// A counter set down in its hole, first on one side and at once on the whole foot; dull, because it
// is heard at every step.
Samples step() {
    Noise noise(22);
    Track track(sample_index(0.120));
    strike(track, board(), {0, 1, 0.0005}, noise);
    strike(track, board(), {0.0135, 0.26, 0.0007, 0.4}, noise);
    return finished(std::move(track), 0.11);
}

// Shaken in a leather cup, then thrown: a cube does not bounce like a ball, but on a corner and at
// once on an edge, late and heavily once more, until a last face lies down.
Samples throw_of_the_die() {
    const std::vector<Mode> cup = {{430, 0.014, 0.6},
                                   {640, 0.012, 0.7},
                                   {1080, 0.010, 0.5},
                                   {1480, 0.008, 0.6},
                                   {2650, 0.005, 0.4}};
    constexpr Hit shaken[] = {
        {0.000, 0.70, 0.0005, 0.5}, {0.074, 0.45, 0.0007, 0.5}, {0.137, 0.75, 0.0004, 0.5},
        {0.156, 0.35, 0.0006, 0.5}, {0.229, 0.50, 0.0007, 0.5}, {0.298, 0.80, 0.0004, 0.5},
        {0.384, 0.50, 0.0006, 0.5}, {0.403, 0.65, 0.0004, 0.5}, {0.478, 0.45, 0.0008, 0.5}};
    constexpr Hit thrown[] = {{0.600, 1.15, 0.0002, 0.5}, {0.618, 0.75, 0.0002, 0.5},
                              {0.742, 0.70, 0.0003, 0.5}, {0.803, 0.95, 0.0002, 0.5},
                              {0.821, 0.65, 0.0002, 0.5}, {0.905, 0.60, 0.0003, 0.5},
                              {0.958, 0.36, 0.0004, 0.5}, {1.003, 0.55, 0.0006, 0.3}};
    Noise noise(33);
    Track track(sample_index(1.15));
    for (const Hit& hit : shaken) strike(track, cup, hit, noise);
    for (const Hit& hit : thrown) strike(track, board(), hit, noise);
    reflect(track);
    return finished(std::move(track), 0.12);
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

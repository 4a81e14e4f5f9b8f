// The module that the program loads when it plays its first sound.
#include <endian.h>
#include <pulse/simple.h>
#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/sound_backend/sound_requests.h"

namespace brusbo {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

constexpr std::int64_t largest_file = 64 << 20;  // bytes, and samples in it
constexpr std::chrono::seconds longest_wait{2};

struct Clip {
    pa_sample_spec format{};
    std::vector<std::int16_t> samples;
    Clock::time_point requested;
};

/// Nothing for anything but a whole wave file with something in it. Waits for no writer: pipes and
/// devices are refused.
std::optional<Clip> read_clip(const std::string& path, Clock::time_point requested) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return {};
    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "rbe"), std::fclose);
    if (!file) return {};
    // libsndfile would play what is left of a file that was cut.
    std::array<std::uint32_t, 2> head{};
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(path, error));
    if (pread(fileno(file.get()), head.data(), sizeof head, 0) != sizeof head ||
        size > largest_file || size - std::int64_t{sizeof head} < le32toh(head[1]))
        return {};

    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> wave(
        sf_open_fd(fileno(file.get()), SFM_READ, &info, SF_FALSE), sf_close);
    const int type = info.format & SF_FORMAT_TYPEMASK;
    if (!wave || (type != SF_FORMAT_WAV && type != SF_FORMAT_WAVEX) || info.frames < 1 ||
        info.channels > int{PA_CHANNELS_MAX} || info.frames > largest_file / info.channels)
        return {};
    // Read as short integers, floating point would come at another loudness or as silence.
    std::vector<float> values(static_cast<std::size_t>(info.frames * info.channels));
    if (sf_readf_float(wave.get(), values.data(), info.frames) != info.frames) return {};
    Clip clip;
    clip.requested = requested;
    clip.format = {.format = PA_SAMPLE_S16NE,
                   .rate = static_cast<std::uint32_t>(info.samplerate),
                   .channels = static_cast<std::uint8_t>(info.channels)};
    for (const float value : values)
        clip.samples.push_back(
            static_cast<std::int16_t>(std::clamp(std::lrint(value * 0x8000), -0x8000L, 0x7FFFL)));
    return clip;
}

/// The next clip to play; nothing when there is none until then, or the thread is to end.
std::optional<Clip> next_clip(SoundRequests& requests, Clock::time_point until) {
    for (;;) {
        std::unique_lock lock(requests.lock);
        requests.changed.wait_until(lock, until,
                                    [&] { return !requests.path.empty() || requests.closed; });
        if (requests.path.empty() || requests.closed) return {};
        const auto path = std::exchange(requests.path, {});
        const auto made = requests.made;
        lock.unlock();
        if (auto clip = read_clip(path, made)) return clip;
    }
}

/// Returns the clip that cuts this one off; nothing when it was heard to its end, could not be, or
/// the thread is to end. Where the server does not answer it returns when the server does.
std::optional<Clip> play(const Clip& clip, SoundRequests& requests) {
    const auto* const format = &clip.format;
    const auto bytes = [format](microseconds time) {
        return static_cast<std::uint32_t>(
            pa_usec_to_bytes(static_cast<pa_usec_t>(time.count()), format));
    };
    // Of 4 MiB that a server takes.
    const std::size_t portion = (1 << 20) / pa_frame_size(format) * pa_frame_size(format);
    auto rest = std::as_bytes(std::span(clip.samples));
    auto now = rest.first(std::min(rest.size(), 2 * portion));
    // The server works 20 ms ahead. It starts when it has what it is given at once: with less to
    // wait for it may lose the first milliseconds, with its own choice never start a short clip.
    pa_buffer_attr buffer{};
    buffer.maxlength = buffer.fragsize = static_cast<std::uint32_t>(-1);
    buffer.prebuf = static_cast<std::uint32_t>(now.size());
    buffer.tlength = buffer.prebuf + bytes(std::chrono::milliseconds(200));
    buffer.minreq = buffer.tlength / 2 - bytes(std::chrono::milliseconds(10));
    const std::unique_ptr<pa_simple, void (*)(pa_simple*)> stream(
        pa_simple_new(nullptr, "Brusbo", PA_STREAM_PLAYBACK, nullptr, "Brusbo", format, nullptr,
                      &buffer, nullptr),
        pa_simple_free);
    // Nobody wants to hear what is long past.
    if (!stream || Clock::now() - clip.requested > longest_wait) return {};
    // Not drained, for that cannot be cut off; freed after all, or it would wake the program.
    auto heard = Clock::now() + std::chrono::milliseconds(500);
    for (;;) {
        if (pa_simple_write(stream.get(), now.data(), now.size(), nullptr) < 0) return {};
        heard += microseconds(pa_bytes_to_usec(now.size(), format));
        rest = rest.subspan(now.size());
        const microseconds early(rest.empty() ? 0 : pa_bytes_to_usec(portion, format));
        auto next = next_clip(requests, heard - early);
        const std::lock_guard lock(requests.lock);
        if (next || rest.empty() || requests.closed) return next;
        now = rest.first(std::min(rest.size(), portion));
    }
}

}  // namespace

}  // namespace brusbo

extern "C" __attribute__((visibility("default"))) void brusbo_sound_loop(
    brusbo::SoundRequests& requests) {
    constexpr auto never = brusbo::Clock::time_point::max();
    while (auto clip = brusbo::next_clip(requests, never))
        while (clip) clip = brusbo::play(*clip, requests);
}

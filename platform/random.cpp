#include "platform/random.h"

#include <QDateTime>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace brusbo {

void Random::seed(double seconds) {
    const auto microseconds = static_cast<std::uint64_t>(std::llround(seconds * 1e6));
    std::seed_seq both_halves{static_cast<std::uint32_t>(microseconds),
                              static_cast<std::uint32_t>(microseconds >> 32U)};
    generator_.seed(both_halves);
}

float Random::value() {
    constexpr float step = 1.0F / (1U << 24U);
    return static_cast<float>(generator_() >> 8U) * step;
}

double time_of_day() {
    using std::chrono::microseconds;
    const auto now = std::chrono::floor<microseconds>(std::chrono::system_clock::now());
    const std::int64_t since_epoch = now.time_since_epoch().count();
    const QTime time = QDateTime::fromMSecsSinceEpoch(since_epoch / 1000).time();
    return time.msecsSinceStartOfDay() * 1e-3 + static_cast<double>(since_epoch % 1000) * 1e-6;
}

}  // namespace brusbo

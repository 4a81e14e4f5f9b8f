#pragma once

#include <random>

namespace brusbo {

/// A uniform generator of single-precision values.
class Random {
   public:
    /// Starts a new sequence; every distinct number of microseconds in `seconds` gives its own.
    void seed(double seconds);

    /// 0 <= result < 1, one of the 2^24 multiples of 2^-24, so that nothing rounds up to 1.
    float value();

   private:
    std::mt19937 generator_;
};

/// Seconds since midnight, local time, with fractions.
double time_of_day();

}  // namespace brusbo

#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

#include "tests/display/harness/desktop.h"

namespace brusbo::display {

inline double in_milliseconds(std::chrono::steady_clock::duration length) {
    return std::chrono::duration<double, std::milli>(length).count();
}

/// The value that this part of the others, 0 to 1, does not exceed. Of at least one value.
double quantile(std::vector<double> values, double part);
inline double median(const std::vector<double>& values) { return quantile(values, 0.5); }

/// The lines of a benchmark, and whether all of its targets were met.
class Report {
   public:
    void print(const std::string& what, double figure, const char* unit) const;
    /// With a target: at most `most`.
    void print(const std::string& what, double figure, const char* unit, double most);

    /// For the end of main().
    int exit_code() const { return missed_ == 0 ? 0 : 1; }

   private:
    int missed_ = 0;
};

/// The process's proportional share of memory in KiB.
double proportional_memory(pid_t process);

/// Gives the desktop a sound server that plays to nobody, and returns what programs have to be told
/// to find it.
Environment start_sound_server(Desktop& desktop);

}  // namespace brusbo::display

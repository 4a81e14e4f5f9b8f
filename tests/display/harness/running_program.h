#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/display/harness/desktop.h"

namespace brusbo::display {

/// The program as a player starts it: from a folder with its positions file and its sounds, which
/// here is a copy.
class RunningProgram {
   public:
    /// `more` goes before the desktop's own environment; `program` stands for ours where it is not
    /// empty.
    explicit RunningProgram(const Desktop& desktop, const Environment& more = {},
                            const std::filesystem::path& program = {});
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    Child& process() { return *process_; }

    /// The sound files that it has opened, in order; it reads a file anew for each play. A sound
    /// that follows another at once may replace it unopened: wait for one before causing the next.
    const std::vector<std::string>& sounds();
    void wait_for_sounds(const std::vector<std::string>& expected);

   private:
    int watch_ = -1;
    std::vector<std::string> sounds_;
    std::unique_ptr<Child> process_;
};

}  // namespace brusbo::display

#pragma once

#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

namespace brusbo::display {

/// Asks every few milliseconds until the answer is true or not empty, and returns it. Throws when
/// it has not come in half a minute.
template <typename Question>
auto wait_for(const std::string& what, Question question) {
    using namespace std::chrono_literals;
    const auto deadline = std::chrono::steady_clock::now() + 30s;
    while (true) {
        if (auto answer = question()) return answer;
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("waited in vain for " + what);
        std::this_thread::sleep_for(3ms);
    }
}

}  // namespace brusbo::display

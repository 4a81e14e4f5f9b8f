// Waiting for things, and a place for files.
#pragma once

#include <stdlib.h>

#include <chrono>
#include <filesystem>
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

struct TemporaryFolder {
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "brusbo-display-XXXXXX";
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path;
};

}  // namespace brusbo::display

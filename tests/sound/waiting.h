// Waiting for things, and a place for files.
#pragma once

#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>

namespace brusbo {

// Throws when it has not come true after half a minute.
inline void wait_until(const std::function<bool()>& true_at_last, const std::string& what) {
    using namespace std::chrono_literals;
    const auto deadline = std::chrono::steady_clock::now() + 30s;
    while (!true_at_last()) {
        if (std::chrono::steady_clock::now() > deadline) {
            throw std::runtime_error("waited in vain for " + what);
        }
        std::this_thread::sleep_for(2ms);
    }
}

struct TemporaryFolder {
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "brusbo-sound-XXXXXX";
        if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
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

}  // namespace brusbo

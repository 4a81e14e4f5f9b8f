#include "platform/sound_backend/server_lookup.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace brusbo {

namespace {

constexpr const char* system_wide_server = "unix:/run/pulse/native";
// A local server knows its user by the socket; any cookie will do.
constexpr const char* blank_cookie = "/dev/zero";
constexpr std::uintmax_t cookie_size = 256;

// Empty when unset.
fs::path from_environment(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

bool is_own_directory(const fs::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == getuid();
}

bool is_cookie(const fs::path& path) {
    std::error_code missing;
    return fs::file_size(path, missing) == cookie_size && !missing;
}

bool has_own_server_place(const fs::path& configuration) {
    if (const auto place = from_environment("PULSE_RUNTIME_PATH"); !place.empty())
        return is_own_directory(place);
    if (const auto place = from_environment("XDG_RUNTIME_DIR"); !place.empty())
        return is_own_directory(place) && is_own_directory(place / "pulse");
    // Without a runtime directory a server puts a link to its place among its settings.
    std::error_code missing;
    const fs::directory_iterator settings(configuration, missing);
    return std::any_of(begin(settings), end(settings), [](const auto& entry) {
        return entry.path().native().ends_with("-runtime") && is_own_directory(entry.path());
    });
}

}  // namespace

std::optional<ServerLookup> look_up_server() {
    const auto home = from_environment("HOME");
    std::error_code error;
    if (home.empty() || (fs::exists(home, error) && !is_own_directory(home))) return {};
    auto configuration = from_environment("XDG_CONFIG_HOME");
    if (configuration.empty()) configuration = home / ".config";
    configuration /= "pulse";

    const bool configured = !from_environment("PULSE_CLIENTCONFIG").empty();
    ServerLookup lookup;
    if (!configured && from_environment("PULSE_SERVER").empty() &&
        !has_own_server_place(configuration))
        lookup.server = system_wide_server;
    if (!configured && from_environment("PULSE_COOKIE").empty() &&
        !is_cookie(configuration / "cookie") && !is_cookie(home / ".pulse-cookie"))
        lookup.cookie = blank_cookie;
    return lookup;
}

}  // namespace brusbo

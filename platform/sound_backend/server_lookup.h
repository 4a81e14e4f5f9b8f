// Where the sound server is asked for.
#pragma once

#include <optional>

namespace brusbo {

// How to connect without leaving anything behind: on its own the client library makes a directory
// and a cookie where it finds none, and complains on the standard error about directories of
// another user.
struct ServerLookup {
    // For pa_context_connect(); null for the library's own search.
    const char* server = nullptr;
    // For pa_context_load_cookie_from_file(); null when the library finds one.
    const char* cookie = nullptr;
};

// Nothing when the library should not be touched at all.
std::optional<ServerLookup> look_up_server();

}  // namespace brusbo

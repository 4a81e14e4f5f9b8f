#pragma once

namespace brusbo {

/// What the players are called until they type names of their own; index = player - 1.
inline constexpr const char* default_names[] = {"Röd", "Blå", "Grön", "Gul"};

}  // namespace brusbo

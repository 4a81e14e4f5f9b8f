#pragma once

#include <string_view>

namespace brusbo {

inline constexpr std::string_view sound_click = "s1.wav";
inline constexpr std::string_view sound_step = "s2.wav";
inline constexpr std::string_view sound_throw = "s3.wav";

/// Plays a sound file of the current directory, when sound is on.
void Spela_ljud(std::string_view Filnamn);

}  // namespace brusbo

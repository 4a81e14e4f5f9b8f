#pragma once

#include <initializer_list>
#include <string_view>

#include "engine/screen.h"
#include "engine/services.h"

namespace brusbo {

/// Gives the rules their screen and their services. Both must outlive every later call of a
/// rule; calling a rule before is a programming error and stops the program.
void set_world(Screen& screen, Services& services);

Screen& screen();
Services& services();

/// The parts one after another, in a buffer that the next call reuses: text of a step without an
/// allocation of its own.
std::string_view joined(std::initializer_list<std::string_view> parts);

/// The decimal digit of a number 0..9.
std::string_view digit(int number);

}  // namespace brusbo

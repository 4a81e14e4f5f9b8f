#include "engine/world.h"

#include <cassert>
#include <string>

namespace brusbo {

namespace {
Screen* connected_screen = nullptr;
Services* connected_services = nullptr;
}  // namespace

void set_world(Screen& screen, Services& services) {
    connected_screen = &screen;
    connected_services = &services;
}

Screen& screen() {
    assert(connected_screen != nullptr);
    return *connected_screen;
}

Services& services() {
    assert(connected_services != nullptr);
    return *connected_services;
}

std::string_view joined(std::initializer_list<std::string_view> parts) {
    static std::string buffer;
    buffer.clear();
    for (const std::string_view part : parts) buffer += part;
    return buffer;
}

std::string_view digit(int number) {
    assert(number >= 0 && number <= 9);
    return std::string_view("0123456789").substr(static_cast<std::size_t>(number), 1);
}

}  // namespace brusbo

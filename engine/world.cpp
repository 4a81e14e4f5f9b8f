#include "engine/world.h"

#include <cassert>
#include <string>

namespace brusbo {

namespace {
Elements* connected_elements = nullptr;
Services* connected_services = nullptr;
}  // namespace

void connect(Elements& elements, Services& services) {
    connected_elements = &elements;
    connected_services = &services;
}

Elements& screen() {
    assert(connected_elements != nullptr);
    return *connected_elements;
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

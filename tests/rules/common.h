#pragma once

#include <deque>
#include <filesystem>
#include <random>
#include <string>
#include <utility>

#include "engine/state.h"

// What the tests of the rules and of the windows share. Piece pictures are numbered b = 0..15.
namespace brusbo::test {

// Found from other drives of Windows, too.
inline const std::filesystem::path good_positions =
    std::filesystem::absolute(BRUSBO_ASSETS "/data/brs.dat");

/// A new directory that is the current one while the object lives.
struct Workplace {
    Workplace() {
        std::filesystem::create_directory(path);
        std::filesystem::current_path(path);
    }
    ~Workplace() {
        std::filesystem::current_path(before);
        std::filesystem::remove_all(path);
    }
    const std::filesystem::path before = std::filesystem::current_path();
    const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                       ("brusbo-" + std::to_string(std::random_device()()));
};

/// The random values that the rules ask for.
struct Dice {
    std::deque<float> scripted;  ///< used up first
    std::mt19937 generator;      ///< then this one delivers

    /// Makes a coming throw end on this face, with the die at 450 and faces 1 on the way.
    void script(int face) {
        scripted.insert(scripted.end(), 11, 0.0F);
        scripted.push_back(static_cast<float>((face - 0.5) / 6));
    }
    float next() {
        if (scripted.empty()) return static_cast<float>(generator() >> 8U) * 0x1p-24F;
        const float value = scripted.front();
        scripted.pop_front();
        return value;
    }
};

using Point = std::pair<int, int>;

inline Point point_of(int player, int square) {
    return {Positioner[player][axis_x][square], Positioner[player][axis_y][square]};
}

/// "0 5 55 0"
inline std::string squares(int player) {
    std::string result;
    for (const int square : Spelare[player].Ruta) result += std::to_string(square) + " ";
    return result.substr(0, result.size() - 1);
}

inline int square_of(int b) { return Spelare[b / 4 + 1].Ruta[b % 4 + 1]; }

/// Where a piece belongs now.
inline Point place_of(int b) {
    static constexpr Point corners[] = {{36, 34}, {274, 34}, {274, 272}, {36, 274}};
    if (square_of(b) != square_nest) return point_of(b / 4 + 1, square_of(b));
    const auto [left, top] = corners[b / 4];
    return {left + 42 * (b % 2), top + 42 * (b % 4 / 2)};
}

}  // namespace brusbo::test

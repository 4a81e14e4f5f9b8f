// Writes the positions file that fits the board picture: make_positions FILE

#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

struct Point {
    int left, top;  // of a piece's picture, pixels of the board picture
};

constexpr std::array<Point, 40> ring = {{
    {14, 142},  {46, 142},  {78, 142},  {110, 142}, {142, 142}, {142, 112}, {142, 80},  {142, 48},
    {142, 16},  {176, 16},  {210, 16},  {210, 48},  {210, 80},  {210, 112}, {210, 142}, {242, 142},
    {274, 142}, {306, 142}, {338, 142}, {338, 176}, {338, 210}, {306, 210}, {274, 210}, {242, 210},
    {210, 210}, {210, 240}, {210, 272}, {210, 304}, {210, 336}, {176, 336}, {142, 336}, {142, 304},
    {142, 272}, {142, 240}, {142, 210}, {110, 210}, {78, 210},  {46, 210},  {14, 210},  {14, 176},
}};

// Squares 41 to 44 of players 1 to 4.
constexpr std::array<Point, 16> home_lanes = {{
    {46, 176},
    {78, 176},
    {110, 176},
    {142, 176},  //
    {176, 48},
    {176, 80},
    {176, 112},
    {176, 142},  //
    {306, 176},
    {274, 176},
    {242, 176},
    {210, 176},  //
    {176, 304},
    {176, 272},
    {176, 240},
    {176, 210},  //
}};

constexpr int goal = 176;

std::vector<int> values() {
    std::vector<int> result;
    const auto add = [&](int Point::*coordinate) {
        for (const Point& point : ring) result.push_back(point.*coordinate);
        for (const Point& point : home_lanes) result.push_back(point.*coordinate);
    };
    add(&Point::left);
    result.push_back(goal);  // one record serves both coordinates
    add(&Point::top);
    return result;
}

/// 128 bytes: the text's length in two bytes, low byte first, the text, zeros.
std::string record(int value) {
    const std::string text = std::to_string(value);
    std::string bytes = {static_cast<char>(text.size()), 0};
    bytes += text;
    bytes.resize(128);
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_positions FILE\n");
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    for (const int value : values()) file << record(value);
    file.close();
    if (!file) {
        std::perror(argv[1]);
        return 1;
    }
    return 0;
}

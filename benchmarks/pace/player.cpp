#include "benchmarks/pace/player.h"

#include <fstream>

#include "benchmarks/watch/figures.h"
#include "engine/positions.h"
#include "engine/state.h"

namespace brusbo::display {

using std::chrono::milliseconds;

namespace {

constexpr QRect pictures{2, 36, 566, 378};  // of the main window: side panel and board

/// What is drawn together belongs to one picture.
constexpr milliseconds one_picture{60};
/// Longer than any pause, so an animation has ended.
constexpr milliseconds long_enough{450};

}  // namespace

Player::Player(Game& game, ScreenWatch& watch, const char* positions_file)
    : game_(game),
      watch_(watch),
      main_(game.play()),
      corner_(game.person().place(main_).topLeft()) {
    std::ifstream file(positions_file, std::ios::binary);
    read_positions(file);
    for (int player = 1; player <= most_players; ++player) {
        // The ring once, and each home lane.
        for (int square = player == 1 ? 1 : 41; square < square_goal; ++square)
            squares_.emplace_back(Positioner[player][axis_x][square],
                                  Positioner[player][axis_y][square]);
    }
}

void Player::click(QPoint place) { game_.person().click(corner_ + place); }

bool Player::shows(QPoint place, QRgb colour) const {
    return game_.person().image({corner_ + place, QSize(1, 1)}).pixel(0, 0) == colour;
}

/// From now until nothing has changed for `patience`, or for long enough after a first change.
void Player::collect(std::vector<double>& intervals, milliseconds patience) {
    // Message and buttons change too, at once with the end of an animation; only these areas count.
    const QRect die = die_row.translated(corner_);
    const QRect board = Picture1.translated(corner_);
    const QRect area = &intervals == &throw_intervals_ ? die : board;
    auto picture = watch_.wait_for_drawing(area, Clock::now() + patience);
    while (picture) {
        auto next = watch_.wait_for_drawing(area, *picture + long_enough);
        while (next && *next - *picture < one_picture)
            next = watch_.wait_for_drawing(area, *picture + long_enough);
        if (next) intervals.push_back(in_milliseconds(*next - *picture));
        picture = next;
    }
}

bool Player::walked_after_click(QPoint place) {
    const auto before = game_.image(main_, Picture1);
    watch_.wait_for_rest(pictures.translated(corner_), milliseconds(30));
    click(place);
    collect(walk_intervals_, milliseconds(120));
    return game_.image(main_, Picture1) != before;
}

void Player::move_a_piece() {
    const QImage bare = picture_image(picture("board")).convertToFormat(QImage::Format_RGB32);
    const QImage seen = game_.image(main_, Picture1);
    for (const QPoint square : squares_) {
        const QRect piece(square, QSize(26, 26));
        if (seen.copy(piece) == bare.copy(piece)) continue;
        if (walked_after_click(Picture1.topLeft() + piece.center())) return;
    }
    throw std::runtime_error("no piece can be moved");
}

void Player::take_turn() {
    constexpr QRgb nest_button = 0xFFFFFF00;
    constexpr QRgb next_button = 0xFFFFE0C0;
    const QPoint button_corner = butEn_pjäs.topLeft() + QPoint(4, 4);
    const QPoint next_corner(48, 370);

    watch_.wait_for_rest(pictures.translated(corner_), milliseconds(100));
    const QImage row = game_.image(main_, die_row);
    for (int x = row.width() - 1; x >= 0; --x) {
        if (qGray(row.pixel(x, row.height() / 4)) <= 235) continue;
        click(die_row.topLeft() + QPoint(x, row.height() / 4));
        break;
    }
    collect(throw_intervals_, std::chrono::seconds(5));
    // Nothing else is to be chosen where nothing is offered.
    const bool over = shows(next_corner, next_button);
    if (shows(button_corner, nest_button)) {
        if (!walked_after_click(butEn_pjäs.center())) throw std::runtime_error("no piece came out");
    } else if (!over) {
        move_a_piece();
    }
    watch_.wait_for_rest(pictures.translated(corner_), milliseconds(100));
    if (!shows(next_corner, next_button)) return;  // a six
    click({95, 374});
    watch_.wait_for_rest(pictures.translated(corner_), milliseconds(100));
}

}  // namespace brusbo::display

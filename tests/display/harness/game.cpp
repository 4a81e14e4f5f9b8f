#include "tests/display/harness/game.h"

#include <cmath>

namespace brusbo::display {

namespace {

constexpr char window_class[] = "brusbo";

/// A place with a colour that nothing below the window has there. An unpainted window looks like
/// what is below it.
struct Face {
    QSize size;
    QPoint spot;
    QRgb colour;
};

constexpr QRgb button_face = qRgb(255, 224, 192);

Face face_of(Shown which) {
    switch (which) {
        case Shown::start:
            return {{188, 305}, Starta.topLeft() + QPoint(8, 5), button_face};
        case Shown::main:
            return {{570, 416}, Picture1.topLeft() + QPoint(2, 2), qRgb(200, 150, 100)};
        case Shown::about:
            return {{188, 378}, Klar.topLeft() + QPoint(8, 5), button_face};
        case Shown::farewell:
            return {{312, 212}, {231, 9}, qRgb(240, 240, 240)};
        case Shown::winner:
            break;
    }
    return {{309, 294}, {200, 30}, qRgb(0, 0, 0)};
}

Environment with_scale(Environment environment, double scale) {
    if (scale != 1) environment["QT_SCALE_FACTOR"] = std::to_string(scale);
    return environment;
}

}  // namespace

Game::Game(const Desktop& desktop, double scale, Environment more,
           const std::filesystem::path& program)
    : desktop_(desktop),
      scale_(scale),
      program_(desktop, with_scale(std::move(more), scale), program) {}

QSize Game::size_of(Shown which) const {
    const QSizeF size = QSizeF(face_of(which).size) * scale_;
    return {static_cast<int>(std::lround(size.width())),
            static_cast<int>(std::lround(size.height()))};
}

WindowId Game::find(Shown which) {
    for (const WindowId window : person().windows_of(window_class))
        if (person().place(window).size() == size_of(which)) return window;
    return 0;
}

WindowId Game::window(Shown which) {
    return wait_for("window " + std::to_string(static_cast<int>(which)), [&]() -> WindowId {
        if (!program_.process().runs())
            throw std::runtime_error("the program has ended: " + program_.process().output());
        const WindowId window = find(which);
        if (window == 0) return 0;
        const Face face = face_of(which);
        const QImage spot = person().image({at(window, QPointF(face.spot)), QSize(1, 1)});
        return !spot.isNull() && spot.pixel(0, 0) == face.colour ? window : 0;
    });
}

void Game::wait_until_gone(Shown which) {
    wait_for("a window to go", [&] { return find(which) == 0; });
}

WindowId Game::menu() {
    // It takes no clicks beside it before it is painted: light grey, on a window without that.
    const auto is_painted = [&](WindowId window) {
        const QPoint blank = person().place(window).topRight() + QPoint(-5, 5);
        const QImage spot = person().image({blank, QSize(1, 1)});
        if (spot.isNull()) return false;
        const QRgb colour = spot.pixel(0, 0);
        return qBlue(colour) > 200 && qRed(colour) == qBlue(colour);
    };
    return wait_for("the menu", [&]() -> WindowId {
        for (const WindowId window : person().windows_of(window_class))
            if (person().is_unmanaged(window) &&
                !person().has_atom(window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_TOOLTIP") &&
                is_painted(window))
                return window;
        return 0;
    });
}

WindowId Game::play() {
    click(window(Shown::start), Starta);
    const WindowId main = window(Shown::main);
    wait_until_gone(Shown::start);
    if (scale_ == 1) wait_for_picture(main, butAvsluta.topLeft(), Picture::close_0);
    program_.wait_for_sounds({"s1.wav"});
    return main;
}

void Game::throw_die(WindowId main) {
    const QImage before = image(main, labMeddelande);
    const auto die = wait_for("the die", [&]() -> std::optional<QPoint> {
        // White pips' ground, wherever the last throw left the die.
        const QImage seen = image(main, die_row);
        for (int x = seen.width() - 1; x >= 0; --x)
            if (qGray(seen.pixel(x, seen.height() / 4)) > 235)
                return scaled(die_row).topLeft() + QPoint(x, seen.height() / 4);
        return {};
    });
    person().click(person().place(main).topLeft() + *die);
    wait_for_change("the message after a throw", main, labMeddelande, before);
}

QRect Game::scaled(const QRect& area) const {
    const QPointF corner = QPointF(area.topLeft()) * scale_;
    const QSizeF size = QSizeF(area.size()) * scale_;
    return {static_cast<int>(std::lround(corner.x())), static_cast<int>(std::lround(corner.y())),
            static_cast<int>(std::lround(size.width())),
            static_cast<int>(std::lround(size.height()))};
}

QPoint Game::at(WindowId window, QPointF place) const {
    return person().place(window).topLeft() +
           QPoint(static_cast<int>(std::floor((place.x() + 0.5) * scale_)),
                  static_cast<int>(std::floor((place.y() + 0.5) * scale_)));
}

QPoint Game::at(WindowId window, const QRect& area) const {
    return at(window, QPointF(area.center()));
}

void Game::click(WindowId window, const QRect& area, int button) const {
    person().click(at(window, area), button);
}

void Game::enter(WindowId window, const QRect& area) {
    constexpr int from_the_middle[] = {-2, -1, 1, 2};  // clicks are in the middle itself
    person().point_at(at(window, area) + QPoint(from_the_middle[++entered_ % 4], 0));
}

QImage Game::image(WindowId window, const QRect& area) const {
    return person().image(scaled(area).translated(person().place(window).topLeft()));
}

bool Game::shows(WindowId window, QPoint corner, Picture picture) const {
    const QImage wanted = brusbo::image(picture).convertToFormat(QImage::Format_RGB32);
    return image(window, {corner, wanted.size()}) == wanted;
}

void Game::wait_for_picture(WindowId window, QPoint corner, Picture picture) const {
    wait_for("picture " + std::to_string(static_cast<int>(picture)),
             [&] { return shows(window, corner, picture); });
}

void Game::wait_for_change(const std::string& what, WindowId window, const QRect& area,
                           const QImage& before) const {
    wait_for(what, [&] {
        const QImage now = image(window, area);
        return !now.isNull() && now != before;
    });
}

}  // namespace brusbo::display

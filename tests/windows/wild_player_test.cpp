// A player who does anything anywhere: legal and illegal, in every window, during throws and walks.

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <cstdio>
#include <cstdlib>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class WildPlayer : public Stage, public testing::WithParamInterface<int> {
   protected:
    int below(int count) { return static_cast<int>(generator_() % static_cast<unsigned>(count)); }

    template <class Container>
    auto one_of(const Container& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(std::size(choices))))];
    }

    /// Acts from whatever loop runs: the test's own, a modal window's, the menu's, a pause's.
    void go_on() {
        // The step must not be lost when the one before has not come back yet.
        QTimer::singleShot(0, qApp, [this] {
            if (!done_) go_on();
        });
        check();
        stuck_ = InputGate::instance().closed() ? stuck_ + 1 : 0;
        if (stuck_ > 20'000) {
            std::fprintf(stderr, "stuck after %s\n", last_actions().c_str());
            std::abort();
        }
        if (HasFailure() || (actions_left_ <= 0 && quiet())) {
            done_ = true;
            return;
        }
        --actions_left_;
        if (window("MFrm")->isMinimized()) window("MFrm")->showNormal();
        if (actions_left_ < 0 || below(3) > 0)
            act_sensibly();
        else
            act_wildly();
    }

    std::string last_actions() const {
        std::string last;
        for (std::size_t i = log_.size() > 40 ? log_.size() - 40 : 0; i < log_.size(); ++i)
            last += "\n  " + log_[i];
        return last;
    }

    static bool quiet() {
        return !InputGate::instance().closed() && QApplication::activeModalWidget() == nullptr &&
               QApplication::activePopupWidget() == nullptr && shown("MFrm");
    }

    /// A winner window stands in the middle of a move.
    void check() {
        if (InputGate::instance().closed() || shown("Grattis")) return;
        ++checks_;
        const char* const broken = broken_invariant();
        ASSERT_EQ(broken, nullptr) << log_.back();
        ASSERT_EQ(difference(), "") << log_.back();
    }

    void act_sensibly() {
        if (QWidget* menu = QApplication::activePopupWidget())
            return press(*menu, {below(menu->width()), below(menu->height())}, Qt::LeftButton);
        if (shown("Startfrm"))
            return press(one_of(std::array{"Startfrm/Starta", "Startfrm/AntSpelare(1)",
                                           "Startfrm/AntSpelare(2)", "Startfrm/AntSpelare(3)"}));
        if (shown("Grattis"))
            return press(one_of(std::array{"Grattis/butNytt_spel", "Grattis/butNytt_snabbt"}));
        if (shown("frmOm")) return press("frmOm/Klar");
        if (below(50) == 0 && !InputGate::instance().closed()) return bring_an_end_near();
        if (butNästa_visible) return press("butNästa");
        if (Tärning_enabled) return press("Tärning");
        if (butTvå_pjäser_visible && below(3) == 0) return press("butTvå_pjäser");
        if (butEn_pjäs_visible && below(2) == 0) return press("butEn_pjäs");
        press("Pjäs(" + std::to_string(4 * (Aktuell_spelare - 1) + below(4)) + ")");
    }

    /// So that games end; in home lanes nobody meets anybody.
    void bring_an_end_near() {
        log_.emplace_back("an end near");
        for (int player = 1; player <= Antal_spelare; ++player)
            place(player,
                  "55 " + std::to_string(40 + player % 2) + (below(2) == 0 ? " 55 44" : " 55 0"));
        // What was offered may have lost its ground.
        Val12(false);
        if (!Tärning_enabled && !butNästa_visible) Klar();
    }

    void act_wildly() {
        QWidget* const top = any_window();
        QWidget* const element = any_child(*top);
        switch (below(12)) {
            case 0:
            case 1:
            case 2:
                return press(*top, {below(top->width()), below(top->height())},
                             one_of(std::array{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}));
            case 3:
                press(*element, element->rect().center(), Qt::LeftButton);
                time_ -= 900;  // a double click
                return press(*element, element->rect().center(), Qt::LeftButton);
            case 4:
                return send(*top, {below(top->width() + 9) - 4, below(40)}, Qt::NoButton,
                            QEvent::MouseMove);
            case 5:
            case 6:
                return press_key(*top);
            case 7: {
                log_.push_back("wheel on " + name_of(*top));
                const QPointF place(below(top->width()), below(top->height()));
                QCoreApplication::postEvent(
                    top->windowHandle(),
                    new QWheelEvent(place, top->mapToGlobal(place), {}, {0, 120}, Qt::NoButton, {},
                                    Qt::NoScrollPhase, false));
                return;
            }
            case 8:
                if (blocked_by_modal(*top)) return;
                log_.push_back("close request to " + name_of(*top));
                QCoreApplication::postEvent(top->windowHandle(), new QCloseEvent);
                return;
            case 9: {
                log_.push_back("accessibility on " + name_of(*element));
                auto* const interface = QAccessible::queryAccessibleInterface(element);
                auto* const actions = interface == nullptr ? nullptr : interface->actionInterface();
                if (actions != nullptr)
                    for (const QString& action : actions->actionNames()) actions->doAction(action);
                return;
            }
            case 10: {
                auto* const button = qobject_cast<QAbstractButton*>(element);
                if (button == nullptr || blocked_by_modal(*top)) return;
                log_.push_back("programmatic click on " + name_of(*element));
                return button->click();
            }
            default:
                if (blocked_by_modal(*top)) return;
                log_.push_back("activation of " + name_of(*top));
                return top->activateWindow();
        }
    }

    void press_key(QWidget& top) {
        const auto key = one_of(std::array{Qt::Key_Escape, Qt::Key_Tab, Qt::Key_F2, Qt::Key_Return,
                                           Qt::Key_Space, Qt::Key_A, Qt::Key_S, Qt::Key_Backspace,
                                           Qt::Key_Down, Qt::Key_F4, Qt::Key_Delete});
        log_.push_back("key " + std::to_string(key) + " to " + name_of(top));
        const QString text = key < 0x80 ? QString(QChar(key)) : QString();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(top.windowHandle(), type, key, {}, text, false, 1);
    }

    void press(const std::string& element) {
        press(at(element), at(element).rect().center(), Qt::LeftButton);
    }

    void press(QWidget& widget, QPoint place, Qt::MouseButton button) {
        QWidget* const top = widget.window();
        const QPoint in_window = widget.mapTo(top, place);
        log_.push_back("button " + std::to_string(button) + " on " + name_of(widget));
        time_ += 1000;
        send(*top, in_window, button, QEvent::MouseButtonPress);
        send(*top, in_window, button, QEvent::MouseButtonRelease);
    }

    /// Queued like the window system's own.
    void send(const QWidget& top, QPoint place, Qt::MouseButton button, QEvent::Type type) const {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonPress ? button : Qt::MouseButtons(Qt::NoButton);
        if (top.windowHandle() != nullptr)
            qt_handleMouseEvent(top.windowHandle(), place, top.mapToGlobal(place), held, button,
                                type, {}, time_);
    }

    static std::string name_of(const QWidget& widget) {
        return widget.window()->objectName().toStdString() + "/" +
               widget.objectName().toStdString();
    }

    QWidget* any_window() {
        std::vector<QWidget*> open;
        for (const char* name : {"Startfrm", "MFrm", "MFrm", "MFrm", "Grattis", "frmOm", "Slut"})
            if (shown(name) && window(name)->windowHandle() != nullptr)
                open.push_back(window(name));
        return one_of(open);
    }

    QWidget* any_child(QWidget& top) {
        std::vector<QWidget*> visible;
        for (QWidget* child : top.findChildren<QWidget*>())
            if (child->isVisible() && !child->isWindow()) visible.push_back(child);
        return one_of(visible);
    }

    std::mt19937 generator_{20261122};
    std::vector<std::string> log_{"the start"};
    int actions_left_ = 20'000;
    int checks_ = 0;
    int stuck_ = 0;
    int time_ = 1'000'000;
    bool done_ = false;
};

TEST_P(WildPlayer, BreaksNothing) {
    start(GetParam());
    generator_.seed(static_cast<unsigned>(GetParam()));
    world->generator.seed(static_cast<unsigned>(GetParam()));
    world->pauses_to_real_one = 3;
    go_on();
    while (!done_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    settle();
    EXPECT_FALSE(HasFailure()) << "the last actions:" << last_actions();
    EXPECT_GT(checks_, 5000);
    EXPECT_GT(world->winners, 4) << "games come to their end";
    EXPECT_GT(board_resets, 20U);
    EXPECT_EQ(difference(), "");
    RecordProperty("checks", checks_);
    RecordProperty("winners", world->winners);
}

INSTANTIATE_TEST_SUITE_P(Players, WildPlayer, testing::Values(2, 3, 4));

}  // namespace
}  // namespace brusbo::test

// A player who does anything anywhere: legal and illegal, in every window, during throws and walks.

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QTest>
#include <QTimer>
#include <QWindow>

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
        ASSERT_EQ(broken_invariant(), nullptr) << log_.back();
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
        const QPoint place(below(top->width() + 9) - 4, below(top->height()));
        const int what = below(10);
        log_.push_back("act " + std::to_string(what) + " on " + name_of(*element));
        if (what > 6 && blocked_by_modal(*top)) return;
        if (what < 3)
            return press(*top, place,
                         one_of(std::array{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}));
        if (what == 3) return press(*element, element->rect().center(), Qt::LeftButton, 2);
        if (what == 4) return send(*top, place, Qt::NoButton, QEvent::MouseMove);
        if (what == 5) return press_key(*top);
        if (what == 6) {
            auto* const interface = QAccessible::queryAccessibleInterface(element);
            auto* const actions = interface == nullptr ? nullptr : interface->actionInterface();
            if (actions == nullptr) return;
            for (const QString& action : actions->actionNames()) actions->doAction(action);
        } else if (what == 7) {
            QCoreApplication::postEvent(top->windowHandle(), new QCloseEvent);
        } else if (what == 8) {
            if (auto* button = qobject_cast<QAbstractButton*>(element)) button->click();
        } else {
            top->activateWindow();
        }
    }

    void press_key(QWidget& top) {
        const auto key = one_of(std::array{Qt::Key_Escape, Qt::Key_Tab, Qt::Key_F2, Qt::Key_Return,
                                           Qt::Key_Space, Qt::Key_A, Qt::Key_S, Qt::Key_Backspace,
                                           Qt::Key_Down, Qt::Key_F4, Qt::Key_Delete});
        const QString text = key < 0x80 ? QString(QChar(key)) : QString();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(top.windowHandle(), type, key, {}, text, false, 1);
    }

    void press(const std::string& element) {
        log_.push_back("click on " + element);
        press(at(element), at(element).rect().center(), Qt::LeftButton);
    }

    void press(QWidget& widget, QPoint place, Qt::MouseButton button, int times = 1) {
        QWidget& top = *widget.window();
        time_ += 1000;
        for (; times > 0; --times)
            for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
                send(top, widget.mapTo(&top, place), button, type);
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
        return (widget.window()->objectName() + "/" + widget.objectName()).toStdString();
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
    int actions_left_ = 12'000;
    int checks_ = 0;
    int time_ = 1'000'000;
    bool done_ = false;
};

TEST_P(WildPlayer, BreaksNothing) {
    start(GetParam());
    world->dice.generator.seed(static_cast<unsigned>(GetParam()));
    world->pauses_to_real_one = 3;
    go_on();
    while (!done_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    settle();
    EXPECT_FALSE(HasFailure()) << "the last actions:" << last_actions();
    EXPECT_GT(checks_, 3000);
    EXPECT_GT(world->winners, 0) << "games come to their end";
    EXPECT_GT(board_resets, 20U);
    EXPECT_EQ(difference(), "");
}

INSTANTIATE_TEST_SUITE_P(Players, WildPlayer, testing::Values(2, 3, 4));

}  // namespace
}  // namespace brusbo::test

// A player who does anything anywhere: legal and illegal, in every window, during throws and walks.

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
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
        done_ = HasFailure() || (actions_left_ <= 0 && is_quiet());
        if (done_) return;
        --actions_left_;
        if (window("MFrm")->isMinimized()) window("MFrm")->showNormal();
        if (actions_left_ < 0 || below(3) > 0)
            act_sensibly();
        else
            act_wildly();
    }

    static bool is_quiet() {
        return !InputGate::instance().closed() && QApplication::activeModalWidget() == nullptr &&
               QApplication::activePopupWidget() == nullptr && shown("MFrm");
    }

    /// A winner window stands in the middle of a move.
    void check() {
        if (InputGate::instance().closed() || shown("Grattis")) return;
        ++checks_;
        log_.erase(0, log_.size() < 2000 ? 0 : log_.size() - 2000);
        ASSERT_EQ(broken_invariant(), nullptr) << log_;
        ASSERT_EQ(difference(), "") << log_;
    }

    void act_sensibly() {
        if (QWidget* menu = QApplication::activePopupWidget())
            return press(*menu, {below(menu->width()), below(menu->height())}, Qt::LeftButton);
        std::vector<std::string> offered;
        for (const std::string name :
             {"Startfrm/Starta", "Startfrm/AntSpelare(1)", "Startfrm/AntSpelare(2)",
              "Startfrm/AntSpelare(3)", "Grattis/butNytt_spel", "Grattis/butNytt_snabbt",
              "frmOm/Klar"})
            if (shown(name.substr(0, name.find('/')))) offered.push_back(name);
        if (offered.empty()) {
            if (below(50) == 0 && !InputGate::instance().closed()) return bring_an_end_near();
            for (const char* name : {"butNästa", "Tärning", "butEn_pjäs", "butTvå_pjäser"})
                if (visible(name) && at(name).isEnabled()) offered.emplace_back(name);
            if (!Tärning_enabled && !butNästa_visible)
                offered.push_back(numbered("Pjäs", 4 * (Aktuell_spelare - 1) + below(4)));
        }
        const std::string element = one_of(offered);
        log_ += "click on " + element + "\n";
        press(at(element), at(element).rect().center(), Qt::LeftButton);
    }

    /// So that games end; in home lanes nobody meets anybody.
    void bring_an_end_near() {
        log_ += "an end near\n";
        for (int player = 1; player <= Antal_spelare; ++player)
            place(player,
                  "55 " + std::to_string(40 + player % 2) + (below(2) == 0 ? " 55 44" : " 55 0"));
        // What was offered may have lost its ground.
        Val12(false);
        if (!Tärning_enabled && !butNästa_visible) Klar();
    }

    void act_wildly() {
        std::vector<QWidget*> windows, children;
        for (const char* name : {"Startfrm", "MFrm", "MFrm", "MFrm", "Grattis", "frmOm", "Slut"})
            if (shown(name)) windows.push_back(window(name));
        QWidget& top = *one_of(windows);
        for (QWidget* child : top.findChildren<QWidget*>())
            if (child->isVisible() && !child->isWindow()) children.push_back(child);
        QWidget& element = *one_of(children);
        const QPoint place(below(top.width() + 9) - 4, below(top.height()));
        const int what = below(11);
        log_ += std::to_string(what) + " on " +
                (top.objectName() + "/" + element.objectName() + "\n").toStdString();
        if (what > 6 && blocked_by_modal(top)) return;
        if (what < 3)
            press(top, place,
                  one_of(std::array{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}));
        else if (what == 3)
            press(element, element.rect().center(), Qt::LeftButton, 2);
        else if (what == 4)
            send(top, place, Qt::NoButton, QEvent::MouseMove);
        else if (what == 5)
            press_key(top);
        else if (what == 6)
            act_accessibly(element);
        else if (what == 7)
            QCoreApplication::postEvent(top.windowHandle(), new QCloseEvent);
        else if (what == 8 && element.inherits("QAbstractButton"))
            static_cast<QAbstractButton&>(element).click();
        else if (what == 9)
            turn_wheel(top, place);
        else
            top.activateWindow();
    }

    void press_key(QWidget& top) {
        const auto key = one_of(std::array{Qt::Key_Escape, Qt::Key_Tab, Qt::Key_F2, Qt::Key_Return,
                                           Qt::Key_Space, Qt::Key_A, Qt::Key_S, Qt::Key_Backspace,
                                           Qt::Key_Down, Qt::Key_F4, Qt::Key_Delete});
        const QString text = key < 0x80 ? QString(QChar(key)) : QString();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(top.windowHandle(), type, key, {}, text, false, 1);
    }

    static void turn_wheel(QWidget& top, QPoint place) {
        QCoreApplication::postEvent(
            top.windowHandle(),
            new QWheelEvent(place, top.mapToGlobal(place), {}, {0, 120}, Qt::NoButton,
                            Qt::NoModifier, Qt::NoScrollPhase, false));
    }

    static void act_accessibly(QWidget& element) {
        auto* const interface = QAccessible::queryAccessibleInterface(&element);
        auto* const actions = interface == nullptr ? nullptr : interface->actionInterface();
        if (actions == nullptr) return;
        for (const QString& action : actions->actionNames()) actions->doAction(action);
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

    std::mt19937 generator_{20261122};
    std::string log_;  ///< the last actions
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
    EXPECT_GT(checks_, 3000);
    EXPECT_GT(world->winners, 0) << "games come to their end";
    EXPECT_GT(board_resets, 20U);
    EXPECT_EQ(difference(), "");
}

INSTANTIATE_TEST_SUITE_P(Players, WildPlayer, testing::Values(2, 3, 4));

}  // namespace
}  // namespace brusbo::test

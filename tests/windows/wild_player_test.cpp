// A player who does anything anywhere: legal and illegal, in every window, during throws and walks.
// And a game that goes on and on.

#include <malloc.h>

#include <QAbstractButton>
#include <QApplication>

#include "tests/windows/stage.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace brusbo::test {
namespace {

class WildPlayer : public Stage, public testing::WithParamInterface<int> {
   protected:
    int below(int count) { return static_cast<int>(generator_() % static_cast<unsigned>(count)); }

    template <class Container>
    auto one_of(const Container& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(std::size(choices))))];
    }

    /// Words that wait for nothing, and at the end others until all is quiet.
    std::string next_word() override {
        if (!is_wild_) return Stage::next_word();
        if (--words_left_ <= 0 && !InputGate::instance().closed() && shown("MFrm") &&
            QApplication::activeModalWidget() == nullptr &&
            QApplication::activePopupWidget() == nullptr)
            is_wild_ = false;
        if (!is_wild_ || HasFailure()) return {};
        if (at("MFrm").isMinimized()) at("MFrm").showNormal();
        const std::string word = words_left_ > 0 && below(3) == 0 ? wild_word() : sensible_word();
        log_ = log_.substr(log_.size() < 2000 ? 0 : log_.size() - 2000) + " " + word;
        return "!" + word;
    }

    void note() override {
        if (!is_wild_) return Stage::note();
        ++checks_;
        EXPECT_EQ(fault(), "") << log_;
    }

    std::string sensible_word() {
        if (QApplication::activePopupWidget() != nullptr)
            return one_of(std::array{"menu/mnuNytt_spel", "menu/mnuNytt_snabbt", "key:Escape"});
        std::vector<std::string> offered;
        for (const std::string name :
             {"Startfrm/Starta", "Startfrm/AntSpelare(1)", "Startfrm/AntSpelare(2)",
              "Startfrm/AntSpelare(3)", "Grattis/butNytt_spel", "Grattis/butNytt_snabbt",
              "frmOm/Klar"})
            if (shown(name.substr(0, name.find('/')))) offered.push_back(name);
        if (!offered.empty()) return one_of(offered);
        if (below(50) == 0 && !InputGate::instance().closed()) bring_an_end_near();
        for (const char* name : {"butNästa", "Tärning", "butEn_pjäs", "butTvå_pjäser"})
            if (!at(name).isHidden() && at(name).isEnabled()) offered.emplace_back(name);
        if (!Tärning_enabled && !butNästa_visible)
            offered.push_back(numbered("Pjäs", 4 * (Aktuell_spelare - 1) + below(4)));
        return one_of(offered);
    }

    /// So that games end; in home lanes nobody meets anybody.
    void bring_an_end_near() {
        for (int player = 1; player <= Antal_spelare; ++player)
            place(player,
                  "55 " + std::to_string(40 + player % 2) + (below(2) == 0 ? " 55 44" : " 55 0"));
        // What was offered may have lost its ground.
        Val12(false);
        if (!Tärning_enabled && !butNästa_visible) Klar();
    }

    std::string wild_word() {
        std::vector<std::string> windows, names;
        for (const char* name : {"Startfrm", "MFrm", "MFrm", "MFrm", "Grattis", "frmOm", "Slut"})
            if (shown(name)) windows.emplace_back(name);
        const std::string top = one_of(windows);
        for (const QWidget* child : at(top).findChildren<QWidget*>())
            if (child->isVisible() && !child->isWindow() && !child->objectName().isEmpty())
                names.push_back(child->objectName().toStdString());
        const std::string element = top + "/" + one_of(names);
        const std::string place = top + "@" + std::to_string(below(at(top).width() + 9) - 4) + "," +
                                  std::to_string(below(at(top).height()));
        const bool is_free = !blocked_by_modal(at(top));
        const std::string verb = one_of(
            std::array{"", "right", "middle", "hover", "twice", "reader", "key", "close", "wheel"});
        if (verb == "key")
            return "key:" +
                   std::string(one_of(std::array{"Esc", "Tab", "F2", "Return", "Space", "A", "S",
                                                 "Backspace", "Down", "F4", "Del"}));
        if (verb == "close" && is_free) return "close:" + top;
        if (verb == "wheel" && is_free) return "wheel:" + place;
        if (verb == "reader" || verb == "twice") return verb + ":" + element;
        return (verb == "right" || verb == "middle" || verb == "hover" ? verb + ":" : "") + place;
    }

    std::mt19937 generator_{20261122};
    std::string log_;  ///< the last words
    int words_left_ = 6'000;
    int checks_ = 0;
    bool is_wild_ = false;
};

TEST_P(WildPlayer, BreaksNothing) {
    start(GetParam() == 2 ? "" : numbered("Startfrm/AntSpelare", GetParam() - 1));
    world->dice.generator.seed(static_cast<unsigned>(GetParam()));
    world->pauses_to_real_one = 3;
    delivers_late = is_wild_ = true;
    play("");
    EXPECT_GT(checks_, 1500);
    EXPECT_GT(world->winners, 0) << "games come to their end";
    EXPECT_GT(board_resets, 5U);
}

INSTANTIATE_TEST_SUITE_P(Players, WildPlayer, testing::Values(2, 3, 4));

class LongGame : public Stage {
   protected:
    /// Until the next player is to throw.
    void play_turn() {
        while (!butNästa_visible) {
            const auto own = 4 * (Aktuell_spelare - 1);
            const int choice = static_cast<int>(world->dice.generator() % 6);
            perform(Tärning_enabled                            ? "Tärning"
                    : butTvå_pjäser_visible && choice % 2 == 0 ? "butTvå_pjäser"
                    : butEn_pjäs_visible && choice > 2         ? "butEn_pjäs"
                                                       : numbered("Pjäs", own + choice % 4));
            // Nobody wins.
            if (Spelare[Aktuell_spelare].Antal_klara == 3) place(Aktuell_spelare, "0 0 0 0");
        }
        perform("butNästa");
        world->heard.clear();
    }

    /// Bytes that were asked for and not given back.
    std::size_t memory_after(int turns) {
        for (; turns > 0; --turns) play_turn();
        play("");
#ifdef __SANITIZE_ADDRESS__
        return __sanitizer_get_current_allocated_bytes();
#else
        return mallinfo2().uordblks;
#endif
    }
};

TEST_F(LongGame, KeepsItsMemory) {
    start("Startfrm/AntSpelare(3)");
    world->pauses_to_real_one = 1'000;
    const std::size_t early = memory_after(500);
    // Sixteen bytes kept from each turn would be too much.
    EXPECT_LT(memory_after(2'000), early + 32'000);
    EXPECT_EQ(world->winners, 0);
}

}  // namespace
}  // namespace brusbo::test

// A player who does anything anywhere: legal and illegal, in every window, during throws and walks.
// And one who plays on and on.

#include <malloc.h>

#include <QApplication>

#include "tests/windows/stage.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace brusbo::test {
namespace {

class Player : public Stage {
   protected:
    void play_words(int count, bool wild) {
        left_ = count;
        wild_ = delivers_late = wild;
        play("");
        left_ = -1;
    }

    /// Words that wait for nothing, and in the end others until all is quiet.
    std::string next_word() override {
        const bool quiet = !InputGate::instance().closed() && shown("MFrm") &&
                           QApplication::activeModalWidget() == nullptr &&
                           QApplication::activePopupWidget() == nullptr;
        if (left_ < 0 || (left_ == 0 && quiet) || HasFailure()) return {};
        left_ = std::max(left_ - 1, 0);
        if (quiet && Tärning_enabled && below(60) == 0) bring_an_end_near();
        std::string word = wild_ && left_ > 0 && below(3) == 0 ? wild_word() : sensible_word();
        log_ = log_.substr(log_.size() < 2000 ? 0 : 1000) + " " + word;
        return word.insert(0, wild_ ? "!" : "");
    }

    void note() override {
        if (left_ < 0) return Stage::note();
        world->heard.clear();
        won_ = won_ || shown("Grattis");
        const std::string found = wild_ ? fault() : "";
        EXPECT_EQ(found, "") << log_;
    }

    int below(int count) { return static_cast<int>(generator_() % static_cast<unsigned>(count)); }

    template <class Container>
    std::string one_of(const Container& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(std::size(choices))))];
    }

    /// So that games end, or never do; in home lanes nobody meets anybody.
    void bring_an_end_near() {
        Har_flyttat = true;
        for (int player = 1; player <= Antal_spelare; ++player)
            place(player, wild_ ? "55," + std::to_string(40 + player % 2) + ",55,44" : "0,0,0,0");
    }

    std::string sensible_word() {
        if (at("MFrm").isMinimized()) return "restore:MFrm";
        if (QApplication::activePopupWidget() != nullptr)
            return one_of(std::array{"menu/mnuNytt_spel", "menu/mnuNytt_snabbt", "key:Esc"});
        std::vector<std::string> offered;
        for (const std::string name : {"Startfrm", "Grattis", "frmOm", "MFrm"}) {
            if (!shown(name) || !offered.empty()) continue;
            const int own = 4 * (Aktuell_spelare - 1);
            for (const std::string& element :
                 {std::string("Starta"), numbered("AntSpelare", 1 + below(3)),
                  std::string("butNytt_spel"), std::string("butNytt_snabbt"), std::string("Klar"),
                  std::string("butNästa"), std::string("Tärning"), std::string("butEn_pjäs"),
                  std::string("butTvå_pjäser"), numbered("Pjäs", own + below(4))}) {
                const auto* const found =
                    at(name).findChild<QWidget*>(QString::fromStdString(element));
                if (found != nullptr && found->isVisible() && found->isEnabled())
                    offered.push_back(name + "/" + element);
            }
        }
        return offered.empty() ? "hover:MFrm" : one_of(offered);
    }

    std::string wild_word() {
        std::vector<std::string> windows, elements;
        for (const char* name : {"Startfrm", "MFrm", "MFrm", "MFrm", "Grattis", "frmOm", "Slut"})
            if (shown(name)) windows.emplace_back(name);
        const std::string top = one_of(windows);
        const std::string place = top + "@" + std::to_string(below(at(top).width() + 9) - 4) + "," +
                                  std::to_string(below(at(top).height()));
        for (const QWidget* child : at(top).findChildren<QWidget*>())
            if (child->isVisible() && !child->isWindow() && !child->objectName().isEmpty())
                elements.push_back(top + "/" + child->objectName().toStdString());
        const std::string verb = one_of(std::array{
            "", "right:", "middle:", "hover:", "twice:", "reader:", "key:", "close:", "wheel:"});
        if (verb == "key:")
            return verb + one_of(std::array{"Esc", "Tab", "F2", "Return", "Space", "A", "S",
                                            "Backspace", "Down", "F4", "Del"});
        if (verb == "close:" || verb == "wheel:") {
            if (!takes_input(at(top))) return "hover:" + place;
            return verb + (verb == "close:" ? top : place);
        }
        return verb + (verb == "reader:" ? one_of(elements) : place);
    }

    std::mt19937 generator_{20261122};
    std::string log_;  ///< the latest words
    int left_ = -1;
    bool wild_ = false, won_ = false;
};

TEST_F(Player, BreaksNothing) {
    for (const int players : {2, 3, 4}) {
        start(players == 2 ? "" : numbered("Startfrm/AntSpelare", players - 1));
        world->pauses_to_real_one = 3;
        play_words(6'000, true);
        EXPECT_TRUE(won_) << "games come to their end";
        EXPECT_GT(board_resets, 5U);
    }
}

/// Bytes that were asked for and not given back.
std::size_t memory_in_use() {
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

TEST_F(Player, KeepsItsMemory) {
    start("Startfrm/AntSpelare(3)");
    world->pauses_to_real_one = 1'000;
    play_words(2'000, false);
    const std::size_t early = memory_in_use();
    play_words(8'000, false);
    // Four bytes kept from each click would be too much.
    EXPECT_LT(memory_in_use(), early + 32'000);
}

}  // namespace
}  // namespace brusbo::test

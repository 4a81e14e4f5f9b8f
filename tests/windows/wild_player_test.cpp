// A player who does anything anywhere: legal and illegal, in every window, during throws and walks.
// And one who plays on and on.

#include <malloc.h>

#include "tests/windows/stage.h"

// With sanitizers only, under the name that they give it.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" __attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();

namespace brusbo::test {
namespace {

class Player : public Stage {
   protected:
    void play_words(int count, bool wild) {
        left_ = count;
        wild_ = delivers_late = wild;
        play("");
        left_ = -1;
        delivers_late = false;
    }

    /// Words that wait for nothing, and in the end others until all is quiet.
    std::string next_word() override {
        const bool quiet = !InputGate::instance().closed() && shown("MFrm") &&
                           QApplication::activeModalWidget() == nullptr &&
                           QApplication::activePopupWidget() == nullptr;
        if (left_ < 0) return Stage::next_word();
        if ((left_ == 0 && quiet) || HasFailure()) return {};
        left_ = std::max(left_ - 1, 0);
        if (quiet && Tärning_enabled && below(20) == 0) bring_an_end_near();
        const std::string word =
            wild_ && left_ > 0 && below(3) == 0 ? wild_word() : sensible_word();
        return (wild_ ? "!" : "") + word;
    }

    void note() override {
        if (left_ < 0) return Stage::note();
        world->heard.clear();
        won_ = won_ || shown("Grattis");
        EXPECT_EQ(wild_ ? fault() : "", "") << latest_word;
    }

    int below(int count) { return static_cast<int>(generator_() % static_cast<unsigned>(count)); }

    std::string one_of(const std::vector<std::string>& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
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
            return one_of({"mnuNytt_spel", "mnuNytt_snabbt", "key:Esc"});
        std::vector<std::string> offered;
        const std::string piece = numbered("Pjäs", 4 * Aktuell_spelare - 1 - below(4));
        for (const std::string name :
             {"Starta", "AntSpelare(1)", "AntSpelare(3)", "butNytt_spel", "butNytt_snabbt", "Klar",
              "butNästa", "Tärning", "butEn_pjäs", "butTvå_pjäser", piece.c_str()})
            if (shown(name) && at(name).isEnabled() && takes_input(at(name)))
                offered.push_back(name);
        if (offered.empty()) return "hover:MFrm";
        return one_of(offered);
    }

    std::string wild_word() {
        const std::string verb = one_of({"", "~", "hover:", "twice:", "reader:", "key:", "close:"});
        if (verb == "key:")
            return verb + one_of({"Esc", "Tab", "F2", "Return", "Space", "A", "Backspace", "Down"});
        std::vector<std::string> windows = {"MFrm", "MFrm"};
        for (const std::string& name : window_names)
            if (shown(name)) windows.push_back(name);
        const std::string top = one_of(windows);
        if (verb == "reader:") return verb + one_of({"mnuArkiv", "mnuOm", "Tärning", "butNästa"});
        if (verb == "close:") return takes_input(at(top)) ? verb + top : "hover:" + top;
        return verb + top + "@" + std::to_string(below(at(top).width() + 9) - 4) + "," +
               std::to_string(below(at(top).height()));
    }

    std::mt19937 generator_{20261122};
    int left_ = -1;
    bool wild_ = false, won_ = false;
};

TEST_F(Player, BreaksNothing) {
    for (const int players : {2, 3, 4}) {
        start(numbered("AntSpelare", players - 1));
        world->pauses_to_real_one = 3;
        play_words(6'000, true);
        EXPECT_TRUE(won_) << "games come to their end";
        EXPECT_GT(board_resets, 5U);
    }
}

/// Bytes that were asked for and not given back.
std::size_t memory_in_use() {
    const bool known = __sanitizer_get_current_allocated_bytes != nullptr;
    return known ? __sanitizer_get_current_allocated_bytes() : mallinfo2().uordblks;
}

TEST_F(Player, KeepsItsMemory) {
    start("AntSpelare(3)");
    world->pauses_to_real_one = 1'000;
    play_words(4'000, false);
    const std::size_t early = memory_in_use();
    play_words(8'000, false);
    // Four bytes kept from each click would be too much.
    EXPECT_LT(memory_in_use(), early + 32'000);
}

}  // namespace
}  // namespace brusbo::test

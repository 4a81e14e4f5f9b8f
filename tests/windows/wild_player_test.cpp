// A player who does anything anywhere: legal and illegal, in every window, during throws and walks.
// And one who plays on and on.

#include <malloc.h>

#include "tests/windows/stage.h"

// With sanitizers only, under the name that they give it.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" __attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();

namespace brusbo::test {
namespace {

// While they can be clicked; a piece is anyone of the current player's.
const QString sensible =
    "Starta AntSpelare(1) AntSpelare(3) butNytt_spel butNytt_snabbt Klar Pjäs Tärning butEn_pjäs "
    "butTvå_pjäser butNästa";
// The @ stands for any place of a window.
const QString wild =
    "@ @ @ ~@ ~@ ~@ hover:@ hover:@ hover:@ twice:@ twice:@ twice:@ close: close: close: key:Esc "
    "key:Tab key:F2 key:Return key:Space key:Down reader:mnuArkiv reader:mnuOm reader:Tärning";

class Player : public Stage {
   protected:
    /// Does so many things, wild ones without waiting, and more until all is quiet.
    void play_on(int count, bool wildly) {
        left_ = count;
        wildly_ = wildly;
        play("");
        left_ = -1;
    }

    QString next_word() override {
        if (left_ < 0) return Stage::next_word();
        const bool quiet = !InputGate::instance().closed() && takes_input(at("MFrm")) &&
                           QApplication::activePopupWidget() == nullptr;
        if (quiet && left_ == 0) return {};
        left_ = std::max(left_ - 1, 0);
        // In home lanes nobody meets anybody. There the wild games end soon, the others never.
        if (quiet && Tärning_enabled && below(20) == 0) {
            Har_flyttat = true;
            for (int player = 1; player <= Antal_spelare; ++player)
                place(player, wildly_ ? QString("55,%1,55,44").arg(40 + player % 2) : "0,0,0,0");
        }
        if (!wildly_) return sensible_word();
        return "!" + (left_ > 0 && below(3) == 0 ? wild_word() : sensible_word());
    }

    void note() override {
        if (left_ < 0) return Stage::note();
        world->heard.clear();
        won_ = won_ || shown("Grattis");
    }

    int below(qsizetype count) {
        return static_cast<int>(generator_() % static_cast<std::size_t>(count));
    }
    QString one_of(const QStringList& words) { return words[below(words.size())]; }

    QString sensible_word() {
        if (at("MFrm").isMinimized()) return "restore:MFrm";
        if (QApplication::activePopupWidget() != nullptr)
            return one_of({"mnuNytt_spel", "mnuNytt_snabbt", "key:Esc"});
        QStringList offered = sensible.split(' ');
        offered.replaceInStrings("Pjäs", numbered("Pjäs", 4 * Aktuell_spelare - 1 - below(4)));
        offered.removeIf([](const QString& name) {
            return !shown(name) || !at(name).isEnabled() || !takes_input(at(name));
        });
        return offered.isEmpty() ? "hover:MFrm" : one_of(offered);
    }

    QString wild_word() {
        const QString top = below(2) == 0 ? "MFrm" : front().objectName();
        const int x = below(at(top).width() + 9) - 4, y = below(at(top).height());
        const QString place = top + QString("@%1,%2").arg(x).arg(y);
        return one_of(wild.split(' ')).replace("@", place);
    }

    std::mt19937 generator_{20261122};
    int left_ = -1;
    bool wildly_ = false, won_ = false;
};

TEST_F(Player, BreaksNothing) {
    for (const int players : {2, 3, 4}) {
        start(numbered("AntSpelare", players - 1) + " Starta");
        world->pauses_to_real_one = 3;
        play_on(6'000, true);
        EXPECT_TRUE(won_) << "games come to their end";
        EXPECT_GT(board_resets, 5U);
        // And then all is as ever.
        play("mnuArkiv mnuNytt_spel AntSpelare(3) Starta " + middle_of_game + "2 look:game-1");
    }
}

/// Bytes that were asked for and not given back.
std::size_t memory_in_use() {
    const bool known = __sanitizer_get_current_allocated_bytes != nullptr;
    return known ? __sanitizer_get_current_allocated_bytes() : mallinfo2().uordblks;
}

TEST_F(Player, KeepsItsMemory) {
    start("AntSpelare(3) Starta");
    world->pauses_to_real_one = 1'000;
    play_on(4'000, false);
    const std::size_t early = memory_in_use();
    play_on(8'000, false);
    // Four bytes kept from each click would be too much.
    EXPECT_LT(memory_in_use(), early + 32'000);
}

}  // namespace
}  // namespace brusbo::test

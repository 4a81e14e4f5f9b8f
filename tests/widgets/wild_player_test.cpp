// A player who does anything anywhere: legal and illegal, in every window, during throws and walks.

#include "tests/widgets/stage.h"

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
    /// Does so many things without waiting, and more until all is quiet.
    void play_on(int count) {
        left_ = count;
        play("");
        left_ = -1;
    }

    QString next_word() override {
        if (left_ < 0) return Stage::next_word();
        const bool quiet = !InputGate::instance().closed() && takes_input(at("MFrm")) &&
                           QApplication::activePopupWidget() == nullptr;
        if (quiet && left_ == 0) return {};
        left_ = std::max(left_ - 1, 0);
        // In home lanes nobody meets anybody, and games end soon.
        if (quiet && Tärning_enabled && below(20) == 0) {
            Har_flyttat = true;
            for (int player = 1; player <= Antal_spelare; ++player)
                place(player, QString("55,%1,55,44").arg(40 + player % 2));
        }
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
    bool won_ = false;
};

TEST_F(Player, BreaksNothing) {
    for (const int players : {2, 3, 4}) {
        start(numbered("AntSpelare", players - 1) + " Starta");
        world->pauses_to_real_one = 3;
        play_on(3'000);
        const auto widgets = QApplication::allWidgets().size();
        play_on(3'000);
        EXPECT_LT(QApplication::allWidgets().size(), widgets + 10) << "they pile up";
        EXPECT_TRUE(won_) << "games come to their end";
        EXPECT_GT(board_resets, 5U);
        // And then all is as ever.
        play("mnuArkiv mnuNytt_spel AntSpelare(3) Starta " + middle_of_game + "2 look:game-1");
    }
}

}  // namespace
}  // namespace brusbo::test

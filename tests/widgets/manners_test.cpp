// What the players do, and what they hear and see of it; from whatever source, at whatever time.

#include <QClipboard>
#include <array>
#include <cmath>
#include <fstream>

#include "tests/widgets/stage.h"

namespace brusbo::test {
namespace {

class Manners : public Stage {
   protected:
    Manners() {
        verbs["dice:"] = [this](auto& face) { world->dice.script(face.toInt()); };
        verbs["focus:"] = [this](auto&) {
            QWidget* const owner = at("MFrm").focusWidget();
            if (owner == nullptr) return void(told += " none");
            const QImage seen = owner->grab().toImage();
            owner->clearFocus();
            told += " " + owner->objectName() + (owner->grab().toImage() == seen ? "" : "*");
            owner->setFocus();
        };
    }

    /// What is done, and what is told of it; each row in a program of its own, begun by `before`.
    using Rows = std::vector<std::pair<QString, std::string>>;

    void expect(const Rows& rows, const QString& before = "Starta") {
        for (const auto& [does, follows] : rows) {
            start(before);
            EXPECT_EQ(play(does).toStdString(), follows) << qPrintable(does);
        }
    }
};

TEST_F(Manners, OfTheStartWindow) {
    const Rows rows = {
        // The number of players opens their boxes; nobody plays alone.
        {"AntSpelare(3) read:Namn(3) AntSpelare(0) AntSpelare(1) read:Namn(2) "
         "reader:AntSpelare(2)",
         "s2 players:4 'Gul' s2 players:2 'Grön'- s2 players:3"},
        // Sound is heard before it is off, and not after.
        {"key:Tab key:Tab key:Tab key:Tab key:Space Sound Sound Starta 3",
         "s1 sound:off sound:on s1 sound:off [MFrm ]"},
        {"~Starta press:Starta drop:Label3 held:Return key:Escape key:F2 reader:mnuOm "
         "close:Startfrm",
         "end:0"},
        // It comes back with the choices made, in front of the game and for its end too.
        {"AntSpelare(3) Sound write:Namn(2)=Åke reader:Starta key:F2 read:Namn(3) read:Namn(2) "
         "Tärning behind:F2 close:MFrm close:Startfrm Sound Starta",
         "s2 players:4 s1 sound:off [MFrm ] [MFrm Startfrm* ] resets:1 'Gul' 'Åke' end:0 sound:on "
         "s1 [MFrm ]"},
    };
    expect(rows, "");
}

TEST_F(Manners, OfPlaying) {
    expect({
        {"~Tärning 2 Tärning reader:Tärning butNästa read:labMeddelande",
         "s3 s1 turn:2 'Slå genom att klicka på tärningen.'"},
        {"6 butTvå_pjäser 1=42,0,3,0 3 key:Return 3 key:Space 4 held:Space held:Return",
         "s3 s1 s2 s2 1=0,0,1,1 s1 turn:2 s3 s1 turn:1 s3"},
        // Of the winning move nothing reaches the next game.
        {"1=55,55,44,55 1 @1:key:F2 @1:close:MFrm @1:reader:mnuOm @1:Tärning @1:key:Return "
         "Pjäs(2) Tärning behind:F2 key:F2 key:Escape close:Grattis close:MFrm reader:mnuOm "
         "Avsluta butNytt_snabbt read:labMeddelande",
         "s3 s1 s2 [MFrm Grattis* ] 1=55,55,45,55 end:0 [MFrm ] resets:1 1=0,0,0,0 'Slå genom att "
         "klicka på tärningen.'"},
        {"1=55,55,44,55 1 Pjäs(2) butNytt_spel butNytt_snabbt AntSpelare(2) write:Namn(0)=Lars "
         "Starta read:labVisa_tur",
         "s3 s1 s2 [MFrm Grattis* ] 1=55,55,45,55 [MFrm Startfrm* Grattis ] resets:1 1=0,0,0,0 s2 "
         "players:3 s1 [MFrm ] 'Lars tur!'"},
    });
}

TEST_F(Manners, OfTheKeys) {
    expect({
        {"3 focus: butNästa focus: dice:4 key:Space focus: key:Space focus: Label1 focus:",
         "s3 butNästa s1 turn:2 none s3 butNästa* s1 turn:1 Tärning* none"},
        // Of a stack the piece on top; blocked ones are left out.
        {"1=20,9,20,10 2 key:Tab focus: key:Down focus: key:Right focus: key:Shift+Tab key:Up "
         "focus: key:Tab key:Return focus:",
         "s3 Pjäs(3)* Pjäs(2)* lit:mnuArkiv mnuArkiv* lit: Pjäs(3)* s1 s2 s2 1=20,9,22,10 "
         "butNästa*"},
        {"6 key:Tab focus: key:Space focus: held:Return held:Space key:Up focus:",
         "s3 butEn_pjäs* s1 s2 s2 s2 s2 s2 s2 1=0,0,0,6 Tärning* lit:butAvsluta butAvsluta*"},
    });
    expect({{"key:Tab key:Return", "s1 [MFrm ]"}}, "");
}

TEST_F(Manners, OfTheTitleBar) {
    expect({
        // The first movement on another button belongs to the lit one; so do its right and lower
        // bounds, but no press there.
        {"hover:mnuArkiv hover:mnuArkiv@3,3 hover:mnuOm hover:mnuOm@0,0 hover:mnuOm@39,20 "
         "hover:mnuOm@-2,9 hover:mnuOm hover:mnuOm@9,-2 hover:mnuOm hover:mnuOm@41,9 hover:mnuOm "
         "hover:mnuOm@9,22 hover:mnuOm hover:mnuOm@39,10 press:mnuOm@39,10 drop:@0,0",
         "s2 lit:mnuArkiv lit: s2 lit:mnuOm lit: s2 lit:mnuOm lit: s2 lit:mnuOm lit: s2 lit:mnuOm "
         "lit: s2 lit:mnuOm lit:"},
        {"mnuArkiv mnuNytt_spel Starta 1=7,0,0,55 mnuArkiv ~mnuNytt_snabbt key:Escape "
         "reader:mnuArkiv key:Down key:Down key:Return mnuArkiv key:Shift+F2 held:F2 key:F2 Starta "
         "mnuArkiv mnuAvsluta",
         "s2 [MFrm menu] lit:mnuArkiv [MFrm Startfrm* ] lit: resets:1 s1 s1 [MFrm ] s2 [MFrm menu] "
         "lit:mnuArkiv lit: s1 [MFrm ] [MFrm menu] s1 [MFrm ] resets:2 1=0,0,0,0 s2 [MFrm menu] "
         "lit:mnuArkiv [MFrm Startfrm* ] resets:3 s1 s1 [MFrm ] lit: s2 [MFrm menu] lit:mnuArkiv "
         "s1 s1 [MFrm Slut* ] lit: Slut,128,101,312,212"},
        {"key:Shift+F2 key:Ctrl+F2 mnuOm behind:F2 Tärning reader:Tärning close:MFrm key:F2 "
         "key:Escape key:Tab key:Return reader:mnuOm close:frmOm",
         "s2 s1 [MFrm frmOm* ] lit:mnuOm s1 [MFrm ] lit: s1 [MFrm frmOm* ] [MFrm ]"},
        {"butMini restore:MFrm 2 close:MFrm 4 close:MFrm key:Escape close:Slut key:Return",
         "s2 s1 [MFrm_ ] [MFrm ] s3 s1 [MFrm Slut* ] Slut,128,101,312,212 s1 s1 end:0"},
        // By its frame the farewell window changes its size, down to a smallest one.
        {"butAvsluta press:Slut@311,211 pull:@30,5 drop:@0,0 hover:@5,5 press:Slut@1,1 "
         "pull:@-10,-20 drop:@0,0 press:Slut@1,50 pull:@400,0 drop:@0,0 ~press:Slut@1,30 "
         "~pull:@-50,0 ~drop:@0,0 press:Slut@100,1 pull:@0,400 drop:@0,0",
         "s2 s1 [MFrm Slut* ] lit:butAvsluta Slut,128,101,312,212 lit: Slut,128,101,342,217 "
         "Slut,118,81,352,237 Slut,350,81,120,237 Slut,350,258,120,60"},
        // Any button moves the window, where nothing lies on the bar.
        {"press:MFrm@320,5 pull:@15,-10 pull:@15,-10 drop:@0,0 hover:@50,50 ~press:MFrm@320,30 "
         "~pull:@-7,8 ~drop:@0,0 press:Label1 pull:@9,9 drop:@0,0 press:labPjäser_klara pull:@9,9",
         "MFrm,15,-10,570,416 MFrm,30,-20,570,416 MFrm,23,-12,570,416 MFrm,32,-3,570,416"},
        // Only when another window of the program was active it looks anew whose turn it is.
        {"read:Startfrm read:MFrm write:labVisa_tur=? butMini restore:MFrm read:labVisa_tur mnuOm "
         "read:frmOm Klar read:labVisa_tur",
         "'Brusbo' 'Brusbo' s2 s1 [MFrm_ ] [MFrm ] '?' s2 s1 [MFrm frmOm* ] lit:mnuOm 'Om...' s1 "
         "[MFrm ] lit: 'Röds tur!'"},
    });
}

TEST_F(Manners, OfInputDuringActions) {
    expect({
        {"@2:butNästa @2:reader:butNästa 3 @6:Tärning @6:reader:Tärning 3", "s3 s1 turn:2 s3"},
        {"1=5,9,0,0 2 @1:reader:Pjäs(1) @1:Pjäs(1) @2:reader:mnuOm Pjäs(0) Klar",
         "s3 s1 s2 s2 s1 s1 s1 [MFrm frmOm* ] 1=7,9,0,0 s1 [MFrm ]"},
        // In the order of its arrival, whatever its source.
        {"@3:key:Space @3:4 @3:reader:butNästa @3:hover:mnuArkiv @3:close:MFrm 3",
         "s3 s1 s3 s1 s2 s1 [MFrm Slut* ] lit:mnuArkiv Slut,128,101,312,212"},
        {"@3:held:Return @3:held:Space @4:key:F2 @5:key:Shift+F2 3 Starta",
         "s3 [MFrm Startfrm* ] resets:1 s1 [MFrm ]"},
        // What was meant for a window behind a modal one has no effect.
        {"@2:mnuOm @2:Tärning @2:key:F2 @2:close:MFrm @2:hover:butMini 3 Klar reader:butNästa",
         "s3 s2 s1 [MFrm frmOm* ] lit:mnuOm s1 [MFrm ] lit: s1 turn:2"},
        {"mnuOm !close:frmOm !reader:Tärning", "s2 s1 s3"},
    });
}

TEST_F(Manners, OfNames) {
    QApplication::clipboard()->setText(QString::fromUtf8("\u2028😁\x7F\n"));
    start(
        "write:Namn(0)=<b>Eva😀 Namn(0) key:Home key:Right key:Right key:Right key:Ctrl+V "
        "write:Namn(1)= Starta 1=55,55,44,55 1 Pjäs(2) read:labVisa_vinnare read:lbNamn(0) "
        "read:Grattis butNytt_snabbt 2 butNästa read:labVisa_tur");
    EXPECT_TRUE(told.contains("'<b> 😁 Eva😀 har vunnit!' '<b> 😁 Eva😀' 'Brusbo' [MFrm ] "));
    EXPECT_TRUE(told.endsWith(" 's tur!'"));
}

TEST_F(Manners, OfWhatElementsTell) {
    const char* const file = BRUSBO_SOURCES "/tests/widgets/elements.txt";
    start(
        "tells:Startfrm Starta 4 tells:MFrm mnuOm tells:frmOm Klar 1=55,55,44,55 butNästa 3 "
        "butNästa 1 Pjäs(2) tells:Grattis butNytt_snabbt close:MFrm tells:Slut");
    const std::string seen = told.mid(1).toStdString() + "\n";
    if (qEnvironmentVariableIsSet("BRUSBO_APPROVE")) std::ofstream(file) << seen;
    std::ifstream approved(file);
    EXPECT_EQ(seen, std::string(std::istreambuf_iterator<char>(approved), {}));
}

TEST_F(Manners, OfChance) {
    start();
    std::array<int, 6> times{};
    for (int microsecond = 0; microsecond < 600; ++microsecond) {
        world->seed_random(40'000 + microsecond * 1e-6);
        ++times.at(static_cast<std::size_t>(world->Program::random_value() * 6));
    }
    for (const int each : times) EXPECT_NEAR(each, 100, 40);
    const int before = QTime::currentTime().msecsSinceStartOfDay();
    // Within half a minute, over midnight too.
    EXPECT_LT(std::fmod(world->time_of_day() + 86'430 - before / 1000.0, 86'400), 60);
}

}  // namespace
}  // namespace brusbo::test

// What the players do, and what they hear and see of it; from whatever source, at whatever time.

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <array>
#include <cmath>
#include <fstream>
#include <set>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

struct Row {
    std::string does, follows;
};

class Manners : public Stage {
   protected:
    Manners() {
        verbs["where"] = [this](const std::string& object) {
            told += " " + std::to_string(at(object).x());
        };
        verbs["told"] = [this](const std::string& name) { tell_of(name); };
    }

    void expect(const std::vector<Row>& rows, bool started = true) {
        for (const Row& row : rows) {
            started ? start() : begin();
            if (!started) play("");
            EXPECT_EQ(play(row.does), row.follows) << row.does;
        }
    }

    std::map<std::string, std::string> names_;  ///< of the elements of a window, sorted

    /// A window manager and a screen reader know what everything is.
    void tell_of(const std::string& name) {
        const QWidget& window = at(name);
        const bool bare = name == "Grattis" || name == "Slut";
        const bool closes = name == "Startfrm" || name == "frmOm";
        EXPECT_EQ(window.windowTitle(), name == "frmOm" ? "Om..." : name == "Slut" ? "" : "Brusbo");
        const auto flags =
            window.windowFlags() & (Qt::FramelessWindowHint | Qt::WindowTitleHint |
                                    Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint);
        const auto caption = closes ? Qt::WindowTitleHint | Qt::WindowCloseButtonHint
                                    : Qt::WindowFlags(Qt::WindowTitleHint);
        EXPECT_EQ(flags, bare ? Qt::WindowFlags(Qt::FramelessWindowHint) : caption) << name;
        EXPECT_EQ(window.minimumSize() == window.maximumSize(), name != "Slut") << name;
        const QPoint off = window.geometry().center() - screen_area().center();
        EXPECT_LT(off.manhattanLength(), 20) << name;
        std::multiset<std::string> names;
        for (QWidget* each : window.findChildren<QWidget*>()) {
            if (!each->isVisible() || each->objectName().startsWith("qt_")) continue;
            auto* const interface = QAccessible::queryAccessibleInterface(each);
            const auto role = interface->role();
            names.insert(interface->text(QAccessible::Name).toStdString() +
                         (role == QAccessible::Button        ? "*"
                          : role == QAccessible::RadioButton ? "o"
                          : role == QAccessible::CheckBox    ? "x"
                                                             : ""));
        }
        for (const std::string& each : names) names_[name] += each + "; ";
    }
};

TEST_F(Manners, OfTheStartWindow) {
    const std::vector<Row> rows = {
        // The number of players opens their boxes; nobody plays alone.
        {"Startfrm/AntSpelare(3) read:Startfrm/Namn(3) Startfrm/AntSpelare(0) "
         "Startfrm/AntSpelare(1) read:Startfrm/Namn(2) reader:Startfrm/AntSpelare(2) "
         "read:Startfrm/AntSpelare(2) read:Startfrm/AntSpelare(1) "
         "Startfrm/AntSpelare(2)",
         "s2 focus:AntSpelare(3) players:4 'Gul' s2 focus:AntSpelare(1) players:2 'Grön'- s2 "
         "players:3 'Tre spelare'+ 'Två spelare' s2 focus:AntSpelare(2)"},
        // Sound is heard before it is off, and not after.
        {"Startfrm/Sound Startfrm/Sound Startfrm/Sound Startfrm/Starta 3 butNästa",
         "s1 focus:Sound sound:off sound:on s1 sound:off [MFrm] focus: "
         "focus:butNästa turn:2"},
        {"key:Tab key:Tab key:Tab key:Tab key:Space key:Tab key:Down key:Escape "
         "key:F2 reader:MFrm/mnuOm close:Startfrm",
         "focus:Namn(0) focus:Namn(1) focus:Starta focus:Sound s1 sound:off "
         "focus:AntSpelare(1) focus:AntSpelare(2) players:3 end:0"},
        {"write:Startfrm/Namn(0)=Lars Startfrm/Starta read:labVisa_tur",
         "name:Lars s1 [MFrm] focus: 'Lars tur!'"},
        // It comes back with the choices made, in front of the game and for its end too.
        {"Startfrm/AntSpelare(3) Startfrm/Sound write:Startfrm/Namn(2)=Åke Startfrm/Starta "
         "key:F2 read:Startfrm/AntSpelare(3) read:Startfrm/Sound read:Startfrm/Namn(2) "
         "Tärning behind:F2 close:MFrm close:Startfrm Startfrm/Sound Startfrm/Starta",
         "s2 focus:AntSpelare(3) players:4 s1 focus:Sound sound:off name:Åke [MFrm] focus: "
         "[Startfrm* MFrm] focus:Starta resets:1 'Fyra spelare'+ "
         "'Ljud på/av' 'Åke' end:0 focus:Sound sound:on s1 [MFrm] focus:"},
        {"right:Startfrm/Starta press:Startfrm/Starta drop:Startfrm/Label3 held:Return "
         "wheel:Startfrm/Starta reader:Startfrm/Starta",
         "focus:Starta s1 [MFrm] focus:"},
    };
    expect(rows, false);
    // What comes before the main window has been loaded waits for it.
    begin();
    EXPECT_EQ(play("!Startfrm/Starta"),
              "s1 [MFrm] turn:1 players:2 sound:on name:Röd name:Blå "
              "name:Grön name:Gul");
}

TEST_F(Manners, OfPlaying) {
    const std::vector<Row> rows = {
        {"right:Tärning middle:Tärning 2 Tärning reader:Tärning butNästa read:labMeddelande",
         "s3 focus:butNästa s1 turn:2 'Slå genom att klicka på tärningen.'"},
        {"read:labMeddelande 6 butEn_pjäs",
         "'Slå genom att klicka på tärnningen.' s3 s1 s2 s2 s2 s2 s2 s2 1=0,0,0,6"},
        {"6 butTvå_pjäser", "s3 s1 s2 s2 focus:butNästa 1=0,0,1,1"},
        {"1=42,0,3,0 3 Pjäs(0) read:labPjäser_klara",
         "s3 s1 s2 s2 s2 focus:butNästa 1=55,0,3,0 'Antal pjäser klara: 1'"},
        {"1=5,5,0,0 2 Pjäs(4) Pjäs(2) Plus(1) Pjäs(1)",
         "s3 s1 s1 beep s1 s2 s2 focus:butNästa 1=5,7,0,0 s1"},
        {"1=10,0,0,0 2=2,0,0,0 2 Pjäs(0) read:labMeddelande",
         "s3 s1 s2 s2 focus:butNästa 1=12,0,0,0 2=0,0,0,0 'Du knuffade just hem en annans "
         "spelare!'"},
        {"1=30,0,0,0 6 Pjäs(0) key:Space key:Return", "s3 s1 s2 s2 s2 s2 s2 s2 1=36,0,0,0"},
        {"2 key:Return 3 key:Space 4 key:Tab held:Space held:Return",
         "s3 focus:butNästa s1 turn:2 s3 s1 turn:1 s3"},
        // The die rolls.
        {"@1:where:Tärning @1:read:Tärning @2:where:Tärning @3:where:Tärning "
         "@4:where:Tärning @5:where:Tärning @6:where:Tärning @6:read:Tärning Tärning",
         "97 'Tärning, visar 1' 104 40 105 82 38 'Tärning, visar 4' s3 focus:butNästa"},
        // Of the winning move nothing reaches the next game.
        {"1=55,55,44,55 1 Pjäs(2) Tärning behind:F2 key:F2 key:Escape "
         "close:Grattis close:MFrm reader:mnuOm Grattis/Avsluta Grattis/butNytt_snabbt "
         "read:labMeddelande 6 butTvå_pjäser",
         "s3 s1 s2 [MFrm Grattis*] focus:butNytt_spel 1=55,55,45,55 focus:Avsluta end:0 "
         "[MFrm] focus: resets:1 1=0,0,0,0 'Slå genom att klicka på tärningen.' s3 s1 s2 s2 "
         "focus:butNästa 1=0,0,1,1"},
        {"1=55,55,44,55 1 Pjäs(2) Grattis/butNytt_spel Grattis/butNytt_snabbt "
         "Startfrm/AntSpelare(2) write:Startfrm/Namn(0)=Lars Startfrm/Starta "
         "read:labMeddelande read:labVisa_tur",
         "s3 s1 s2 [MFrm Grattis*] focus:butNytt_spel 1=55,55,45,55 [Startfrm* MFrm Grattis] "
         "focus:Starta resets:1 1=0,0,0,0 s2 focus:AntSpelare(2) players:3 name:Lars s1 "
         "[MFrm] focus: 'Slå genom att klicka på tärningen.' 'Lars tur!'"},
        {"1=55,55,44,55 1 @1:key:F2 @1:close:MFrm @1:reader:mnuOm @1:Tärning @1:key:Return "
         "Pjäs(2) read:Grattis/lbNamn(1) read:Grattis/lbResultat(0) key:Tab key:Tab key:Tab "
         "key:Tab key:Tab key:Space",
         "s3 s1 s2 [MFrm Grattis*] focus:butNytt_spel 1=55,55,45,55 'Blå' '4' focus:Avsluta "
         "focus:butNytt_snabbt focus:butNytt_spel focus:Avsluta focus:butNytt_snabbt [MFrm] "
         "focus: resets:1 1=0,0,0,0"},
    };
    expect(rows);
}

TEST_F(Manners, OfTheTitleBar) {
    const std::vector<Row> rows = {
        // The first movement on another button belongs to the lit one.
        {"hover:mnuArkiv hover:mnuArkiv@3,3 hover:mnuOm hover:mnuOm@20,9 hover:Picture1",
         "s2 lit:mnuArkiv lit: s2 lit:mnuOm lit:"},
        {"mnuArkiv menu/mnuNytt_spel Startfrm/Starta",
         "s2 [MFrm* menu] lit:mnuArkiv [Startfrm* MFrm] lit: focus:Starta resets:1 s1 s1 "
         "[MFrm] focus:"},
        {"1=7,0,0,55 mnuArkiv right:menu/mnuNytt_snabbt middle:menu/mnuNytt_spel "
         "key:Escape",
         "s2 [MFrm* menu] lit:mnuArkiv s1 [MFrm] lit:"},
        {"mnuArkiv menu/mnuAvsluta",
         "s2 [MFrm* menu] lit:mnuArkiv s1 s1 [MFrm Slut*] lit: focus:Stäng "
         "Slut,128,101,312,212"},
        {"mnuArkiv key:Escape mnuArkiv reader:mnuArkiv",
         "s2 [MFrm* menu] lit:mnuArkiv s1 [MFrm] lit: [MFrm* menu] s1 s1 [MFrm]"},
        {"mnuArkiv key:Shift+F2 held:F2 key:F2 Startfrm/Starta",
         "s2 [MFrm* menu] lit:mnuArkiv [Startfrm* MFrm] focus:Starta resets:1 s1 s1 [MFrm] "
         "lit: focus:"},
        {"mnuArkiv key:Down key:Down key:Return",
         "s2 [MFrm* menu] lit:mnuArkiv focus:aaa s1 [MFrm] lit: resets:1"},
        {"mnuOm behind:F2 Tärning reader:Tärning close:MFrm key:F2 key:Escape key:Tab "
         "key:Return",
         "s2 s1 [MFrm frmOm*] lit:mnuOm focus:Klar s1 [MFrm] lit: focus:"},
        {"mnuOm close:frmOm reader:mnuOm reader:frmOm/Klar",
         "s2 s1 [MFrm frmOm*] lit:mnuOm focus:Klar [MFrm] lit: focus: s1 [MFrm frmOm*] "
         "focus:Klar s1 [MFrm] focus:"},
        {"butMini restore:MFrm 2", "s2 s1 [MFrm_*] [MFrm] s3 focus:butNästa"},
        {"key:Shift+F2 key:Ctrl+F2 key:Alt+F2 held:F2 key:Escape key:F2 key:F2 "
         "Startfrm/Starta",
         "[Startfrm* MFrm] focus:Starta resets:1 s1 [MFrm] focus:"},
        {"butAvsluta 4 butAvsluta hover:butAvsluta key:Escape close:Slut key:Space",
         "s2 s1 [MFrm Slut*] lit:butAvsluta focus:Stäng Slut,128,101,312,212 s3 lit: s2 s1 "
         "lit:butAvsluta s1 end:0"},
        {"close:MFrm key:Return", "s1 [MFrm Slut*] focus:Stäng Slut,128,101,312,212 s1 end:0"},
        // By its frame the farewell window changes its size, down to a smallest one.
        {"butAvsluta press:Slut@311,211 pull:+30,5 drop:+0,0 hover:+5,5 press:Slut@1,1 "
         "pull:+-10,-20 drop:+0,0 press:Slut@100,1 pull:+5,90 drop:+0,0 press:Slut@1,50 "
         "pull:+400,0 drop:+0,0 press_right:Slut@1,30 pull_right:+-50,0 drop_right:+0,0",
         "s2 s1 [MFrm Slut*] lit:butAvsluta focus:Stäng Slut,128,101,312,212 lit: "
         "Slut,128,101,342,217 Slut,118,81,352,237 Slut,118,171,352,147 "
         "Slut,350,171,120,147"},
        {"butAvsluta press:Slut@311,211 pull:+-400,-400 drop:+0,0 press:Slut@100,1 pull:+0,400 "
         "drop:+0,0",
         "s2 s1 [MFrm Slut*] lit:butAvsluta focus:Stäng Slut,128,101,312,212 lit: "
         "Slut,128,101,120,60"},
        // The text does not lie on the frame.
        {"butAvsluta press:Slut@311,100 pull:+-90,0 drop:+0,0 press:Slut@221,80 pull:+9,8 "
         "drop:+0,0",
         "s2 s1 [MFrm Slut*] lit:butAvsluta focus:Stäng Slut,128,101,312,212 lit: "
         "Slut,128,101,222,212 Slut,128,101,231,212"},
        // Any button moves the window, where nothing lies on the bar.
        {"press:MFrm@320,5 pull:+15,-10 pull:+15,-10 drop:+0,0 hover:+50,50 "
         "press_right:MFrm@320,30 pull_right:+-7,8 drop_right:+0,0 press:Label1 pull:+9,9 "
         "drop:+0,0 press:labPjäser_klara pull:+9,9 drop:+0,0 2 press:labPjäser_klara "
         "pull:+9,9 drop:+0,0 press:Picture1 pull:+9,9 drop:+0,0",
         "MFrm,15,-10,570,416 MFrm,30,-20,570,416 MFrm,23,-12,570,416 "
         "MFrm,32,-3,570,416 s3 focus:butNästa"},
        // A press on the bar lets go of the lit button beside it.
        {"hover:mnuOm hover:mnuOm@39,10 press:mnuOm@39,10 drop:+0,0", "s2 lit:mnuOm lit:"},
    };
    expect(rows);
}

TEST_F(Manners, OfInputDuringActions) {
    for (const std::string source : {"", "widget:", "reader:", "code:"}) {
        const std::vector<Row> rows = {
            {"@2:" + source + "butNästa 3", "s3 s1 focus:butNästa turn:2"},
            {"@6:" + source + "Tärning @6:" + source + "Tärning 3", "s3 focus:butNästa"},
            {"1=5,0,0,0 @4:" + source + "Pjäs(0) 3", "s3 s1 s2 s2 s2 focus:butNästa 1=8,0,0,0"},
            {"1=5,9,0,0 2 @1:" + source + "Pjäs(1) @1:" + source + "Pjäs(1) Pjäs(0)",
             "s3 s1 s2 s2 s1 s1 focus:butNästa 1=7,9,0,0"},
            {"1=5,9,0,0 2 @2:reader:mnuOm @2:" + (source == "code:" ? "" : source) +
                 "butNästa Pjäs(0) frmOm/Klar",
             "s3 s1 s2 s2 s1 [MFrm frmOm*] focus:Klar 1=7,9,0,0 s1 [MFrm] focus:butNästa"},
        };
        expect(rows);
    }
    const std::vector<Row> rows = {
        // In the order of its arrival, whatever its source.
        {"@3:key:Space @3:4 @3:reader:butNästa @3:hover:mnuArkiv @3:close:MFrm 3",
         "s3 s1 s3 s1 s2 s1 [MFrm Slut*] lit:mnuArkiv focus:Stäng Slut,128,101,312,212"},
        {"@3:key:Return @3:held:Return @3:held:Space @4:key:F2 @5:key:Shift+F2 3 "
         "Startfrm/Starta",
         "s3 s1 [Startfrm* MFrm] focus:Starta resets:1 s1 [MFrm] focus:"},
        {"@3:held:Return @3:held:Space @3:wheel:Tärning 3", "s3 focus:butNästa"},
        {"@2:mnuArkiv @2:key:Down @2:key:Down @2:key:Return @2:5 3", "s3 s2 s1 s3 resets:1"},
        // What was meant for a window behind a modal one has no effect.
        {"@2:mnuOm @2:Tärning @2:key:F2 @2:close:MFrm @2:hover:butMini 3 code:frmOm/Klar "
         "reader:butNästa",
         "s3 s2 s1 [MFrm frmOm*] lit:mnuOm focus:Klar s1 [MFrm] lit: focus:butNästa s1 "
         "turn:2"},
        {"mnuOm !code:frmOm/Klar !reader:Tärning", "s2 s1 s1 s3 focus:butNästa"},
        {"2 reader:Tärning reader:butEn_pjäs reader:mnuOm reader:butNästa reader:frmOm/Klar",
         "s3 focus:butNästa s1 [MFrm frmOm*] focus:Klar s1 [MFrm] focus:butNästa"},
    };
    expect(rows);
}

TEST_F(Manners, OfTheEdgesOfPictureButtons) {
    start();
    // One pixel of the display, but where a button begins between two of them.
    const double scale = qApp->devicePixelRatio(), pixel = std::ceil(scale) / scale / scale;
    for (const std::string name : {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"}) {
        const auto hover = [&](double x, double y) {
            return "hover:" + name + "@" + std::to_string(x) + "," + std::to_string(y) + " ";
        };
        const double right = at(name).width(), bottom = at(name).height();
        for (const std::string& outside : {hover(-pixel, 5), hover(5, -pixel),
                                           hover(right + pixel, 5), hover(5, bottom + pixel)}) {
            EXPECT_EQ(play("hover:" + name + " " + hover(0, 0) + hover(right, bottom)),
                      "s2 lit:" + name);
            EXPECT_EQ(play(outside), "lit:") << outside;
        }
    }
}

TEST_F(Manners, OfNames) {
    const struct {
        const char *before, *pasted, *name;
        int cursor;  ///< UTF-16 units
    } rows[] = {
        {"", "  Bo s ", "  Bo s ", 0},         {"", "<b>Eva</b>", "<b>Eva</b>", 0},
        {"abcdefgh", "1234", "abc12defgh", 3}, {"", "😀😁😂😃😄😅😆😇😈😉😊😋", "😀😁😂😃😄😅😆😇😈😉", 0},
        {"😀😀😀😀😀😀😀😀😀", "a😁", "😀😀😀😀a😀😀😀😀😀", 8},  {"", "Eva\nAda\t\x7F.", "Eva Ada  .", 0},
        {"", "A\u2028B\u0085C", "A B C", 0},
    };
    for (const auto& row : rows) {
        begin();
        play("");
        auto& box = dynamic_cast<QLineEdit&>(at("Startfrm/Namn(0)"));
        box.setText(QString::fromUtf8(row.before));
        box.setCursorPosition(row.cursor);
        box.setFocus();
        QApplication::clipboard()->setText(QString::fromUtf8(row.pasted));
        play("key:Ctrl+V Startfrm/Starta 1=55,55,44,55 1 Pjäs(2) Grattis/butNytt_snabbt");
        EXPECT_EQ(Spelare[1].Namn, row.name);
    }
    start("write:Startfrm/Namn(0)=<b>Eva</b> write:Startfrm/Namn(1)=");
    EXPECT_EQ(play("1=55,55,44,55 1 Pjäs(2) read:Grattis/labVisa_vinnare read:Grattis/lbNamn(0) "
                   "Grattis/butNytt_snabbt 2 butNästa read:labVisa_tur"),
              "s3 s1 s2 [MFrm Grattis*] focus:butNytt_spel 1=55,55,45,55 '<b>Eva</b> har vunnit!' "
              "'<b>Eva</b>' [MFrm] focus: resets:1 1=0,0,0,0 s3 focus:butNästa s1 turn:2 's tur!'");
}

TEST_F(Manners, OfPositionsFilesThatAreMissingOrBad) {
    std::filesystem::remove("brs.dat");
    start();
    EXPECT_EQ(play("1 butEn_pjäs where:Pjäs(3)"), "s3 s1 s2 focus:butNästa 1=0,0,0,1 0");
    EXPECT_TRUE(std::filesystem::exists("brs.dat") && ends.empty());
    const std::string too_long = std::string("\x7F\0", 2) + std::string(126, '1');
    const std::string too_large = std::string("\n\0", 2) + "9999999999";
    for (const std::string& content : {too_long, too_large, std::string()}) {
        std::filesystem::remove("brs.dat");
        if (content.empty())
            std::filesystem::create_directory("brs.dat");
        else
            std::ofstream("brs.dat") << content;
        std::string message;
        QTimer look;
        look.callOnTimeout([&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            message = box->text().toStdString() + (shown("Startfrm") ? " too late" : "");
            box->accept();
        });
        look.start(1);
        begin();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !ends.empty(); }));
        EXPECT_NE(message.find("brs.dat"), std::string::npos) << message;
        EXPECT_NE(message.find(" inte "), std::string::npos) << "it is in Swedish: " << message;
        EXPECT_EQ(message.find(" too late"), std::string::npos) << message;
        EXPECT_EQ(ends, std::vector{1});
    }
}

TEST_F(Manners, OfOtherProgramsAskingForNames) {
    begin();
    play(
        "told:Startfrm Startfrm/Starta told:MFrm mnuOm told:frmOm frmOm/Klar 1=55,55,44,55 1 "
        "Pjäs(2) told:Grattis Grattis/butNytt_snabbt butAvsluta told:Slut");
    EXPECT_EQ(names_["Startfrm"],
              "En spelareo; Fyra spelareo; Ljud på/av; Ljud på/avx; Namn på spelare 1; Namn på "
              "spelare 2; Namn på spelare 3; Namn på spelare 4; Skiljelinje; Skiljelinje; "
              "Skiljelinje; Starta*; Tre spelareo; Två spelareo; ");
    EXPECT_EQ(
        names_["MFrm"],
        "Arkiv, meny*; Avsluta*; Blå pjäs 1*; Blå pjäs 2*; Blå pjäs 3*; Blå pjäs 4*; Grön "
        "pjäs 1*; Grön pjäs 2*; Grön pjäs 3*; Grön pjäs 4*; Gul pjäs 1*; Gul pjäs 2*; Gul "
        "pjäs 3*; Gul pjäs 4*; Markering av vems tur det är; Minimera*; Namnlist; Om Brusbo*; "
        "Röd pjäs 1*; Röd pjäs 2*; Röd pjäs 3*; Röd pjäs 4*; Röds tur!; Sidopanel; "
        "Skiljelinje; Skiljelinje; Skiljelinje; Skiljelinje; Slå genom att klicka på "
        "tärnningen.; Spelarens färg: röd; Spelplan; Tärning, visar 1*; "
        "https://brusbo.example.org; ");
    EXPECT_EQ(
        names_["frmOm"],
        "Brusboteamet; Copyright © 2026; Grafik:; Klar*; Ljud:; Programmering:; Programmet är "
        "FREEWARE; Skiljelinje; Skiljelinje; Skiljelinje; Skiljelinje; Skiljelinje; Teamet; "
        "Teamet; Teamet; brusbo.example.org; ");
    EXPECT_EQ(names_["Grattis"],
              "0; 4; Avsluta*; Blå; Grattis!; Namn på spelare 3; Namn på spelare 4; Nytt spel "
              "(snabbt)*; Nytt spel*; Resultat för spelare 3; Resultat för spelare 4; Resultat:; "
              "Röd; Röd har vunnit!; Skiljelinje; Skiljelinje; Skiljelinje; ");
    EXPECT_EQ(names_["Slut"], "Avskedstext; Läs detta!; Stäng*; Tryck sedan på stäng!; ");
    EXPECT_EQ(at("butMini").toolTip() + at("butAvsluta").toolTip(), "MinimeraAvsluta");
}

TEST_F(Manners, OfBecomingActive) {
    start();
    const auto sentence_after_activation = [] {
        QEvent event(QEvent::WindowActivate);
        QCoreApplication::sendEvent(window("MFrm"), &event);
        return text(at("labVisa_tur"));
    };
    Spelare[1].Namn = "Kajsa";
    EXPECT_EQ(sentence_after_activation(), "Röds tur!") << "it was the active window already";
    perform("butAvsluta");
    EXPECT_EQ(sentence_after_activation(), "Kajsas tur!");
}

TEST_F(Manners, OfChance) {
    start();
    std::array<int, 6> faces{};
    for (int microsecond = 0; microsecond < 600; ++microsecond) {
        world->seed_random(40'000 + microsecond * 1e-6);
        const float value = world->Program::random_value();
        ASSERT_TRUE(value >= 0 && value < 1);
        ++faces[static_cast<std::size_t>(value * 6)];
    }
    for (const int times : faces) EXPECT_NEAR(times, 100, 40);
    EXPECT_TRUE(world->time_of_day() >= 0 && world->time_of_day() < 86'401);
}

}  // namespace
}  // namespace brusbo::test

// What the players type and choose in the start window, and what becomes of it.

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <fstream>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class StartWindow : public Stage {
   protected:
    static QLineEdit& name_box(int index = 0) {
        return as<QLineEdit>(numbered("Startfrm/Namn", index));
    }
};

TEST_F(StartWindow, NamesAreUsedAsTyped) {
    const struct {
        const char* before;
        int cursor;  ///< UTF-16 units
        const char* pasted;
        std::string name;
    } rows[] = {
        {"", 0, "LARS", "LARS"},
        {"", 0, "", ""},
        {"", 0, "  Bo s ", "  Bo s "},
        {"", 0, "<b>Eva</b>", "<b>Eva</b>"},
        {"", 0, "abcdefghijk", "abcdefghij"},
        {"abcdefgh", 3, "1234", "abc12defgh"},
        {"", 0, "😀😁😂😃😄😅😆😇😈😉😊😋", "😀😁😂😃😄😅😆😇😈😉"},
        {"😀😀😀😀😀😀😀😀😀", 8, "a😁", "😀😀😀😀a😀😀😀😀😀"},
        {"", 0, "Z̸̢̛̬͎͕̲̝", "Z̸̢̛̬͎͕̲̝"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        load();
        name_box().setText(QString::fromUtf8(row.before));
        name_box().setCursorPosition(row.cursor);
        name_box().setFocus();
        QApplication::clipboard()->setText(QString::fromUtf8(row.pasted));
        key("Startfrm", Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(Spelare[1].Namn, row.name);
        EXPECT_TRUE(name_box().text().isValidUtf16()) << "no half of a pair is left";
        play("Startfrm/Starta");
        EXPECT_EQ(difference(), "");
        win([&] {
            const std::string winner = row.name.empty() ? "Röd" : row.name;
            EXPECT_EQ(text("Grattis/labVisa_vinnare"), winner + " har vunnit!");
            EXPECT_EQ(text("Grattis/lbNamn(0)"), row.name);
            for (const char* label : {"labVisa_tur", "Grattis/labVisa_vinnare"})
                EXPECT_EQ(as<QLabel>(label).textFormat(), Qt::PlainText);
            click("Grattis/butNytt_snabbt");
        });
    }
}

TEST_F(StartWindow, NoMenuInAForeignLanguageComesUp) {
    start();
    click("butAvsluta");
    for (const char* name : {"Startfrm/Namn(0)", "Slut/Text"}) {
        QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5},
                                at(name).mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&at(name), &asked);
        settle();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << name;
    }
}

TEST_F(StartWindow, NumberOfPlayers) {
    load();
    for (const int pressed : {3, 1, 2, 2}) {
        EXPECT_EQ(play(numbered("Startfrm/AntSpelare", pressed)), "s2");
        EXPECT_EQ(Antal_spelare, pressed + 1);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(name_box(i).isEnabled(), i <= pressed) << i;
    }
    EXPECT_EQ(play("Startfrm/AntSpelare(0)"), "") << "nobody plays alone";
    EXPECT_EQ(Antal_spelare, 3);
    EXPECT_EQ(Spelare[4].Namn, "Gul") << "closed boxes keep their names";
}

TEST_F(StartWindow, SoundSwitch) {
    load();
    EXPECT_EQ(play("Startfrm/Sound"), "s1") << "heard before it is off";
    EXPECT_EQ(play("Startfrm/Sound"), "");
    EXPECT_EQ(play("Startfrm/Sound"), "s1");
    EXPECT_EQ(play("Startfrm/Starta 3 butNästa"), "");
}

TEST_F(StartWindow, ComesBackWithTheChoicesMade) {
    load();
    name_box(2).setText("Åke");
    play("Startfrm/AntSpelare(3) Startfrm/Sound Startfrm/Starta");
    when_shown("Startfrm", [&] {
        EXPECT_TRUE(window("Startfrm")->isModal());
        EXPECT_TRUE(as<QAbstractButton>("Startfrm/AntSpelare(3)").isChecked());
        EXPECT_FALSE(as<QAbstractButton>("Startfrm/Sound").isChecked());
        EXPECT_EQ(text("Startfrm/Namn(2)"), "Åke");
        click("Tärning");
        click("Startfrm/Starta");
    });
    key("MFrm", Qt::Key_F2);
    settle();
    EXPECT_TRUE(Antal_spelare == 4 && !Ljud_på && Spelare[3].Namn == "Åke");
    EXPECT_EQ(Senaste_slag, 0) << "the main window took no input meanwhile";
    EXPECT_FALSE(window("Startfrm")->isModal());
}

TEST_F(StartWindow, APressBeforeTheMainWindowIsLoadedWaitsForIt) {
    begin();
    EXPECT_EQ(window("MFrm"), nullptr);
    click("Startfrm/Starta");
    EXPECT_TRUE(QTest::qWaitFor([] { return shown("MFrm"); }));
    settle();
    EXPECT_FALSE(shown("Startfrm"));
    EXPECT_EQ(difference(), "");
}

TEST_F(StartWindow, WithoutAPositionsFileTheGameGoesOn) {
    std::filesystem::remove("brs.dat");
    start();
    EXPECT_TRUE(std::filesystem::exists("brs.dat"));
    play("1 butEn_pjäs");
    EXPECT_EQ(at("Pjäs(3)").pos(), QPoint(0, 0));
    EXPECT_EQ(squares(2), "0 0 0 0") << "nobody is knocked out of a nest";
    EXPECT_EQ(difference(), "");
    EXPECT_TRUE(ends.empty());
}

TEST_F(StartWindow, AMalformedPositionsFileStopsTheProgramWithAMessage) {
    const std::string too_long = std::string("\x7F\0", 2) + std::string(126, '1');
    const std::string too_large = std::string("\n\0", 2) + "9999999999";
    for (const std::string& content : {too_long, too_large, std::string("a directory")}) {
        std::filesystem::remove("brs.dat");
        if (content == "a directory")
            std::filesystem::create_directory("brs.dat");
        else
            std::ofstream("brs.dat") << content;
        ends.clear();
        when([] { return QApplication::activeModalWidget() != nullptr; },
             [&] {
                 auto& box = dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
                 EXPECT_NE(box.text(), "");
                 EXPECT_TRUE(ends.empty());
                 box.accept();
             });
        load();
        ASSERT_EQ(ends.size(), 1U);
        EXPECT_NE(ends[0], 0);
    }
}

}  // namespace
}  // namespace brusbo::test

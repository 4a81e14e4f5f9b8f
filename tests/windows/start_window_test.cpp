// What the players type and choose in the start window, and what becomes of it.

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <fstream>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class StartWindow : public Stage {
   protected:
    static QLineEdit& name_box(int index) {
        return as<QLineEdit>(numbered("Startfrm/Namn", index));
    }
    static void paste(QLineEdit& box, const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        box.setFocus();
        key("Startfrm", Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(StartWindow, NamesAreUsedAsTyped) {
    const struct {
        const char *purpose, *before;
        int cursor;  ///< UTF-16 units
        const char* pasted;
        std::string name;
    } rows[] = {
        {"ends in S", "", 0, "LARS", "LARS"},
        {"empty", "", 0, "", ""},
        {"blanks around", "", 0, "  Bo s ", "  Bo s "},
        {"looks like rich text", "", 0, "<b>Eva</b>", "<b>Eva</b>"},
        {"eleven letters", "", 0, "abcdefghijk", "abcdefghij"},
        {"more than fits into the middle", "abcdefgh", 3, "1234", "abc12defgh"},
        {"twelve emoji", "", 0, "😀😁😂😃😄😅😆😇😈😉😊😋", "😀😁😂😃😄😅😆😇😈😉"},
        {"an emoji between emoji", "😀😀😀😀😀😀😀😀😀", 8, "a😁", "😀😀😀😀a😀😀😀😀😀"},
        {"marks upon marks", "", 0, "Z̸̢̛̬͎͕̲̝", "Z̸̢̛̬͎͕̲̝"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.purpose);
        load();
        name_box(0).setText(QString::fromUtf8(row.before));
        name_box(0).setCursorPosition(row.cursor);
        paste(name_box(0), row.pasted);
        EXPECT_EQ(Spelare[1].Namn, row.name);
        EXPECT_TRUE(name_box(0).text().isValidUtf16()) << "no half of a pair is left";
        click("Startfrm/Starta");
        settle();
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

TEST_F(StartWindow, AnInputMethodIsHeldToTheSameLength) {
    load();
    name_box(1).clear();
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8("漢字漢字漢字漢字漢字漢字"));
    QApplication::sendEvent(&name_box(1), &event);
    EXPECT_EQ(Spelare[2].Namn, "漢字漢字漢字漢字漢字");
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
    const struct {
        int pressed, players;
        const char* heard;
    } rows[] = {{3, 4, "s2"}, {1, 2, "s2"}, {0, 2, ""}, {2, 3, "s2"}, {2, 3, "s2"}};
    for (const auto& row : rows) {
        world->heard();
        click(numbered("Startfrm/AntSpelare", row.pressed));
        EXPECT_EQ(world->heard(), row.heard) << row.pressed;
        EXPECT_EQ(Antal_spelare, row.players);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(name_box(i).isEnabled(), i < row.players) << i;
    }
    EXPECT_EQ(Spelare[4].Namn, "Gul") << "closed boxes keep their names";
}

TEST_F(StartWindow, SoundSwitch) {
    load();
    world->heard();
    for (const char* heard : {"s1", "", "s1"}) {
        click("Startfrm/Sound");
        EXPECT_EQ(world->heard(), heard);
        EXPECT_EQ(Ljud_på, *heard == 0);
    }
    click("Startfrm/Starta");
    settle();
    hover({30, 15});
    EXPECT_EQ(play("3 butNästa"), "");
}

TEST_F(StartWindow, ComesBackWithTheChoicesMade) {
    load();
    click("Startfrm/AntSpelare(3)");
    click("Startfrm/Sound");
    name_box(2).setText("Åke");
    click("Startfrm/Starta");
    settle();
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
    program = std::make_unique<Program>();
    program->Main();
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
    // A record that is too long, a number that is too large, a directory.
    for (const std::string& content :
         {std::string("\x7F") + std::string(1, 0) + std::string(126, '1'),
          "\x0A" + std::string(1, 0) + "9999999999", std::string()}) {
        std::filesystem::remove("brs.dat");
        if (content.empty())
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

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
        return dynamic_cast<QLineEdit&>(at("Startfrm/Namn(" + std::to_string(index) + ")"));
    }
    static void paste(QLineEdit& box, const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        box.setFocus();
        key("Startfrm", Qt::Key_V, Qt::ControlModifier);
    }
};

struct NameRow {
    const char* purpose;
    const char* before;
    int cursor;  ///< UTF-16 units
    const char *pasted, *name, *sentence;
};

void PrintTo(const NameRow& row, std::ostream* out) { *out << row.purpose; }

class Name : public StartWindow, public testing::WithParamInterface<NameRow> {};

TEST_P(Name, IsUsedAsTyped) {
    load();
    const NameRow& row = GetParam();
    QLineEdit& box = name_box(0);
    box.setText(QString::fromUtf8(row.before));
    box.setCursorPosition(row.cursor);
    paste(box, row.pasted);
    EXPECT_EQ(Spelare[1].Namn, row.name);
    EXPECT_TRUE(box.text().isValidUtf16()) << "no half of a pair is left";
    click("Startfrm/Starta");
    settle();
    EXPECT_EQ(text("labVisa_tur"), row.sentence);
    EXPECT_EQ(dynamic_cast<QLabel&>(at("labVisa_tur")).textFormat(), Qt::PlainText);
    place(1, {55, 55, 44, 55});
    throw_die(1);
    when_shown("Grattis", [&] {
        EXPECT_EQ(text("Grattis/lbNamn(0)"), row.name);
        const std::string winner = *row.name == 0 ? "Röd" : row.name;
        EXPECT_EQ(text("Grattis/labVisa_vinnare"), winner + " har vunnit!");
        for (const char* label : {"Grattis/lbNamn(0)", "Grattis/labVisa_vinnare"})
            EXPECT_EQ(dynamic_cast<QLabel&>(at(label)).textFormat(), Qt::PlainText);
        grab("Grattis");
        click("Grattis/butNytt_snabbt");
    });
    click("Pjäs(2)");
    settle();
    EXPECT_EQ(text("labVisa_tur"), row.sentence);
    grab("MFrm");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Name,
    testing::Values(
        NameRow{"ends in s", "", 0, "Lars", "Lars", "Lars tur!"},
        NameRow{"ends in S", "", 0, "LARS", "LARS", "LARS tur!"},
        NameRow{"ends in z", "", 0, "Fritz", "Fritz", "Fritzs tur!"},
        NameRow{"empty", "", 0, "", "", "s tur!"},
        NameRow{"blanks alone", "", 0, "   ", "   ", "   s tur!"},
        NameRow{"blanks around", "", 0, "  Bo s ", "  Bo s ", "  Bo s s tur!"},
        NameRow{"looks like rich text", "", 0, "<b>Eva</b>", "<b>Eva</b>", "<b>Eva</b>s tur!"},
        NameRow{"looks like an entity", "", 0, "&amp;<br>", "&amp;<br>", "&amp;<br>s tur!"},
        NameRow{"eleven letters", "", 0, "abcdefghijk", "abcdefghij", "abcdefghijs tur!"},
        NameRow{"into the middle of a full one", "0123456789", 5, "ab", "0123456789",
                "0123456789s tur!"},
        NameRow{"more than fits into the middle", "abcdefgh", 3, "1234", "abc12defgh",
                "abc12defghs tur!"},
        NameRow{"twelve emoji", "", 0, "😀😁😂😃😄😅😆😇😈😉😊😋", "😀😁😂😃😄😅😆😇😈😉", "😀😁😂😃😄😅😆😇😈😉s tur!"},
        NameRow{"an emoji between emoji", "😀😀😀😀😀😀😀😀😀", 8, "a😁", "😀😀😀😀a😀😀😀😀😀", "😀😀😀😀a😀😀😀😀😀s tur!"},
        NameRow{"combining marks", "", 0, "éåö", "éåö", "éåös tur!"},
        NameRow{"marks upon marks", "", 0, "Z̸̢̛̬͎͕̲̝", "Z̸̢̛̬͎͕̲̝", "Z̸̢̛̬͎͕̲̝s tur!"},
        NameRow{"right to left", "", 0, "שלום עולם", "שלום עולם", "שלום עולםs tur!"},
        NameRow{"an override of the direction", "", 0, "ab\u202Ecd", "ab\u202Ecd",
                "ab\u202Ecds tur!"}));

TEST_F(StartWindow, AnInputMethodIsHeldToTheSameLength) {
    load();
    QLineEdit& box = name_box(1);
    box.clear();
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8("漢字漢字漢字漢字漢字漢字"));
    QApplication::sendEvent(&box, &event);
    EXPECT_EQ(Spelare[2].Namn, "漢字漢字漢字漢字漢字");
    paste(box, "x");
    key("Startfrm", Qt::Key_Backspace);
    EXPECT_EQ(Spelare[2].Namn, "漢字漢字漢字漢字漢");
}

TEST_F(StartWindow, NoMenuInAForeignLanguageComesUp) {
    load();
    click("Startfrm/Starta");
    settle();
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
    world->heard();
    EXPECT_EQ(Antal_spelare, 2);
    const struct {
        const char* press;
        int players;
        const char* heard;
    } rows[] = {{"AntSpelare(3)", 4, "s2"},
                {"AntSpelare(1)", 2, "s2"},
                {"AntSpelare(0)", 2, ""},
                {"AntSpelare(2)", 3, "s2"},
                {"AntSpelare(2)", 3, "s2"}};
    for (const auto& row : rows) {
        click("Startfrm/" + std::string(row.press));
        EXPECT_EQ(world->heard(), row.heard) << row.press;
        EXPECT_EQ(Antal_spelare, row.players);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(name_box(i).isEnabled(), i < row.players) << i;
    }
    EXPECT_EQ(Spelare[4].Namn, "Gul") << "closed boxes keep their names";
}

TEST_F(StartWindow, SoundSwitch) {
    load();
    world->heard();
    for (const char* heard : {"s1", "", "s1", ""}) {
        const bool before = Ljud_på;
        click("Startfrm/Sound");
        EXPECT_EQ(world->heard(), heard);
        EXPECT_EQ(Ljud_på, !before);
    }
    at("Startfrm/Sound").setFocus();
    key("Startfrm", Qt::Key_Space);
    EXPECT_EQ(world->heard(), "s1");
    click("Startfrm/Starta");
    EXPECT_EQ(world->heard(), "") << "off";
}

TEST_F(StartWindow, ByTheKeyboardAlone) {
    load();
    key("Startfrm", Qt::Key_Tab);
    EXPECT_TRUE(name_box(0).hasFocus());
    for (const char letter : {'e', 'v', 'a'}) QTest::keyClick(QApplication::focusWindow(), letter);
    for (int i = 0; i < 2; ++i) key("Startfrm", Qt::Key_Tab);
    EXPECT_TRUE(at("Startfrm/Starta").hasFocus());
    key("Startfrm", Qt::Key_Tab);
    EXPECT_TRUE(at("Startfrm/Sound").hasFocus());
    key("Startfrm", Qt::Key_Tab);
    EXPECT_TRUE(at("Startfrm/AntSpelare(1)").hasFocus());
    key("Startfrm", Qt::Key_Down);
    EXPECT_EQ(Antal_spelare, 3) << "the arrows choose";
    for (int i = 0; i < 2; ++i) key("Startfrm", Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(at("Startfrm/Starta").hasFocus());
    key("Startfrm", Qt::Key_Space);
    settle();
    EXPECT_TRUE(shown("MFrm"));
    EXPECT_EQ(text("labVisa_tur"), "evas tur!");
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
        EXPECT_TRUE(at("Startfrm/AntSpelare(3)").property("checked").toBool());
        EXPECT_FALSE(at("Startfrm/Sound").property("checked").toBool());
        EXPECT_EQ(text("Startfrm/Namn(2)"), "Åke");
        click("Tärning");
        click("Startfrm/Starta");
    });
    key("MFrm", Qt::Key_F2);
    settle();
    EXPECT_EQ(Antal_spelare, 4);
    EXPECT_FALSE(Ljud_på);
    EXPECT_EQ(Spelare[3].Namn, "Åke");
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
    EXPECT_EQ(text("labVisa_tur"), "Röds tur!");
    EXPECT_EQ(difference(), "");
}

TEST_F(StartWindow, WithoutAPositionsFileTheGameGoesOn) {
    std::filesystem::remove("brs.dat");
    start();
    EXPECT_TRUE(std::filesystem::exists("brs.dat"));
    throw_die(1);
    click("butEn_pjäs");
    settle();
    EXPECT_EQ(at("Pjäs(3)").pos(), QPoint(0, 0));
    EXPECT_EQ(squares(2), "0 0 0 0") << "nobody is knocked out of a nest";
    EXPECT_EQ(difference(), "");
    EXPECT_TRUE(ends.empty());
}

class BadPositions : public StartWindow, public testing::WithParamInterface<std::string> {};

TEST_P(BadPositions, StopTheProgramWithAMessage) {
    std::filesystem::remove("brs.dat");
    if (GetParam().empty())
        std::filesystem::create_directory("brs.dat");
    else
        std::ofstream("brs.dat") << GetParam();
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

// A directory, a record that is too long, a number that is too large.
INSTANTIATE_TEST_SUITE_P(Files, BadPositions,
                         testing::Values("", std::string("\x7F\0", 2) + std::string(126, '1'),
                                         std::string("\x0A\0", 2) + "9999999999"));

}  // namespace
}  // namespace brusbo::test

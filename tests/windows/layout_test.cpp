// What the windows consist of: their elements, where those stand, what is written on them, what a
// screen reader is told of them.

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Layout : public Stage {
   protected:
    static void expect_window(const std::string& name, const char* title, QSize size,
                              Qt::WindowFlags caption) {
        const QWidget& window = *Stage::window(name);
        EXPECT_EQ(window.windowTitle().toStdString(), title);
        EXPECT_EQ(window.size(), size);
        EXPECT_EQ(window.minimumSize() == size && window.maximumSize() == size, name != "Slut");
        EXPECT_EQ(window.windowFlags() &
                      (Qt::WindowType_Mask | Qt::FramelessWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint),
                  caption);
        const QPoint off = window.geometry().center() - screen_area().center();
        EXPECT_TRUE(std::abs(off.x()) < 9 && std::abs(off.y()) < 17) << "a caption off the middle";
        for (QWidget* each : window.findChildren<QWidget*>())
            if (is_read_or_clicked(*each) || each->isVisible()) expect_in_order(*each);
    }

    static bool is_read_or_clicked(const QWidget& element) {
        return element.inherits("QAbstractButton") || element.inherits("QLabel") ||
               element.inherits("QLineEdit");
    }

    static void expect_in_order(QWidget& element) {
        const std::string name = element.objectName().toStdString();
        if (name.starts_with("qt_") || element.isWindow()) return;  // the toolkit's own
        SCOPED_TRACE(name);
        EXPECT_TRUE(element.parentWidget()->rect().contains(element.geometry()));
        for (const QWidget* other : element.parentWidget()->findChildren<QWidget*>())
            EXPECT_FALSE(lie_on_each_other(element, *other)) << other->objectName().toStdString();

        auto* const interface = QAccessible::queryAccessibleInterface(&element);
        EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty());
        const bool checkable = element.property("checkable").toBool();
        const QAccessible::Role role = interface->role();
        EXPECT_EQ(role == QAccessible::EditableText,
                  element.inherits("QLineEdit") || name == "Text");
        EXPECT_EQ(role == QAccessible::CheckBox, name == "Sound");
        EXPECT_EQ(role == QAccessible::RadioButton, checkable && name != "Sound");
        EXPECT_EQ(role == QAccessible::Button, element.inherits("QAbstractButton") && !checkable);
    }

    /// But for the single lines of pixels that some labels share.
    static bool lie_on_each_other(const QWidget& one, const QWidget& other) {
        return &one != &other && one.parent() == other.parent() && one.isVisible() &&
               other.isVisible() && is_read_or_clicked(one) && is_read_or_clicked(other) &&
               one.geometry().adjusted(1, 1, -1, -1).intersects(other.geometry());
    }

    /// What is to be read in a window, from the lowest element up, with the size of the letters,
    /// b for bold ones, and the colour of the text or of the button it stands on.
    static std::string texts(const std::string& name) {
        std::string result;
        QWidget* const window = Stage::window(name);
        for (const QWidget* each : window->findChildren<QWidget*>()) {
            const std::string text = each->property("text").toString().toStdString();
            if (!each->isVisible() || text.empty()) continue;
            const QFont& font = each->font();
            EXPECT_EQ(font.family(), "Liberation Sans");
            const bool button = each->inherits("QAbstractButton");
            // Inside the frame of the focus, outside the text.
            const QColor colour = button ? pixel(name, each->mapTo(window, QPointF(5.5, 5.5)))
                                         : each->palette().color(QPalette::WindowText);
            result += text + "|" + std::to_string(font.pixelSize()) + (font.bold() ? "b" : "") +
                      colour.name().toStdString() + "\n";
        }
        return result;
    }

    /// Places in the elements' containers.
    static void expect_spots(const std::vector<std::pair<std::string, QRect>>& spots) {
        for (const auto& [name, place] : spots) EXPECT_EQ(at(name).geometry(), place) << name;
    }

    /// Names of the elements that Tab goes through, from where the focus is.
    static std::string tab_order(const std::string& name) {
        std::string names;
        const QWidget* const first = window(name)->focusWidget();
        do {
            names += window(name)->focusWidget()->objectName().toStdString() + " ";
            key(name, Qt::Key_Tab);
        } while (window(name)->focusWidget() != first);
        return names;
    }

    /// Names of a container's elements, from the lowest up.
    static std::string stack(const std::string& container) {
        std::string names;
        for (const QObject* child : at(container).children())
            names += child->objectName().toStdString() + " ";
        return names;
    }
};

constexpr auto tool_caption = Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

TEST_F(Layout, StartWindow) {
    load();
    expect_window("Startfrm", "Brusbo", {188, 305}, tool_caption);
    EXPECT_EQ(texts("Startfrm"),
              "Röd|11#000000\nBlå|11#000000\nGrön|11#787878\nGul|11#787878\nStarta|13#ffe0c0\n"
              "Ljud på/av|11b#ffff00\n");
    expect_spots({{"Startfrm/Starta", {60, 258, 71, 33}}, {"Startfrm/Sound", {54, 216, 13, 13}}});
    const char* const faces[] = {"#ff0000", "#0000ff", "#00ff00", "#ffff00"};
    const int tops[] = {108, 128, 150, 172};
    for (int i = 0; i < 4; ++i) {
        // Both lie on half pixels, which go to the same side.
        const auto& option = as<QAbstractButton>(numbered("Startfrm/AntSpelare", i));
        const QWidget& name = at(numbered("Startfrm/Namn", i));
        EXPECT_EQ(option.geometry(), QRect(28, tops[i], 15, 17));
        EXPECT_EQ(name.geometry(), QRect(52, 104 + 22 * i, 105, 19));
        EXPECT_EQ(pixel("Startfrm", option.pos() + QPointF(4, 4)), QColor(faces[i]));
        EXPECT_EQ(name.isEnabled(), i < 2);
        EXPECT_EQ(option.isEnabled(), i > 0);
        EXPECT_EQ(option.isChecked(), i == 1);
    }
    EXPECT_TRUE(as<QAbstractButton>("Startfrm/Sound").isChecked());
    EXPECT_EQ(tab_order("Startfrm"), "AntSpelare(1) Namn(0) Namn(1) Starta Sound ");
}

TEST_F(Layout, MainWindow) {
    start();
    const auto expect_main_window = [] {
        expect_window("MFrm", "Brusbo", {570, 416}, Qt::Window | Qt::WindowTitleHint);
        EXPECT_EQ(difference(), "");
    };
    expect_main_window();
    EXPECT_EQ(texts("MFrm"),
              "https://brusbo.example.org|11b#000080\nRöds tur!|13b#000000\n"
              "Slå genom att klicka på tärnningen.|11#000000\n");
    play("6");
    expect_main_window();
    EXPECT_NE(texts("MFrm").find("Antal pjäser klara: 0|11b#ffffff\n"), std::string::npos);
    EXPECT_TRUE(
        texts("MFrm").ends_with("Flytta ut 1 pjäs|11#ffff00\nFlytta ut 2 pjäser|11#ffff00\n"));
    play("butTvå_pjäser");
    EXPECT_TRUE(texts("MFrm").ends_with("\nNästa spelare|11#ffe0c0\n"));

    for (const QPointF margin : {QPointF(1, 200), QPointF(300, 1), QPointF(300, 35.4)})
        EXPECT_EQ(pixel("MFrm", margin), QColor(Qt::black));
    EXPECT_EQ(pixel("MFrm", {259, 105}), QColor(0x80, 0, 0)) << "the highlight, amid a nest";
    EXPECT_EQ(at("butMini").toolTip(), "Minimera");
    EXPECT_EQ(at("butAvsluta").toolTip(), "Avsluta");
    EXPECT_TRUE(as<QLabel>("labPjäser_klara").alignment() & Qt::AlignRight);
    expect_spots({{"Picture2", {2, 36, 189, 378}},
                  {"Picture1", {190, 36, 378, 378}},
                  {"mnuArkiv", {12, 6, 41, 20}},
                  {"mnuOm", {66, 8, 39, 20}},
                  {"labPjäser_klara", {344, 10, 169, 17}},
                  {"butMini", {524, 6, 13, 20}},
                  {"butAvsluta", {544, 8, 16, 19}},
                  {"labVisa_tur", {26, 90, 149, 19}},
                  {"imgVisa_tur", {142, 86, 26, 26}},
                  {"labMeddelande", {28, 204, 131, 101}},
                  {"butEn_pjäs", {22, 324, 143, 17}},
                  {"butTvå_pjäser", {22, 344, 143, 17}},
                  {"butNästa", {38, 328, 113, 27}}});
    EXPECT_EQ(at("Tärning").y(), 128);
    EXPECT_EQ(at("shpHålbak").size(), QSize(127, 123));
}

TEST_F(Layout, PiecesInTheirNestsAndWhatLiesAboveWhat) {
    load();
    const Point corners[] = {{36, 34}, {274, 34}, {274, 272}, {36, 274}};
    const int rows_apart[] = {44, 46, 44, 42};
    std::string board = "Grafik shpHålbak ", markers;
    for (int b = 0; b < 16; ++b) {
        const auto [left, top] = corners[b / 4];
        const QPoint place(left + b % 2 * 42, top + b % 4 / 2 * rows_apart[b / 4]);
        EXPECT_EQ(at(numbered("Pjäs", b)).geometry(), QRect(place, QSize(26, 26))) << b;
        EXPECT_EQ(at(numbered("Plus", b)).size(), QSize(9, 9));
        board += numbered("Pjäs", b) + " ";
        markers += numbered("Plus", b) + " ";
    }
    EXPECT_EQ(stack("Picture1"), board + markers);
    EXPECT_EQ(stack("Namnlist"), "Label1 labPjäser_klara mnuArkiv mnuOm butMini butAvsluta ");
    EXPECT_TRUE(stack("Picture2").ends_with("butEn_pjäs butTvå_pjäser butNästa "));
}

TEST_F(Layout, AboutWindow) {
    start();
    when_shown("frmOm", [&] {
        expect_window("frmOm", "Om...", {188, 378}, tool_caption);
        EXPECT_EQ(texts("frmOm"),
                  "brusbo.example.org|11b#ffff00\nProgrammet är FREEWARE|11b#ffffff\n"
                  "Programmering:|11b#ffff00\nTeamet|11#ffffff\nGrafik:|11b#ffff00\n"
                  "Teamet|11#ffffff\nLjud:|11b#ffff00\nTeamet|11#ffffff\n"
                  "Copyright © 2026|11b#ffffff\nBrusboteamet|11b#ffffff\nKlar|13#ffe0c0\n");
        for (int i = 0; i < 3; ++i)
            expect_spots({{"frmOm/Label" + std::to_string(1 + i), {18, 180 + 16 * i, 99, 17}},
                          {"frmOm/Label" + std::to_string(4 + i), {120, 180 + 16 * i, 59, 13}}});
        expect_spots({{"frmOm/Klar", {56, 320, 71, 33}}});
        click("frmOm/Klar");
    });
    click("mnuOm");
}

TEST_F(Layout, WinnerWindowInTheWinnersColours) {
    const std::string strong_colours[] = {"#ff0000\n", "#0000ff\n", "#00ff00\n", "#ffff00\n"};
    const std::string light_colours[] = {"#ffc0c0\n", "#c0c0ff\n", "#c0ffc0\n", "#ffffc0\n"};
    const std::string names[] = {"Röd", "Blå", "Grön", "Gul"};
    for (int winner = 0; winner < 4; ++winner) {
        const std::string &strong = strong_colours[winner], &light = light_colours[winner];
        const int players = std::max(winner + 1, 2);
        std::string written = names[winner] + " har vunnit!|13b" + strong + "Resultat:|11" + light;
        for (int i = 0; i < players; ++i)
            written += names[i] + "|11" + strong + (i == winner ? "4" : "0") + "|11" + light;
        for (const char* button : {"Nytt spel|11", "Avsluta|11", "Nytt spel (snabbt)|11"})
            written += button + light;
        start(players);
        for (int before = 0; before < winner; ++before) play("2 butNästa");
        win([&] {
            expect_window("Grattis", "Brusbo", {309, 294}, Qt::Dialog | Qt::FramelessWindowHint);
            EXPECT_EQ(texts("Grattis"), written);
            for (int i = 0; i < 4; ++i)
                expect_spots({{numbered("Grattis/lbNamn", i), {18, 154 + 18 * i, 179, 15}},
                              {numbered("Grattis/lbResultat", i), {206, 154 + 18 * i, 81, 15}}});
            for (const int top : {68, 110, 242})
                EXPECT_EQ(pixel("Grattis", {16.5, top + 0.5}).name().toStdString() + "\n", strong);
            EXPECT_EQ(pixel("Grattis", {200, 30}), QColor(Qt::black));
            EXPECT_EQ(picture(at("Grattis/imgGrattis")), nth(brusbo::picture("banner-1"), winner));
            EXPECT_EQ(tab_order("Grattis"), "butNytt_spel Avsluta butNytt_snabbt ");
            click("Grattis/butNytt_snabbt");
        });
    }
}

TEST_F(Layout, FarewellWindow) {
    start();
    click("butAvsluta");
    expect_window("Slut", "", {312, 212}, Qt::Window | Qt::FramelessWindowHint);
    auto& words = as<QPlainTextEdit>("Slut/Text");
    const QColor face = words.window()->palette().color(QPalette::Window);
    EXPECT_EQ(texts("Slut"),
              "Läs detta!|24b#000000\nTryck sedan på stäng!|13b#000000\nStäng|11#f0f0f0\n");
    expect_spots({{"Slut/Text", {14, 54, 283, 111}}, {"Slut/Stäng", {236, 178, 65, 25}}});
    EXPECT_EQ(words.palette().color(QPalette::Base), face);
    EXPECT_EQ(words.blockCount(), 9) << "the last one empty";
    EXPECT_EQ(words.document()->lineCount(), 9) << "no line is broken";
    const QTextCursor last_line(words.document()->findBlockByNumber(7));
    EXPECT_LT(words.cursorRect(last_line).bottom(), words.viewport()->height());
    EXPECT_FALSE(words.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(words.verticalScrollBar()->isVisible());
}

TEST_F(Layout, GameMenu) {
    start();
    in_menu([&] {
        auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        EXPECT_EQ(menu.pos(), window("MFrm")->mapToGlobal(QPoint(14, 28)));
        std::string items = menu.objectName().toStdString() + "=" + menu.title().toStdString();
        for (const QAction* item : menu.actions())
            items += (", " + item->objectName() + "=" + item->text()).toStdString() +
                     item->shortcut().toString().toStdString();
        EXPECT_EQ(items,
                  "aaa=Arkiv, mnuNytt_spel=Nytt spelF2, "
                  "mnuNytt_snabbt=Nytt spel (snabbt, samma spelare), nada=, mnuAvsluta=Avsluta");
        EXPECT_TRUE(menu.actions().at(2)->isSeparator());
        menu.close();
    });
    click("mnuArkiv");
}

}  // namespace
}  // namespace brusbo::test

// Where every element of every window stands and what it looks like.

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <cmath>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

constexpr QRgb black = 0xFF000000, white = 0xFFFFFFFF, yellow = 0xFFFFFF00, cream = 0xFFFFE0C0;

enum Kind : std::uint8_t { picture, button, label, option, check, box, line };

struct Row {
    std::string name;
    double x, y;  ///< in the element's container
    int width, height;
    Kind kind;
    std::string text = "";
    const char* font = "";  ///< pixels, then b for bold
    QRgb colour = 0;        ///< of a label's text, a button's face, a line
    bool visible = true;
};

std::string font_of(const QWidget& widget) {
    const QFont& font = widget.font();
    EXPECT_EQ(font.family(), "Liberation Sans");
    return std::to_string(font.pixelSize()) + (font.bold() ? "b" : "");
}

void expect_accessible(Kind kind, QWidget& element) {
    auto* const interface = QAccessible::queryAccessibleInterface(&element);
    ASSERT_NE(interface, nullptr);
    EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty());
    const QAccessible::Role role = interface->role();
    EXPECT_EQ(role == QAccessible::Button, kind == button);
    EXPECT_EQ(role == QAccessible::RadioButton, kind == option);
    EXPECT_EQ(role == QAccessible::CheckBox, kind == check);
    EXPECT_EQ(role == QAccessible::EditableText, kind == box);
    if (kind != button && kind != option) return;
    EXPECT_TRUE(interface->actionInterface()->actionNames().contains(
        kind == button ? QAccessibleActionInterface::pressAction()
                       : QAccessibleActionInterface::toggleAction()));
}

class Layout : public Stage {
   protected:
    static void expect_rows(const std::string& window, const std::vector<Row>& rows) {
        const QImage seen = grab(window);
        for (const Row& row : rows) {
            const std::string name = window + "/" + row.name;
            SCOPED_TRACE(name);
            QWidget& element = at(name);
            // Half pixels go to one side.
            EXPECT_LE(std::abs(element.x() - row.x), 0.5) << element.x();
            EXPECT_LE(std::abs(element.y() - row.y), 0.5) << element.y();
            EXPECT_EQ(element.size(), QSize(row.width, row.height));
            EXPECT_EQ(visible(name), row.visible);
            EXPECT_EQ(text(name), row.text);
            EXPECT_TRUE(*row.font == 0 || font_of(element) == row.font) << font_of(element);
            expect_accessible(row.kind, element);
            if (!row.visible || row.colour == 0) continue;
            // Inside the frame of the focus, outside the text or mark in the middle.
            const double inside = row.kind == line ? 0.5 : row.kind == option ? 4 : 5.5;
            if (row.kind == label)
                EXPECT_EQ(element.palette().color(QPalette::WindowText), QColor(row.colour));
            else
                EXPECT_EQ(pixel(seen, in_window(name, QPoint()) + QPointF(inside, inside)),
                          QColor(row.colour));
        }
    }

    /// The flags that make up a caption.
    static std::string caption_of(const QWidget& window) {
        const Qt::WindowFlags flags = window.windowFlags();
        std::string result = (flags & Qt::WindowType_Mask) == Qt::Tool ? "tool" : "window";
        for (const auto& [flag, name] : {std::pair(Qt::FramelessWindowHint, " frameless"),
                                         {Qt::WindowTitleHint, " title"},
                                         {Qt::WindowCloseButtonHint, " close"},
                                         {Qt::WindowMinimizeButtonHint, " minimise"},
                                         {Qt::WindowMaximizeButtonHint, " maximise"}})
            if (flags & flag) result += name;
        return result;
    }

    static void expect_window(const std::string& name, const char* title, QSize client,
                              const char* caption, const QRect& centred_in) {
        const QWidget& window = *Stage::window(name);
        EXPECT_EQ(window.windowTitle().toStdString(), title);
        EXPECT_EQ(window.size(), client);
        EXPECT_EQ(caption_of(window), caption);
        const QPoint off = window.geometry().center() - centred_in.center();
        EXPECT_LE(std::abs(off.x()), 8);
        EXPECT_LE(std::abs(off.y()), 16) << "a caption apart";
        const bool fixed = window.minimumSize() == client && window.maximumSize() == client;
        EXPECT_EQ(fixed, name != "Slut");
    }

    /// The names of the elements that Tab goes through from the first on, by the layout alone.
    static std::string tab_order(const std::string& from) {
        std::string names;
        QWidget* each = &at(from);
        do {
            for (const char* kind : {"CommandButton", "OptionButton", "CheckBox", "NameBox"})
                if (each->inherits((std::string("brusbo::") + kind).c_str()))
                    names += each->objectName().toStdString() + " ";
            each = each->nextInFocusChain();
        } while (each != &at(from));
        return names;
    }
};

TEST_F(Layout, StartWindow) {
    load();
    expect_window("Startfrm", "Brusbo", {188, 305}, "tool title close", screen_area());
    expect_rows("Startfrm", {{"AntSpelare(0)", 28, 108, 15, 17, option, "", "", 0xFFFF0000},
                             {"AntSpelare(1)", 28.5, 128, 15, 17, option, "", "", 0xFF0000FF},
                             {"AntSpelare(2)", 28.5, 150, 15, 17, option, "", "", 0xFF00FF00},
                             {"AntSpelare(3)", 28.5, 172, 15, 17, option, "", "", 0xFFFFFF00},
                             {"Namn(0)", 52.5, 104, 105, 19, box, "Röd", "11"},
                             {"Namn(1)", 52.5, 126, 105, 19, box, "Blå", "11"},
                             {"Namn(2)", 52.5, 148, 105, 19, box, "Grön", "11"},
                             {"Namn(3)", 52.5, 170, 105, 19, box, "Gul", "11"},
                             {"Sound", 54, 216, 13, 13, check},
                             {"Label3", 72, 216, 83, 15, label, "Ljud på/av", "11b", yellow},
                             {"Starta", 60, 258, 71, 33, button, "Starta", "13", cream},
                             {"imgLinje(0)", 18, 202, 153, 8, picture},
                             {"imgLinje(1)", 18, 236, 153, 8, picture},
                             {"imgLinje(2)", 18, 84, 153, 8, picture}});
    for (int i = 0; i < 4; ++i) {
        const std::string name = numbered("Startfrm/Namn", i);
        const std::string option = numbered("Startfrm/AntSpelare", i);
        EXPECT_EQ(at(name).x() - at(option).x(), 24) << "both lie on half pixels";
        EXPECT_EQ(at(name).isEnabled(), i < 2);
        EXPECT_EQ(at(option).isEnabled(), i > 0);
        EXPECT_EQ(checked(option), i == 1);
    }
    EXPECT_TRUE(checked("Startfrm/Sound"));
    EXPECT_EQ(tab_order("Startfrm/AntSpelare(0)"),
              "AntSpelare(0) AntSpelare(1) AntSpelare(2) AntSpelare(3) Namn(0) Namn(1) Namn(2) "
              "Namn(3) Starta Sound ");
    EXPECT_EQ(window("Startfrm")->focusWidget()->objectName(), "AntSpelare(1)");
}

TEST_F(Layout, MainWindow) {
    start();
    expect_window("MFrm", "Brusbo", {570, 416}, "window title", screen_area());
    for (const QPointF margin : {QPointF(1, 200), QPointF(300, 1), QPointF(300, 35.4)})
        EXPECT_EQ(pixel(grab("MFrm"), margin), QColor(black));
    std::vector<Row> rows = {
        {"Namnlist", 2, 2, 567, 32, picture},
        {"Picture2", 2, 36, 189, 378, picture},
        {"Picture1", 190, 36, 378, 378, picture},
        {"mnuArkiv", 12, 6, 41, 20, button},
        {"mnuOm", 66, 8, 39, 20, button},
        {"Label1", 118, 10, 225, 15, label, text("Label1"), "11b", 0xFF000080},
        {"labPjäser_klara", 344, 10, 169, 17, label, "Antal pjäser klara: 0", "11b", white, false},
        {"butMini", 524, 6, 13, 20, button},
        {"butAvsluta", 544, 8, 16, 19, button},
        {"imgLinje(0)", 18, 84, 153, 8, picture},
        {"imgLinje(1)", 18, 106, 153, 8, picture},
        {"imgLinje(2)", 18, 190, 153, 8, picture},
        {"imgLinje(3)", 18, 306, 153, 8, picture},
        {"labVisa_tur", 26, 90, 149, 19, label, "Röds tur!", "13b", black},
        {"imgVisa_tur", 142, 86, 26, 26, picture},
        {"Tärning", 30, 128, 50, 50, button},
        {"labMeddelande", 28, 204, 131, 101, label, "Slå genom att klicka på tärnningen.", "11",
         black},
        {"butEn_pjäs", 22, 324, 143, 17, button, "Flytta ut 1 pjäs", "11", yellow, false},
        {"butTvå_pjäser", 22, 344, 143, 17, button, "Flytta ut 2 pjäser", "11", yellow, false},
        {"butNästa", 38, 328, 113, 27, button, "Nästa spelare", "11", cream, false},
        {"shpHålbak", 6, 8, 127, 123, picture}};
    const QPoint nests[] = {{36, 34},  {78, 34},  {36, 78},   {78, 78},   {274, 34},  {316, 34},
                            {274, 80}, {316, 80}, {274, 272}, {316, 272}, {274, 316}, {316, 316},
                            {36, 274}, {78, 274}, {36, 316},  {78, 316}};
    for (int b = 0; b < 16; ++b) {
        const QPointF nest = nests[b];
        rows.push_back({numbered("Pjäs", b), nest.x(), nest.y(), 26, 26, button});
    }
    expect_rows("MFrm", rows);
    EXPECT_EQ(difference(), "");
    EXPECT_EQ(at("butMini").toolTip(), "Minimera");
    EXPECT_EQ(at("butAvsluta").toolTip(), "Avsluta");
    EXPECT_EQ(as<QLabel>("labPjäser_klara").alignment() & Qt::AlignHorizontal_Mask,
              Qt::AlignRight | Qt::AlignAbsolute);

    const auto expect_shown = [&](const std::vector<int>& indices) {
        std::vector<Row> now;
        for (const int index : indices) {
            now.push_back(rows[static_cast<std::size_t>(index)]);
            now.back().visible = true;
        }
        expect_rows("MFrm", now);
    };
    throw_die(6);
    expect_shown({6, 17, 18});
    click("butTvå_pjäser");
    settle();
    expect_shown({6, 19});
}

TEST_F(Layout, StackingOrder) {
    start();
    const auto expect_above = [](const std::string& above, const std::string& below) {
        const QObjectList& order = at(above).parentWidget()->children();
        EXPECT_GT(order.indexOf(&at(above)), order.indexOf(&at(below))) << above << " " << below;
    };
    for (int b = 0; b < 16; ++b) {
        expect_above(numbered("Pjäs", b), "shpHålbak");
        for (int other = 0; other < 16; ++other)
            expect_above(numbered("Plus", other), numbered("Pjäs", b));
    }
    for (const char* above : {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"})
        for (const char* below : {"Label1", "labPjäser_klara"}) expect_above(above, below);
    for (const char* below : {"labVisa_tur", "imgVisa_tur", "Tärning", "labMeddelande",
                              "butEn_pjäs", "butTvå_pjäser", "imgLinje(3)"})
        expect_above("butNästa", below);
}

TEST_F(Layout, WinnerWindowInTheWinnersColours) {
    constexpr QRgb strong_colours[] = {0xFFFF0000, 0xFF0000FF, 0xFF00FF00, 0xFFFFFF00};
    constexpr QRgb light_colours[] = {0xFFFFC0C0, 0xFFC0C0FF, 0xFFC0FFC0, 0xFFFFFFC0};
    const std::string names[] = {"Röd", "Blå", "Grön", "Gul"};
    for (int winner = 0; winner < 4; ++winner) {
        SCOPED_TRACE(names[winner]);
        const QRgb strong = strong_colours[winner], light = light_colours[winner];
        std::vector<Row> rows = {
            {"imgGrattis", 12, 12, 148, 46, picture},
            {"linje(0)", 16, 68, 279, 1, line, "", "", strong},
            {"linje(1)", 16, 110, 279, 1, line, "", "", strong},
            {"linje(2)", 14, 242, 279, 1, line, "", "", strong},
            {"labVisa_vinnare", 18, 78, 273, 23, label, names[winner] + " har vunnit!", "13b",
             strong},
            {"labResultat", 18, 120, 169, 13, label, "Resultat:", "11", light},
            {"butNytt_spel", 16, 256, 65, 25, button, "Nytt spel", "11", light},
            {"butNytt_snabbt", 102, 256, 101, 25, button, "Nytt spel (snabbt)", "11", light},
            {"Avsluta", 224, 256, 65, 25, button, "Avsluta", "11", light}};
        const int players = std::max(winner + 1, 2);
        for (int i = 0; i < 4; ++i) {
            const bool plays = i < players;
            const char* const count = !plays ? "" : i == winner ? "4" : "0";
            const double y = 154 + 18 * i;
            rows.push_back({numbered("lbNamn", i), 18, y, 179, 15, label, plays ? names[i] : "",
                            "11", strong});
            rows.push_back({numbered("lbResultat", i), 206, y, 81, 15, label, count, "11", light});
        }
        start(players);
        pass_to(winner + 1);
        win([&] {
            expect_window("Grattis", "Brusbo", {309, 294}, "window frameless",
                          window("MFrm")->frameGeometry());
            expect_rows("Grattis", rows);
            EXPECT_EQ(as<Image>("Grattis/imgGrattis").picture(), nth(Picture::banner_1, winner));
            EXPECT_EQ(pixel(grab("Grattis"), {200, 30}), QColor(black));
            EXPECT_EQ(tab_order("Grattis/butNytt_spel"), "butNytt_spel Avsluta butNytt_snabbt ");
            EXPECT_EQ(window("Grattis")->focusWidget()->objectName(), "butNytt_spel");
            click("Grattis/butNytt_snabbt");
        });
        EXPECT_FALSE(shown("Grattis"));
    }
}

TEST_F(Layout, AboutWindow) {
    start();
    when_shown("frmOm", [&] {
        expect_window("frmOm", "Om...", {188, 378}, "tool title close", screen_area());
        const auto own = [](const char* name) { return text("frmOm/" + std::string(name)); };
        expect_rows("frmOm",
                    {{"imgLinje(4)", 16, 88, 153, 8, picture},
                     {"Label10", 18, 104, 149, 19, label, own("Label10"), "11b", yellow},
                     {"imgLinje(3)", 16, 126, 153, 8, picture},
                     {"Label9", 16, 142, 157, 19, label, "Programmet är FREEWARE", "11b", white},
                     {"imgLinje(2)", 16, 164, 153, 8, picture},
                     {"Label1", 18, 180, 99, 17, label, "Programmering:", "11b", yellow},
                     {"Label4", 120, 180, 59, 13, label, own("Label5"), "11", white},
                     {"Label2", 18, 196, 99, 17, label, "Grafik:", "11b", yellow},
                     {"Label5", 120, 196, 59, 13, label, own("Label6"), "11", white},
                     {"Label3", 18, 212, 99, 17, label, "Ljud:", "11b", yellow},
                     {"Label6", 120, 212, 59, 13, label, own("Label4"), "11", white},
                     {"imgLinje(0)", 16, 236, 153, 8, picture},
                     {"Label7", 18, 252, 119, 15, label, own("Label7"), "11b", white},
                     {"Label8", 18, 266, 119, 15, label, own("Label8"), "11b", white},
                     {"imgLinje(1)", 16, 290, 153, 8, picture},
                     {"Klar", 56, 320, 71, 33, button, "Klar", "13", cream}});
        EXPECT_NE(own("Label7").find("2026"), std::string::npos);
        for (const char* name : {"Label4", "Label8", "Label10"}) EXPECT_NE(own(name), "") << name;
        click("frmOm/Klar");
    });
    click("mnuOm");
}

TEST_F(Layout, FarewellWindow) {
    start();
    click("butAvsluta");
    ASSERT_TRUE(shown("Slut"));
    const QRect over = window("MFrm")->frameGeometry();
    expect_window("Slut", "", {312, 212}, "window frameless", over);
    QWidget& words = at("Slut/Text");
    const QPalette system = words.window()->palette();
    expect_rows("Slut", {{"Label1", 14, 10, 187, 29, label, "Läs detta!", "24b", black},
                         {"Label2", 10, 180, 187, 17, label, "Tryck sedan på stäng!", "13b", black},
                         {"Stäng", 236, 178, 65, 25, button, "Stäng", "11",
                          system.color(QPalette::Button).rgb()}});
    EXPECT_EQ(words.geometry(), QRect(14, 54, 283, 111));
    EXPECT_EQ(font_of(words), "11");
    EXPECT_EQ(words.palette().color(QPalette::Base), system.color(QPalette::Window));
    EXPECT_EQ(pixel(grab("Slut"), {220, 30}), system.color(QPalette::Window));
    const QString written = words.property("plainText").toString();
    EXPECT_EQ(written.count('\n'), 8);
    EXPECT_TRUE(written.endsWith('\n'));
}

TEST_F(Layout, GameMenu) {
    start();
    in_menu([&] {
        auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        EXPECT_EQ(menu.pos(), window("MFrm")->mapToGlobal(QPoint(14, 28)));
        EXPECT_EQ(menu.objectName(), "aaa");
        EXPECT_EQ(menu.title(), "Arkiv");
        std::string items;
        for (const QAction* item : menu.actions())
            items += (item->objectName() + "=" + item->text() + "; ").toStdString();
        EXPECT_EQ(items,
                  "mnuNytt_spel=Nytt spel; mnuNytt_snabbt=Nytt spel (snabbt, samma spelare); "
                  "nada=; mnuAvsluta=Avsluta; ");
        EXPECT_TRUE(menu.actions().at(2)->isSeparator());
        EXPECT_EQ(menu.actions().at(0)->shortcut(), QKeySequence(Qt::Key_F2));
        menu.close();
    });
    click("mnuArkiv");
}

}  // namespace
}  // namespace brusbo::test

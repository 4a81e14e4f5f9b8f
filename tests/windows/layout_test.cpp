// Where every element of every window stands and what it looks like.

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QWindow>
#include <cmath>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

constexpr QRgb black = 0xFF000000, white = 0xFFFFFFFF, yellow = 0xFFFFFF00, cream = 0xFFFFE0C0;

enum Kind : std::uint8_t { picture, button, label, option, check, box, line };

struct Row {
    std::string name;
    double x, y;
    int width, height;
    Kind kind;
    std::string text = "";
    const char* font = "";  ///< pixels, then b for bold
    QRgb colour = 0;        ///< of a label's text, a button's face, a line
    bool visible = true;
};

std::string font_of(const QWidget& widget) {
    const QFont& font = widget.font();
    return std::to_string(font.pixelSize()) + (font.bold() ? "b" : "");
}

int distance(QColor one, QColor other) {
    return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
           std::abs(one.blue() - other.blue());
}

class Layout : public Stage {
   protected:
    /// Compares the elements of a container, "MFrm" or "MFrm/Picture2", with rows; places count
    /// from the container's corner.
    void expect_rows(const std::string& window_name, const std::string& container,
                     const std::vector<Row>& rows) {
        picture_ = grab(window_name);
        for (const Row& row : rows) {
            SCOPED_TRACE(window_name + "/" + row.name);
            QWidget& element = at(window_name + "/" + row.name);
            QWidget& holder =
                container.empty() ? *window(window_name) : at(window_name + "/" + container);
            expect_row(row, element, element.mapTo(&holder, QPoint()));
        }
    }

   private:
    void expect_row(const Row& row, QWidget& element, QPoint place) {
        // Half pixels go to one side.
        EXPECT_LE(std::abs(place.x() - row.x), 0.5) << place.x();
        EXPECT_LE(std::abs(place.y() - row.y), 0.5) << place.y();
        EXPECT_EQ(element.size(), QSize(row.width, row.height));
        EXPECT_EQ(!element.isHidden(), row.visible);
        EXPECT_EQ(element.property("text").toString().toStdString(), row.text);
        if (*row.font != 0) {
            EXPECT_EQ(font_of(element), row.font);
            EXPECT_EQ(element.font().family(), "Liberation Sans");
        }
        expect_accessible(row, element);
        if (!row.visible || row.colour == 0) return;
        const QPoint corner = element.mapTo(element.window(), QPoint());
        if (row.kind == label) {
            EXPECT_EQ(element.palette().color(QPalette::WindowText), QColor(row.colour));
            EXPECT_LT(row.text.empty() ? 0 : nearest(QRect(corner, element.size()), row), 150);
        } else if (row.kind == line) {
            EXPECT_EQ(nearest(QRect(corner + QPoint(2, 0), QSize(1, 2)), row), 0);
        } else {
            // Inside the frame of the focus, outside the text or mark in the middle.
            const QPointF off = row.kind == option ? QPointF(4, 4) : QPointF(5.5, 5.5);
            EXPECT_EQ(pixel(picture_, corner + off), QColor(row.colour));
        }
    }

    /// How near the pixels of a box come to the row's colour.
    int nearest(const QRect& box, const Row& row) const {
        int best = 1000;
        for (int y = box.top(); y <= box.bottom(); ++y)
            for (int x = box.left(); x <= box.right(); ++x)
                best = std::min(best, distance(pixel(picture_, QPointF(x, y)), row.colour));
        return best;
    }

    static void expect_accessible(const Row& row, QWidget& element) {
        auto* const interface = QAccessible::queryAccessibleInterface(&element);
        ASSERT_NE(interface, nullptr);
        EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty());
        const QAccessible::Role role = row.kind == button   ? QAccessible::Button
                                       : row.kind == option ? QAccessible::RadioButton
                                       : row.kind == check  ? QAccessible::CheckBox
                                       : row.kind == box    ? QAccessible::EditableText
                                                            : interface->role();
        EXPECT_EQ(interface->role(), role);
        if (row.kind != button && row.kind != option) return;
        EXPECT_TRUE(interface->actionInterface()->actionNames().contains(
            row.kind == button ? QAccessibleActionInterface::pressAction()
                               : QAccessibleActionInterface::toggleAction()));
    }

    QImage picture_;
};

/// The flags that make up a caption: close, system menu, minimise, maximise, frameless.
std::string caption_of(const QWidget& window) {
    const Qt::WindowFlags flags = window.windowFlags();
    std::string result = (flags & Qt::WindowType_Mask) == Qt::Tool ? "tool" : "window";
    if (flags & Qt::FramelessWindowHint) result += " frameless";
    if (flags & Qt::WindowTitleHint) result += " title";
    if (flags & Qt::WindowCloseButtonHint) result += " close";
    if (flags & Qt::WindowMinimizeButtonHint) result += " minimise";
    if (flags & Qt::WindowMaximizeButtonHint) result += " maximise";
    return result;
}

void expect_window(const QWidget& window, const char* title, QSize client, const char* caption) {
    EXPECT_EQ(window.windowTitle(), title);
    EXPECT_EQ(window.size(), client);
    EXPECT_EQ(window.minimumSize(), client);
    EXPECT_EQ(window.maximumSize(), client);
    EXPECT_TRUE(caption_of(window).starts_with(caption)) << caption_of(window);
}

void expect_centred(const QWidget& window, const QRect& area) {
    const QPoint off = window.geometry().center() - area.center();
    EXPECT_LE(std::abs(off.x()), 8);
    EXPECT_LE(std::abs(off.y()), 16) << "a caption apart";
}

/// The names of the elements that Tab goes through from the first on, by the layout alone.
std::string tab_order(QWidget* first) {
    std::string names;
    QWidget* each = first;
    do {
        const bool takes_focus = qobject_cast<CommandButton*>(each) != nullptr ||
                                 qobject_cast<OptionButton*>(each) != nullptr ||
                                 qobject_cast<CheckBox*>(each) != nullptr ||
                                 qobject_cast<NameBox*>(each) != nullptr;
        if (takes_focus) names += each->objectName().toStdString() + " ";
        each = each->nextInFocusChain();
    } while (each != first);
    return names;
}

std::string numbered(const char* name, int index) {
    return std::string(name) + "(" + std::to_string(index) + ")";
}

TEST_F(Layout, StartWindow) {
    load();
    expect_window(*window("Startfrm"), "Brusbo", {188, 305}, "tool title close");
    expect_centred(*window("Startfrm"), screen_area());
    expect_rows("Startfrm", "",
                {{"AntSpelare(0)", 28, 108, 15, 17, option, "", "", 0xFFFF0000},
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
    for (int slot = 1; slot <= 3; ++slot)
        EXPECT_EQ(at("Startfrm/" + numbered("Namn", slot)).x() -
                      at("Startfrm/" + numbered("AntSpelare", slot)).x(),
                  24)
            << "both lie on half pixels";
    EXPECT_EQ(tab_order(&at("Startfrm/AntSpelare(0)")),
              "AntSpelare(0) AntSpelare(1) AntSpelare(2) AntSpelare(3) Namn(0) Namn(1) Namn(2) "
              "Namn(3) Starta Sound ");
    EXPECT_EQ(window("Startfrm")->focusWidget()->objectName(), "AntSpelare(1)");
    const char* able[] = {"AntSpelare(1)", "AntSpelare(2)", "AntSpelare(3)", "Namn(0)", "Namn(1)"};
    for (const char* name : able) EXPECT_TRUE(at("Startfrm/" + std::string(name)).isEnabled());
    for (const char* name : {"AntSpelare(0)", "Namn(2)", "Namn(3)"})
        EXPECT_FALSE(at("Startfrm/" + std::string(name)).isEnabled()) << name;
    EXPECT_TRUE(at("Startfrm/AntSpelare(1)").property("checked").toBool());
    EXPECT_TRUE(at("Startfrm/Sound").property("checked").toBool());
}

TEST_F(Layout, MainWindow) {
    start();
    expect_window(*window("MFrm"), "Brusbo", {570, 416}, "window title");
    EXPECT_EQ(caption_of(*window("MFrm")), "window title") << "no system buttons";
    expect_centred(*window("MFrm"), screen_area());
    for (const QPointF margin : {QPointF(1, 200), QPointF(300, 1), QPointF(300, 35.4)})
        EXPECT_EQ(pixel(grab("MFrm"), margin), QColor(black));
    expect_rows("MFrm", "",
                {{"Namnlist", 2, 2, 567, 32, picture},
                 {"Picture2", 2, 36, 189, 378, picture},
                 {"Picture1", 190, 36, 378, 378, picture}});
    expect_rows(
        "MFrm", "Namnlist",
        {{"mnuArkiv", 12, 6, 41, 20, button},
         {"mnuOm", 66, 8, 39, 20, button},
         {"Label1", 118, 10, 225, 15, label, text("Label1"), "11b", 0xFF000080},
         {"labPjäser_klara", 344, 10, 169, 17, label, "Antal pjäser klara: 0", "11b", white, false},
         {"butMini", 524, 6, 13, 20, button},
         {"butAvsluta", 544, 8, 16, 19, button}});
    EXPECT_EQ(at("butMini").toolTip(), "Minimera");
    EXPECT_EQ(at("butAvsluta").toolTip(), "Avsluta");
    expect_rows(
        "MFrm", "Picture2",
        {{"imgLinje(0)", 18, 84, 153, 8, picture},
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
         {"butNästa", 38, 328, 113, 27, button, "Nästa spelare", "11", cream, false}});
    EXPECT_EQ(dynamic_cast<QLabel&>(at("labPjäser_klara")).alignment() & Qt::AlignHorizontal_Mask,
              Qt::AlignRight | Qt::AlignAbsolute);

    std::vector<Row> board = {{"shpHålbak", 6, 8, 127, 123, picture}};
    const QPoint places[] = {{36, 34},  {78, 34},  {36, 78},   {78, 78},   {274, 34},  {316, 34},
                             {274, 80}, {316, 80}, {274, 272}, {316, 272}, {274, 316}, {316, 316},
                             {36, 274}, {78, 274}, {36, 316},  {78, 316}};
    for (int b = 0; b < 16; ++b) {
        const QPointF place = places[b];
        board.push_back({numbered("Pjäs", b), place.x(), place.y(), 26, 26, button});
        const int row = b / 4;
        board.push_back(
            {numbered("Plus", b), 8.0 * (b % 4), 10.0 * row, 9, 9, picture, "", "", 0, false});
    }
    expect_rows("MFrm", "Picture1", board);
    EXPECT_EQ(difference(), "");
}

TEST_F(Layout, ChoicesOfAMoveHaveTheirFaces) {
    start();
    throw_die(6);
    expect_rows("MFrm", "Picture2",
                {{"butEn_pjäs", 22, 324, 143, 17, button, "Flytta ut 1 pjäs", "11", yellow},
                 {"butTvå_pjäser", 22, 344, 143, 17, button, "Flytta ut 2 pjäser", "11", yellow}});
    expect_rows(
        "MFrm", "Namnlist",
        {{"labPjäser_klara", 344, 10, 169, 17, label, "Antal pjäser klara: 0", "11b", white}});
    click("butTvå_pjäser");
    settle();
    expect_rows("MFrm", "Picture2",
                {{"butNästa", 38, 328, 113, 27, button, "Nästa spelare", "11", cream}});
    EXPECT_TRUE(at("butNästa").hasFocus());
}

TEST_F(Layout, StackingOrder) {
    start();
    const auto level = [](const std::string& name) {
        QWidget& element = at(name);
        return element.parentWidget()->children().indexOf(&element);
    };
    for (int b = 0; b < 16; ++b) {
        EXPECT_GT(level(numbered("Pjäs", b)), level("shpHålbak"));
        for (int marker = 0; marker < 16; ++marker)
            EXPECT_GT(level(numbered("Plus", marker)), level(numbered("Pjäs", b)));
    }
    for (const char* above : {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"})
        for (const char* below : {"Label1", "labPjäser_klara"})
            EXPECT_GT(level(above), level(below));
    for (const char* below : {"labVisa_tur", "imgVisa_tur", "Tärning", "labMeddelande",
                              "butEn_pjäs", "butTvå_pjäser", "imgLinje(3)"})
        EXPECT_GT(level("butNästa"), level(below)) << below;
    // Seen: a piece over the highlight, the highlight over the board, a marker over two pieces.
    const QPointF nest = QPointF(190 + 6, 36 + 8);
    EXPECT_EQ(pixel(grab("MFrm"), nest + QPointF(63, 61)), QColor(0xFF800000));
    place(1, {5, 5, 0, 0});
    const QPoint stack(190 + 142, 36 + 142);
    const auto seen = grab("MFrm");
    at("Plus(1)").hide();
    const auto without_marker = grab("MFrm");
    EXPECT_NE(pixel(seen, stack + QPointF(4, 4)), pixel(without_marker, stack + QPointF(4, 4)));
    EXPECT_EQ(pixel(seen, stack + QPointF(13, 13)), pixel(without_marker, stack + QPointF(13, 13)));
    EXPECT_GT(pixel(seen, stack + QPointF(13, 13)).red(),
              pixel(seen, stack + QPointF(13, 13)).green() + 40)
        << "a red piece";
}

TEST_F(Layout, HiddenStoresHoldThePictures) {
    start();
    EXPECT_TRUE(at("Grafik").isHidden());
    const struct {
        const char* name;
        int count, width, height;
    } stores[] = {{"gimgRöd", 1, 26, 26},    {"gimgBlå", 1, 26, 26}, {"gimgGrön", 1, 26, 26},
                  {"gimgGul", 1, 26, 26},    {"T", 6, 50, 50},       {"gimgPlus", 1, 9, 9},
                  {"gimgArkiv", 2, 41, 20},  {"gimgOm", 2, 39, 20},  {"gimgMinimera", 2, 13, 20},
                  {"GimgAvsluta", 2, 16, 19}};
    for (const auto& store : stores)
        for (int index = 0; index < store.count; ++index) {
            const std::string name = store.count == 1 ? store.name : numbered(store.name, index);
            EXPECT_EQ(at(name).size(), QSize(store.width, store.height)) << name;
            EXPECT_FALSE(at(name).isVisible()) << name;
        }
}

class WinnerLayout : public Layout, public testing::WithParamInterface<int> {};

TEST_P(WinnerLayout, InTheWinnersColours) {
    const int winner = GetParam();
    constexpr QRgb strong_colours[] = {0xFFFF0000, 0xFF0000FF, 0xFF00FF00, 0xFFFFFF00};
    constexpr QRgb light_colours[] = {0xFFFFC0C0, 0xFFC0C0FF, 0xFFC0FFC0, 0xFFFFFFC0};
    const QRgb strong = strong_colours[winner - 1], light = light_colours[winner - 1];
    const char* const names[] = {"Röd", "Blå", "Grön", "Gul"};
    const int players = std::max(winner, 2);
    start(players);
    almost_won(winner);
    throw_die(1);
    when_shown("Grattis", [&] {
        expect_window(*window("Grattis"), "Brusbo", {309, 294}, "window frameless");
        expect_centred(*window("Grattis"), window("MFrm")->frameGeometry());
        std::vector<Row> rows = {
            {"imgGrattis", 12, 12, 148, 46, picture},
            {"linje(0)", 16, 68, 279, 1, line, "", "", strong},
            {"linje(1)", 16, 110, 279, 1, line, "", "", strong},
            {"linje(2)", 14, 242, 279, 1, line, "", "", strong},
            {"labVisa_vinnare", 18, 78, 273, 23, label,
             std::string(names[winner - 1]) + " har vunnit!", "13b", strong},
            {"labResultat", 18, 120, 169, 13, label, "Resultat:", "11", light},
            {"butNytt_spel", 16, 256, 65, 25, button, "Nytt spel", "11", light},
            {"butNytt_snabbt", 102, 256, 101, 25, button, "Nytt spel (snabbt)", "11", light},
            {"Avsluta", 224, 256, 65, 25, button, "Avsluta", "11", light}};
        for (int i = 0; i < 4; ++i) {
            const double y = 154 + 18 * i;
            const bool plays = i < players;
            const char* const count = !plays ? "" : i + 1 == winner ? "4" : "0";
            rows.push_back({numbered("lbNamn", i), 18, y, 179, 15, label, plays ? names[i] : "",
                            "11", strong});
            rows.push_back({numbered("lbResultat", i), 206, y, 81, 15, label, count, "11", light});
            QWidget& store = at("Grattis/" + numbered("gimgGrattis", i));
            EXPECT_EQ(store.size(), QSize(148, 46));
            EXPECT_TRUE(store.isHidden());
        }
        expect_rows("Grattis", "", rows);
        EXPECT_EQ(dynamic_cast<Image&>(at("Grattis/imgGrattis")).picture(),
                  nth(Picture::banner_1, winner - 1));
        EXPECT_EQ(pixel(grab("Grattis"), {200, 30}), QColor(black));
        EXPECT_EQ(tab_order(&at("Grattis/butNytt_spel")), "butNytt_spel Avsluta butNytt_snabbt ");
        EXPECT_EQ(window("Grattis")->focusWidget()->objectName(), "butNytt_spel");
        click("Grattis/butNytt_snabbt");
    });
    click("Pjäs(" + std::to_string(4 * (winner - 1) + 2) + ")");
    settle();
    EXPECT_FALSE(shown("Grattis"));
}

INSTANTIATE_TEST_SUITE_P(Players, WinnerLayout, testing::Values(1, 2, 3, 4));

TEST_F(Layout, AboutWindow) {
    start();
    when_shown("frmOm", [&] {
        expect_window(*window("frmOm"), "Om...", {188, 378}, "tool title close");
        expect_centred(*window("frmOm"), screen_area());
        const auto own = [](const char* name) { return text("frmOm/" + std::string(name)); };
        expect_rows("frmOm", "",
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
        EXPECT_NE(text("frmOm/Label7").find("2026"), std::string::npos);
        for (const char* name : {"Label4", "Label7", "Label8", "Label10"})
            EXPECT_NE(own(name), "") << name;
        EXPECT_EQ(tab_order(&at("frmOm/Klar")), "Klar ");
        click("frmOm/Klar");
    });
    click("mnuOm");
}

TEST_F(Layout, FarewellWindow) {
    start();
    click("butAvsluta");
    ASSERT_TRUE(shown("Slut"));
    QWidget& farewell = *window("Slut");
    EXPECT_EQ(farewell.size(), QSize(312, 212));
    EXPECT_LT(farewell.minimumWidth(), 312) << "it can be resized";
    EXPECT_GT(farewell.maximumWidth(), 1000);
    EXPECT_EQ(caption_of(farewell).substr(0, 16), "window frameless");
    expect_centred(farewell, window("MFrm")->frameGeometry());
    EXPECT_FALSE(farewell.isModal());
    const QRgb system = farewell.palette().color(QPalette::Button).rgb();
    expect_rows("Slut", "",
                {{"Label1", 14, 10, 187, 29, label, "Läs detta!", "24b", black},
                 {"Label2", 10, 180, 187, 17, label, "Tryck sedan på stäng!", "13b", black},
                 {"Stäng", 236, 178, 65, 25, button, "Stäng", "11", system}});
    QWidget& words = at("Slut/Text");
    EXPECT_EQ(words.geometry(), QRect(14, 54, 283, 111));
    EXPECT_EQ(font_of(words), "11");
    EXPECT_EQ(words.palette().color(QPalette::Base), farewell.palette().color(QPalette::Window));
    EXPECT_EQ(words.property("plainText").toString().count('\n'), 8);
    EXPECT_TRUE(words.property("plainText").toString().endsWith('\n'));
    EXPECT_EQ(pixel(grab("Slut"), {220, 30}), farewell.palette().color(QPalette::Window));
}

TEST_F(Layout, GameMenu) {
    start();
    when([] { return QApplication::activePopupWidget() != nullptr; },
         [&] {
             auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
             EXPECT_EQ(menu.pos(), window("MFrm")->mapToGlobal(QPoint(14, 28)));
             EXPECT_EQ(menu.objectName(), "aaa");
             EXPECT_EQ(menu.title(), "Arkiv");
             const struct {
                 const char *name, *caption;
             } items[] = {{"mnuNytt_spel", "Nytt spel"},
                          {"mnuNytt_snabbt", "Nytt spel (snabbt, samma spelare)"},
                          {"nada", ""},
                          {"mnuAvsluta", "Avsluta"}};
             ASSERT_EQ(menu.actions().size(), 4);
             for (int i = 0; i < 4; ++i) {
                 EXPECT_EQ(menu.actions().at(i)->objectName(), items[i].name);
                 EXPECT_EQ(menu.actions().at(i)->text(), items[i].caption);
                 EXPECT_TRUE(menu.actions().at(i)->isEnabled());
             }
             EXPECT_TRUE(menu.actions().at(2)->isSeparator());
             EXPECT_EQ(menu.actions().at(0)->shortcut(), QKeySequence(Qt::Key_F2));
             menu.close();
         });
    click("mnuArkiv");
}

}  // namespace
}  // namespace brusbo::test

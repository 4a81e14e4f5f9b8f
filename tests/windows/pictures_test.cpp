// What the windows look like, by pictures that were approved. The picture of a failure stands in
// the build directory; `cmake --build build/release --target screenshots` approves what is seen
// now.

#include <QApplication>
#include <QFileInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTextBlock>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Pictures : public Stage {
   protected:
    Pictures() {
        verbs["look:"] = look;
        verbs["fits:"] = expect_fit;
    }

    /// Compares the window in front with the picture of this name.
    static void look(const std::string& name) {
        const QImage seen = front().grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QString folder = name.starts_with("docs/") ? "/" : "/tests/windows/pictures/";
        const QString file = BRUSBO_SOURCES + folder + QString::fromStdString(name) + ".png";
        const int differing = differing_spots(seen, QImage(file));
        if (differing <= (qApp->devicePixelRatio() == 1 ? 3 : 24)) return;
        const bool approve = qEnvironmentVariableIsSet("BRUSBO_APPROVE");
        const QString seen_file = approve ? file : BRUSBO_SEEN "/" + QFileInfo(file).fileName();
        EXPECT_TRUE(seen.save(seen_file, "PNG", 0));
        EXPECT_TRUE(approve) << qPrintable(seen_file) << " is not " << qPrintable(file);
    }

    /// In spots of 6 by 6 pixels fonts look alike on all systems, drawings at other scales nearly
    /// so.
    static int differing_spots(const QImage& one, const QImage& other) {
        if (one.size() != other.size()) return one.width() * one.height();
        const int tolerance = qApp->devicePixelRatio() == 1 ? 8 : 24;
        const QSize size = (one.size() + QSize(5, 5)) / 6;
        const QImage a = one.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const QImage b = other.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        int differing = 0;
        for (qsizetype byte = 0; byte < a.sizeInBytes(); ++byte)
            differing += std::abs(a.constBits()[byte] - b.constBits()[byte]) > tolerance;
        return differing;
    }

    /// All texts of a window are readable in full inside their boxes.
    static void expect_fit(const std::string& name) {
        for (const QWidget* each : at(name).findChildren<QWidget*>()) {
            const QString text = each->property("text").toString();
            if (!each->isVisible() || text.isEmpty()) continue;
            const bool wraps = each->property("wordWrap").toBool();
            const int border = each->inherits("QAbstractButton") ? 4 : 0;
            const QFontMetrics metrics(each->font());
            const QRect needed = metrics.boundingRect(QRect(0, 0, each->width(), 1000),
                                                      wraps ? Qt::TextWordWrap : 0, text);
            const int width = wraps ? needed.width() : metrics.horizontalAdvance(text);
            EXPECT_TRUE(width <= each->width() - 2 * border && each->font().pixelSize() >= 8 &&
                        needed.height() <= each->height() + 1 - border)
                << qPrintable(text);
        }
        const auto* const words = at(name).findChild<QPlainTextEdit*>();
        if (words == nullptr) return;
        EXPECT_EQ(words->document()->lineCount(), 9) << "no line of the eight is broken";
        const QTextCursor last_line(words->document()->findBlockByNumber(7));
        EXPECT_LE(words->cursorRect(last_line).bottom(), words->viewport()->height());
    }

    /// The same game for every player: stacks, home lanes, a finished piece.
    static void set_middle_game(int player) {
        place(1, "17,17,42,0");
        place(2, "0,55,5,5");
        place(3, "0,41,0,28");
        place(4, "1,1,0,44");
        Aktuell_spelare = static_cast<std::int16_t>(player);
        Move_BackShape();
        Visa_tur();
        show_finished_count();
    }
};

TEST_F(Pictures, OfAllWindows) {
    if (qApp->devicePixelRatio() != 1) GTEST_SKIP();
    begin();
    play(
        "look:docs/start AntSpelare(3) Sound key:Tab press:Starta look:start-chosen drop:Label3 "
        "press:Sound look:sound-pressed drop:Label3 press:AntSpelare(2) look:option-pressed "
        "drop:Label3 Starta hover:mnuArkiv look:lit-1 hover:Label1 hover:mnuOm look:lit-2 "
        "hover:Label1 hover:butMini look:lit-3 hover:Label1 hover:butAvsluta look:lit-4 "
        "hover:Label1 2 press:butNästa look:pressed drop:Label1 butNästa 6 press:butTvå_pjäser "
        "look:offered drop:Label1");
    for (int player = 1; player <= 4; ++player) {
        Nytt_snabbt();
        set_middle_game(player);
        const std::string turn = std::to_string(player), face = std::to_string(player + 1);
        play(face + (player == 2 ? " look:docs/game-blue" : " look:game-" + turn));
        Nytt_snabbt();
        set_middle_game(player);
        play(turn + "=55,55,44,55 1 " + numbered("Pjäs", 4 * player - 2) + " look:winner-" + turn +
             " butNytt_snabbt");
    }
    play(
        "1=43,0,0,0 4 Pjäs(0) look:bounce mnuArkiv hover:mnuNytt_snabbt look:menu mnuNytt_snabbt "
        "mnuOm look:about Klar butAvsluta look:farewell press:Slut@1,1 pull:+120,90 drop:+0,0 "
        "look:farewell-small Stäng");
    start("write:Namn(0)=");
    play("1=55,55,44,55 1 Pjäs(2) press:Avsluta look:winner-of-two drop:MFrm butNytt_snabbt");
}

TEST_F(Pictures, AtOtherScales) {
    const double scale = qApp->devicePixelRatio();
    if (scale == 1 || scale == 3) GTEST_SKIP();
    start("AntSpelare(3)");
    set_middle_game(1);
    const std::string name = QString("scale-%1").arg(scale).toStdString();
    play("2 look:" + (scale == 2 ? "docs/game-at-scale-2" : name));
}

using Texts = Pictures;

TEST_F(Texts, FitTheirBoxes) {
    begin();
    play(
        "fits:Startfrm write:Namn(0)=WWWWWWWWWW Starta fits:MFrm 6 fits:MFrm "
        "butTvå_pjäser fits:MFrm mnuOm fits:frmOm Klar butNästa 2 butNästa "
        "1=55,55,44,55 1 Pjäs(2) fits:Grattis butNytt_snabbt butAvsluta fits:Slut");
}

}  // namespace
}  // namespace brusbo::test

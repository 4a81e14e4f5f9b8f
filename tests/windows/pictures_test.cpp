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
        verbs["take"] = [this](const std::string& part) { take(part); };
        verbs["look"] = [this](const std::string& name) { look(name); };
        verbs["fits"] = [](const std::string& name) { expect_fit(name); };
    }

    /// Takes a window, an element or a part of it, as "Picture1@0,0,60,60", for the next look.
    void take(const std::string& part) {
        QWidget& element = at(part.substr(0, part.find('@')));
        const auto numbers = QString::fromStdString(part).section('@', 1).split(',');
        QRect place = element.rect();
        if (numbers.size() == 4)
            place = {numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(),
                     numbers[3].toInt()};
        place.translate(element.mapTo(element.window(), QPoint()));
        const QImage taken = element.window()->grab(place).toImage();
        QImage both(std::max(taken.width(), taken_.width()), taken_.height() + taken.height(),
                    QImage::Format_RGB32);
        both.fill(Qt::gray);
        QPainter painter(&both);
        painter.drawImage(0, 0, taken_);
        painter.drawImage(QRect({0, taken_.height()}, taken.size()), taken);
        painter.end();
        taken_ = both;
    }

    /// Compares what was taken, or the window in front, with the picture of this name.
    void look(const std::string& name) {
        const QImage seen =
            (taken_.isNull() ? front().grab().toImage() : std::exchange(taken_, QImage()))
                .convertToFormat(QImage::Format_RGB32);
        const QString folder = name.starts_with("docs/") ? "/" : "/tests/windows/pictures/";
        const QString file = BRUSBO_SOURCES + folder + QString::fromStdString(name) + ".png";
        const int differing = differing_spots(seen, QImage(file));
        if (differing <= (qApp->devicePixelRatio() == 1 ? 1 : 8)) return;
        const bool approve = qEnvironmentVariableIsSet("BRUSBO_APPROVE");
        const QString seen_file = approve ? file : BRUSBO_SEEN "/" + QFileInfo(file).fileName();
        EXPECT_TRUE(seen.save(seen_file, "PNG", 0));
        EXPECT_TRUE(approve) << qPrintable(seen_file) << " differs from " << qPrintable(file)
                             << " in " << differing << " spots; if it is right, approve it by\n"
                             << "cmake --build build/release --target screenshots";
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
        for (int x = 0; x < size.width(); ++x)
            for (int y = 0; y < size.height(); ++y) {
                const QColor p = a.pixelColor(x, y), q = b.pixelColor(x, y);
                differing += std::abs(p.red() - q.red()) > tolerance ||
                             std::abs(p.green() - q.green()) > tolerance ||
                             std::abs(p.blue() - q.blue()) > tolerance;
            }
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
            EXPECT_LE(wraps ? needed.width() : metrics.horizontalAdvance(text),
                      each->width() - 2 * border)
                << qPrintable(text);
            EXPECT_LE(needed.height(), each->height() + 1 - border) << qPrintable(text);
            EXPECT_GE(each->font().pixelSize(), 8) << qPrintable(text);
        }
        const auto* const words = at(name).findChild<QPlainTextEdit*>();
        if (words == nullptr) return;
        EXPECT_EQ(words->document()->lineCount(), 9) << "no line of the eight is broken";
        const QTextCursor last_line(words->document()->findBlockByNumber(7));
        EXPECT_LE(words->cursorRect(last_line).bottom(), words->viewport()->height());
    }

    /// The same game for every player: stacks, home lanes, a finished piece.
    static void set_middle_game(int player) {
        place(1, "17 17 42 0");
        place(2, "0 55 5 5");
        place(3, "0 41 0 28");
        place(4, "1 1 0 44");
        Aktuell_spelare = static_cast<std::int16_t>(player);
        Move_BackShape();
        Visa_tur();
        show_finished_count();
    }

   private:
    QImage taken_;
};

TEST_F(Pictures, OfAllWindows) {
    if (qApp->devicePixelRatio() != 1) GTEST_SKIP();
    begin();
    play(
        "look:docs/start Startfrm/AntSpelare(3) Startfrm/Sound key:Tab press:Startfrm/Starta "
        "look:start-chosen drop:Startfrm/Label3 "
        "press:Startfrm/Sound take:Startfrm/Sound drop:Startfrm/Label3 "
        "press:Startfrm/AntSpelare(2) take:Startfrm/AntSpelare(2) look:pressed "
        "drop:Startfrm/Label3 Startfrm/Starta");
    play("look:game-first");
    // Everything that is lit up, pressed, offered.
    play(
        "hover:mnuArkiv take:mnuArkiv hover:Label1 hover:mnuOm take:mnuOm hover:Label1 "
        "hover:butMini take:butMini hover:Label1 hover:butAvsluta take:butAvsluta "
        "hover:Label1 2 take:Picture2@20,320,150,45 press:butNästa take:butNästa "
        "drop:Label1 butNästa 6 take:Picture2@20,80,160,290 press:butTvå_pjäser "
        "take:Picture2@20,320,150,45 drop:Label1 look:buttons");
    const char* const parts[] = {"game-red", "docs/game-blue", "game-green", "game-yellow"};
    for (int player = 1; player <= 4; ++player) {
        Nytt_snabbt();
        set_middle_game(player);
        const std::string face = std::to_string(player + 1);
        play(player == 2 ? face
                         : face +
                               " take:Picture2@20,80,160,230 take:Namnlist@330,5,190,22 "
                               "take:Picture1@0,0,140,140 take:Picture1@240,0,138,140 "
                               "take:Picture1@0,240,140,138 take:Picture1@240,240,138,138");
        play(std::string("look:") + parts[player - 1]);
    }
    // The messages.
    for (const char* const moves :
         {"1=0,0,0,0 1", "1=0,0,0,0 4", "1=0,55,0,0 4", "1=1,2,3,4 6", "1=1,0,3,4 6", "1=0,0,0,1 5",
          "1=0,0,0,1 6 Pjäs(3)", "1=1,2,3,4 1 Pjäs(0)", "1=43,0,0,0 4 Pjäs(0)",
          "1=43,0,0,0 2 Pjäs(0)", "1=10,0,0,0 2=2,0,0,0 2 Pjäs(0)"}) {
        Nytt_snabbt();
        play(moves + std::string(" take:labMeddelande"));
    }
    play("look:messages mnuArkiv hover:menu/mnuNytt_snabbt look:menu key:Escape");
    Nytt_snabbt();
    play(
        "mnuOm look:about frmOm/Klar 1=43,0,0,0 4 Pjäs(0) take:Picture1@130,130,118,118 "
        "look:bounce butAvsluta look:farewell press:Slut@1,1 pull:+120,90 drop:+0,0 "
        "look:farewell-small Slut/Stäng");
    const char* const winners[] = {"winner-red", "winner-blue", "winner-green", "winner-yellow"};
    for (int player = 1; player <= 4; ++player) {
        Nytt_snabbt();
        set_middle_game(player);
        const std::string piece = numbered("Pjäs", 4 * player - 2);
        play(std::to_string(player) + "=55,55,44,55 1 " + piece + " look:" + winners[player - 1] +
             " Grattis/butNytt_snabbt");
    }
    start("write:Startfrm/Namn(0)=");
    play(
        "1=55,55,44,55 1 Pjäs(2) press:Grattis/Avsluta look:winner-of-two drop:MFrm "
        "Grattis/butNytt_snabbt");
}

TEST_F(Pictures, AtOtherScales) {
    const double scale = qApp->devicePixelRatio();
    if (scale == 1 || scale == 3) GTEST_SKIP();
    start("Startfrm/AntSpelare(3)");
    set_middle_game(1);
    if (scale == 2)
        play("2 look:docs/game-at-scale-2");
    else
        play("2 take:Picture2@20,80,160,120 take:Picture1@0,0,140,140 take:Namnlist look:scale-" +
             QString::number(scale).toStdString());
}

using Texts = Pictures;

TEST_F(Texts, FitTheirBoxes) {
    begin();
    play(
        "fits:Startfrm write:Startfrm/Namn(0)=WWWWWWWWWW Startfrm/Starta fits:MFrm 6 fits:MFrm "
        "butTvå_pjäser fits:MFrm mnuOm fits:frmOm frmOm/Klar butNästa 2 butNästa "
        "1=55,55,44,55 1 Pjäs(2) fits:Grattis Grattis/butNytt_snabbt butAvsluta fits:Slut");
}

}  // namespace
}  // namespace brusbo::test

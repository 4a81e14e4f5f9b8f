// Every text is readable in full inside its box, at whatever scale the tests run.

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Text : public Stage {
   protected:
    /// Where a text leaves traces, in logical places of its label; what is cut off at an edge
    /// reaches that edge.
    static QRectF ink(Label& label) {
        const QString text = label.text();
        const QImage with = label.grab().toImage();
        label.set_text(QString());
        const QImage without = label.grab().toImage();
        label.set_text(text);
        QRect traces;
        for (int y = 0; y < with.height(); ++y)
            for (int x = 0; x < with.width(); ++x)
                if (with.pixel(x, y) != without.pixel(x, y)) traces |= QRect(x, y, 1, 1);
        const double scale = with.devicePixelRatio();
        return {QPointF(traces.topLeft()) / scale, QSizeF(traces.size()) / scale};
    }

    /// `width` where the text may not use the whole box.
    static void expect_fits(Label& label, int width) {
        SCOPED_TRACE(label.text().toStdString());
        const QRectF traces = ink(label), box(0, 0, width, label.height());
        EXPECT_LT(traces.bottom(), box.bottom()) << "cut off below";
        EXPECT_LT(traces.right(), box.right() + (width < label.width() ? 0 : 1));
        // Nothing was left out to make it fit.
        const int wraps = label.wordWrap() ? Qt::TextWordWrap : 0;
        const QRectF needed =
            QFontMetricsF(label.font())
                .boundingRect({0, 0, box.width(), 10'000}, wraps, label.text().trimmed());
        EXPECT_LE(needed.width(), box.width() + 0.5);
        EXPECT_LE(needed.height(), box.height() + 1);
        EXPECT_GE(label.font().pixelSize(), 8);
    }

    static void expect_all_fit(const std::string& name) {
        for (Label* label : window(name)->findChildren<Label*>())
            if (label->isVisible() && !label->text().isEmpty()) expect_fits(*label, label->width());
        for (QAbstractButton* each : window(name)->findChildren<QAbstractButton*>())
            EXPECT_LE(each->fontMetrics().horizontalAdvance(each->text()), each->width() - 8)
                << each->text().toStdString();
    }
};

TEST_F(Text, InEveryWindow) {
    load();
    expect_all_fit("Startfrm");
    for (int i = 0; i < 4; ++i)
        as<NameBox>(numbered("Startfrm/Namn", i)).setText(QStringLiteral("WWWWWWWWWW"));
    play("Startfrm/Starta");
    EXPECT_EQ(text("labVisa_tur"), "WWWWWWWWWWs tur!");
    // The picture of the turn begins 116 pixels right of the label's left edge.
    expect_fits(as<Label>("labVisa_tur"), 116);
    play("6");  // with the longest message of all
    expect_all_fit("MFrm");
    EXPECT_EQ(at("labMeddelande").font().pixelSize(), 11);
    play("butTvå_pjäser");
    expect_all_fit("MFrm");
    when_shown("frmOm", [] {
        expect_all_fit("frmOm");
        click("frmOm/Klar");
    });
    play("mnuOm butNästa");
    win([&] {
        EXPECT_EQ(text("Grattis/labVisa_vinnare"), "WWWWWWWWWW har vunnit!");
        expect_all_fit("Grattis");
        click("Grattis/butNytt_snabbt");
    });
    play("butAvsluta");
    expect_all_fit("Slut");
}

}  // namespace
}  // namespace brusbo::test

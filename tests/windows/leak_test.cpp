// What is opened and closed again and again leaves nothing behind; the leak sanitizer looks when
// the program ends.

#include <QApplication>
#include <QTest>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Leak : public Stage {};

TEST_F(Leak, EveryWindowTenTimes) {
    const std::string full = "Grattis/butNytt_spel";
    const std::string quick = "Grattis/butNytt_snabbt";
    start(2);
    qsizetype widgets = 0;
    for (int round = 1; round <= 10; ++round) {
        when_shown("frmOm", [] { click("frmOm/Klar"); });
        click("mnuOm");
        settle();
        when([] { return QApplication::activePopupWidget() != nullptr; },
             [] { key("MFrm", Qt::Key_Escape); });
        click("mnuArkiv");
        settle();
        click("butAvsluta");
        ASSERT_TRUE(shown("Slut"));
        window("Slut")->hide();
        for (const std::string& after : {full, quick}) {
            place(1, {55, 44, 55, 55});
            throw_die(1);
            when_shown("Grattis", [&] {
                when_shown("Startfrm", [] { click("Startfrm/Starta"); });
                click(after);
            });
            click("Pjäs(1)");
            settle();
            if (after == quick) key("MFrm", Qt::Key_F2);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (round == 1) widgets = QApplication::allWidgets().size();
    }
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(world->winners, 20);
    EXPECT_EQ(difference(), "");
}

}  // namespace
}  // namespace brusbo::test

// What the windows look like, by pictures that were approved. The picture of a failure stands in
// the build directory; `cmake --build build/release --target screenshots` approves what is seen
// now.

#include "tests/widgets/stage.h"

namespace brusbo::test {
namespace {

using Pictures = Stage;

TEST_F(Pictures, OfAllWindows) {
    start(
        "look:docs/start AntSpelare(3) Sound key:Tab press:Starta look:start-chosen drop:Label3 "
        "press:Sound look:sound-pressed drop:Label3 press:AntSpelare(2) look:option-pressed "
        "drop:Label3 Starta hover:mnuArkiv look:lit-1 hover:Label1 hover:mnuOm look:lit-2 "
        "hover:Label1 hover:butMini look:lit-3 hover:Label1 hover:butAvsluta look:lit-4 "
        "hover:Label1 2 press:butNästa look:pressed drop:Label1 butNästa 6 press:butTvå_pjäser "
        "look:offered drop:Label1 key:F2 write:Namn(2)=WWWWWWWWWW Starta");
    for (int player = 1; player <= 4; ++player) {
        const QString others = QString("2 butNästa ").repeated(player - 1);
        const QString picture = player == 2 ? "docs/game-blue" : QString("game-%1").arg(player);
        const QString win = " %1=55,55,%2,55 Pjäs(%3) look:winner-%1 butNytt_snabbt";
        play(others + middle_of_game + QString("%1 look:").arg(player + 1) + picture +
             win.arg(player).arg(44 - player).arg(4 * player - 2));
    }
    play(
        "1=43,0,0,0 4 Pjäs(0) look:bounce mnuArkiv hover:mnuNytt_snabbt look:menu mnuNytt_snabbt "
        "mnuOm look:about Klar butAvsluta look:farewell press:Slut@1,1 pull:@120,90 drop:@0,0 "
        "look:farewell-small Stäng");
    start(
        "write:Namn(0)= Starta 1=55,55,44,55 1 Pjäs(2) press:Avsluta look:winner-of-two drop:MFrm "
        "butNytt_snabbt");
}

TEST_F(Pictures, AtOtherScales) {
    const double scale = qApp->devicePixelRatio();
    if (scale == 1 || scale == 3) GTEST_SKIP();
    const QString name = scale == 2 ? "docs/game-at-scale-2" : QString("scale-%1").arg(scale);
    start("AntSpelare(3) Starta " + middle_of_game + "2 look:" + name);
}

}  // namespace
}  // namespace brusbo::test

// The game menu, by mouse and by key.
#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

class Menu : public ::testing::Test {
   protected:
    const XClient& person() const { return game_.person(); }

    void expect_sounds(const std::vector<std::string>& names) {
        heard_.insert(heard_.end(), names.begin(), names.end());
        game_.program().wait_for_sounds(heard_);
    }

    /// Opens the menu; the button is lit then, the mouse being on it.
    WindowId open() {
        game_.enter(main_, mnuArkiv);
        game_.wait_for_picture(main_, mnuArkiv.topLeft(), Picture::arkiv_1);
        expect_sounds({"s2.wav"});
        game_.click(main_, mnuArkiv);
        return game_.menu();
    }

    /// The items stand one above the other and are of one height but for the separator.
    void choose(WindowId menu, double part_of_height) {
        const QRect area = person().place(menu);
        person().click(
            {area.center().x(), area.top() + static_cast<int>(part_of_height * area.height())});
    }

    Desktop desktop_;
    Game game_{desktop_};
    const WindowId main_ = game_.play();
    std::vector<std::string> heard_{"s1.wav"};
};

constexpr double Nytt_spel = 0.17;
constexpr double Nytt_snabbt = 0.45;
constexpr double Avsluta = 0.85;

TEST_F(Menu, OpensAtTheLowerLeftCornerOfItsButton) {
    const WindowId menu = open();
    EXPECT_EQ(person().place(menu).topLeft(), person().place(main_).topLeft() + QPoint(14, 28));
}

TEST_F(Menu, ClosedWithoutAChoiceItStillClicksAndReleases) {
    open();
    person().type({key_escape});
    expect_sounds({"s1.wav"});
    game_.wait_for_picture(main_, mnuArkiv.topLeft(), Picture::arkiv_0);

    person().point_at(game_.at(main_, QPointF(300, 300)));
    open();
    person().click({3, 3});
    expect_sounds({"s1.wav"});
    game_.wait_for_picture(main_, mnuArkiv.topLeft(), Picture::arkiv_0);
}

TEST_F(Menu, AQuickNewGameBeginsAtOnce) {
    const QImage first_message = game_.image(main_, labMeddelande);
    game_.throw_die(main_);
    expect_sounds({"s3.wav"});
    const QImage told = game_.image(main_, labMeddelande);
    choose(open(), Nytt_snabbt);
    expect_sounds({"s1.wav"});
    game_.wait_for_change("the message", main_, labMeddelande, told);
    // Later games begin with a line that the first one spells differently.
    EXPECT_NE(game_.image(main_, labMeddelande), first_message);
    EXPECT_EQ(game_.find(Shown::start), 0U);
    person().point_at(game_.at(main_, QPointF(300, 300)));
    game_.throw_die(main_);
    expect_sounds({"s3.wav"});
}

TEST_F(Menu, ANewGameAsksInTheStartWindowFirst) {
    const QImage first_message = game_.image(main_, labMeddelande);
    choose(open(), Nytt_spel);
    const WindowId start = game_.window(Shown::start);
    // The main window takes nothing meanwhile.
    game_.click(main_, {60, 180, 1, 1});
    game_.click(start, Starta);
    game_.wait_until_gone(Shown::start);
    game_.wait_for_change("the message", main_, labMeddelande, first_message);
    game_.wait_for_picture(main_, mnuArkiv.topLeft(), Picture::arkiv_0);
    person().point_at(game_.at(main_, QPointF(300, 300)));
    game_.throw_die(main_);
}

TEST_F(Menu, AvslutaShowsTheFarewellWindow) {
    choose(open(), Avsluta);
    game_.window(Shown::farewell);
    // One for the item, one for the menu; the second may replace the first before it is read.
    wait_for("the click", [&] { return game_.program().sounds().size() > heard_.size(); });
    EXPECT_EQ(game_.program().sounds().back(), "s1.wav");
    EXPECT_TRUE(game_.program().process().runs());
}

TEST_F(Menu, F2AsksForANewGameWithoutTheMenu) {
    for (int time = 0; time < 2; ++time) {
        wait_for("the focus", [&] { return person().focus() == main_; });
        person().type({key_F2});
        game_.click(game_.window(Shown::start), Starta);
        game_.wait_until_gone(Shown::start);
        expect_sounds({"s1.wav"});
    }
    EXPECT_EQ(person().windows_of("brusbo").size(), 1U);
}

TEST_F(Menu, F2ChoosesItsItemInTheOpenMenu) {
    open();
    person().type({key_F2});
    game_.click(game_.window(Shown::start), Starta);
    game_.wait_until_gone(Shown::start);
    game_.wait_for_picture(main_, mnuArkiv.topLeft(), Picture::arkiv_0);
    EXPECT_EQ(person().windows_of("brusbo").size(), 1U);
}

TEST_F(Menu, F2WaitsForTheEndOfAThrow) {
    const QImage told = game_.image(main_, labMeddelande);
    game_.click(main_, {40, 170, 30, 30});
    expect_sounds({"s3.wav"});
    person().type({key_F2});
    const WindowId start = game_.window(Shown::start);
    EXPECT_NE(game_.image(main_, labMeddelande), told) << "the throw was told before";
    game_.click(start, Starta);
    game_.wait_until_gone(Shown::start);
}

TEST_F(Menu, F2DoesNothingWhileTheAboutWindowIsOpen) {
    game_.enter(main_, mnuOm);
    expect_sounds({"s2.wav"});
    game_.click(main_, mnuOm);
    const WindowId about = game_.window(Shown::about);
    expect_sounds({"s1.wav"});
    wait_for("the focus", [&] { return person().focus() == about; });
    person().type({key_F2});
    game_.click(about, Klar);
    game_.wait_until_gone(Shown::about);
    expect_sounds({"s1.wav"});
    EXPECT_EQ(game_.find(Shown::start), 0U);
}

}  // namespace
}  // namespace brusbo::display

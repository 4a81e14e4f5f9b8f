// A game that goes on and on.

#include <malloc.h>

#include "tests/windows/stage.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace brusbo::test {
namespace {

class LongGame : public Stage {
   protected:
    /// Until the next player is to throw.
    void play_turn() {
        while (!butNästa_visible) {
            if (Tärning_enabled)
                click("Tärning");
            else
                move();
            // Nobody wins.
            if (Spelare[Aktuell_spelare].Antal_klara == 3) place(Aktuell_spelare, "0 0 0 0");
        }
        click("butNästa");
        world->heard();
    }

    void move() {
        if (butTvå_pjäser_visible && world->dice.generator() % 2 == 0)
            return click("butTvå_pjäser");
        if (butEn_pjäs_visible && world->dice.generator() % 2 == 0) return click("butEn_pjäs");
        const int piece = static_cast<int>(world->dice.generator() % 4);
        click(numbered("Pjäs", 4 * (Aktuell_spelare - 1) + piece));
    }

    /// Bytes that were asked for and not given back.
    static std::size_t memory_in_use() {
#ifdef __SANITIZE_ADDRESS__
        return __sanitizer_get_current_allocated_bytes();
#else
        return mallinfo2().uordblks;
#endif
    }
};

TEST_F(LongGame, KeepsItsMemory) {
    start(4);
    world->pauses_to_real_one = 1'000;
    const auto play = [this](int turns) {
        for (; turns > 0; --turns) play_turn();
        settle();
        return memory_in_use();
    };
    const std::size_t early = play(1'000);
    const std::size_t late = play(9'000);
    // Eight bytes kept from each turn would be too much.
    EXPECT_LT(late, early + 72'000) << "early: " << early << " bytes, late: " << late;
    EXPECT_EQ(world->winners, 0);
    EXPECT_EQ(difference(), "");
}

}  // namespace
}  // namespace brusbo::test

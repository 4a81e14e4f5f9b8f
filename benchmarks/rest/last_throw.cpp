// The game, but the first throw finds player 1 with three pieces finished and the last one square
// before the goal, and is a 1.
#include "benchmarks/other_game.h"
#include "engine/state.h"

namespace {

class LastThrow : public brusbo::Program {
   public:
    void seed_random(double) override {
        auto& player = brusbo::Spelare[1];
        for (int n = 1; n < brusbo::pieces_each; ++n) {
            player.Ruta[n] = brusbo::square_finished;
            brusbo::Pjäs_visible[player.Bildnr[n - 1]] = false;
        }
        player.Ruta[brusbo::pieces_each] = brusbo::square_goal - 1;
        player.Antal_klara = brusbo::pieces_each - 1;
        player.Antal_i_boet = 0;
    }
    float random_value() override { return 0; }
};

}  // namespace

int main() { return brusbo::run_game<LastThrow>(); }

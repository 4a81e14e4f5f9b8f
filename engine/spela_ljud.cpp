#include "engine/spela_ljud.h"

#include "engine/state.h"
#include "engine/world.h"

namespace brusbo {

void Spela_ljud(std::string_view Filnamn) {
    if (Ljud_på) services().play_sound(Filnamn);
}

}  // namespace brusbo

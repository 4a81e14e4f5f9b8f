#pragma once

// The rules of the game as one library. `set_world` first, then `Ladda_Positioner` and, each time
// the start window becomes active, `Nollställ_spelare`; from then on the handlers are called with
// what the players click. A handler returns after the whole action, pauses included.

#include "engine/die.h"
#include "engine/knocking.h"
#include "engine/markings.h"
#include "engine/moves.h"
#include "engine/nest.h"
#include "engine/new_game.h"
#include "engine/pieces.h"
#include "engine/positions.h"
#include "engine/screen.h"
#include "engine/services.h"
#include "engine/spela_ljud.h"
#include "engine/state.h"
#include "engine/turn.h"
#include "engine/world.h"

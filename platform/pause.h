#pragma once

namespace brusbo {

/// Shows the changes, then lets so many milliseconds pass while windows go on being painted; input
/// is left to the InputGate, inside one of whose actions this must run. Within one action pauses
/// are counted from deadline to deadline, so that the time between them, painting included, does
/// not add to them.
void paint_and_wait(int milliseconds);

}  // namespace brusbo

#pragma once

namespace brusbo {

/// Makes our buttons known to the accessibility interface: as buttons, option buttons and check
/// boxes whose one action does what a click does, and, like a click, waits while an action of the
/// game runs. Once, before the first window is created.
void install_accessible_buttons();

}  // namespace brusbo

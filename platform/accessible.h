#pragma once

namespace brusbo {

/// Gives our buttons an accessibility interface whose one action is a click, which like a click
/// waits while an action of the game runs. Once, before the first window is created.
void install_accessible_buttons();

}  // namespace brusbo

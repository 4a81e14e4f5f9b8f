#pragma once

namespace brusbo {

/// A click on the one-piece nest exit: the highest-numbered piece in the nest walks out as many
/// squares as the throw. Does nothing while the button is hidden.
void butEn_pjäs_Click();

/// A click on the two-piece nest exit: two pieces go to the entry square and the turn ends.
/// Does nothing while the button is hidden.
void butTvå_pjäser_Click();

}  // namespace brusbo

// Which control shows which message as its caption.
#pragma once

namespace zol::app {

// Sets the captions of the panels' buttons and frames, and of the present tank level.
void apply_panel_captions();
// Sets the captions of the controls inside the lambda and diagnosis panels and of the menus,
// refills the tank list and selects its entry again.
void apply_control_captions();

// Sets the captions that have no message number, from the helper texts (app/helper_texts.h).
// Loading a window resets its captions, so load handlers call this.
void apply_own_captions();

// Fills the tank list with its six messages and selects `tank_type`, or nothing for free values.
// Runs no handler, because filling the list must not write parameters.
void fill_tank_list();

} // namespace zol::app

// Which control takes which message.
#pragma once

namespace zol::app {

// The panels' own captions: buttons, frames, the tank reading.
void apply_panel_captions();
// Options, labels, buttons and menus; refills the tank list and selects its entry again.
void apply_control_captions();

// The captions without a message number, in the language of the helper texts. A window that is
// loaded has the words of its table again, so its load asks for them.
void apply_own_captions();

// Fills the tank list with its six messages and selects `tank_type`; none for free values. Runs no
// handler: filling the list must not rewrite the tank's set-up.
void fill_tank_list();

} // namespace zol::app

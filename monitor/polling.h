// The polling loop: one timer whose tick switches itself off, asks for the status telegram, shows
// the last one, and switches itself on again.
#pragma once

namespace zol::monitor {

// Allows the polling and switches its timer on; and the reverse, at once.
void start_polling();
void stop_polling();
// Stops it and lets a telegram under way end: what most handlers do before they send.
void stop_polling_and_wait();

// The timer as poll_enabled says: the end of a read that had switched it off for itself.
void rearm_polling();

// Gives Slider_attenuazione and Slider_ktar the tab stop that activation takes from them.
void give_tab_stops();

void connect_polling();

} // namespace zol::monitor

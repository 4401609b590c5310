// The polling loop: a timer whose tick (a poll pass) switches the timer off, requests the status
// telegram, shows the previous one, reads the live data where the unit has them, and switches the
// timer on again. A pass never overlaps another one, but handlers run inside its waits.
//
// To use the line, a handler stops polling, waits until the telegram under way has ended, sends,
// waits, and starts polling again or leaves that to the watchdog (monitor/side_timers.h).
#pragma once

namespace zol::monitor {

// Sets `poll_enabled` and switches the timer on.
void start_polling();
// Clears `poll_enabled` and switches the timer off. A telegram under way still arrives.
void stop_polling();
// Stops polling and waits until a telegram under way has ended.
void stop_polling_and_wait();

// Switches the timer on or off as `poll_enabled` requires. For reads that switched it off for their
// own duration.
void rearm_polling();

// Gives Slider_attenuazione and Slider_ktar their tab stop back, which activation removes.
void give_tab_stops();

void connect_polling();

} // namespace zol::monitor

// What can befall the line of a running tool, by phase. Each stage begins and ends on the engine
// panel with live values coming, if it says nothing else.
#pragma once

#include "tests/process/tour/hands.h"
#include "tests/process/tour/unit_process.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace zol::rough {

using tour::Hands;
using tour::UnitProcess;

// By the unit's own commands.
struct Fault {
    const char *name, *strikes, *is_mended;
};
// The unit's plug is out: the device takes every byte, and none arrives.
inline constexpr Fault dead_cable = {"cable", "line drop 1", "line clean"};
// Device node and link go, and come back under another number.
inline constexpr Fault gone_adapter = {"adapter", "unplug", "plug"};
// The one of the visit at hand.
inline const Fault* fault = &dead_cable;

// --- phases.cpp: the fault comes and goes
void in_first_read(Hands& hands, UnitProcess& unit); // at the program's start
void see_a_box(Hands& hands, UnitProcess& unit);     // of which the toolkit keeps an open file
void while_polling(Hands& hands, UnitProcess& unit);
void with_a_menu_open(Hands& hands, UnitProcess& unit);
void in_the_panels(Hands& hands, UnitProcess& unit);
void in_the_changeover_windows_load(Hands& hands, UnitProcess& unit);
void during_a_write(Hands& hands, UnitProcess& unit);
void in_the_acquisition(Hands& hands, UnitProcess& unit);
void for_a_minute(Hands& hands, UnitProcess& unit);

// --- sequences.cpp: in the middle of what takes long
void in_the_fault_read(Hands& hands, UnitProcess& unit);
void in_the_parameter_file(Hands& hands, UnitProcess& unit);
void in_the_tuning(Hands& hands, UnitProcess& unit);
void in_the_reset_request(Hands& hands, UnitProcess& unit);
void in_the_reset_writes(Hands& hands, UnitProcess& unit);

// --- dialog.cpp: at the program's start
void in_the_connection_dialog(Hands& hands, UnitProcess& unit);
void with_the_port_taken(Hands& hands, UnitProcess& unit);
void taken_while_the_adapter_was_out(Hands& hands, UnitProcess& unit);

// --- other_car.cpp: another unit at the usual device of the port number
// The unit of that car, for the visit that has one.
inline std::optional<UnitProcess> other_car;
// Starts it on a machine of the visit's own below `out`.
void bring_other_car(const std::filesystem::path& unit_program, const std::filesystem::path& out);
void send_other_car_away();
void leave_the_other_car_alone(Hands& hands, UnitProcess& unit);

// --- endurance.cpp
void warm_up(Hands& hands, UnitProcess& unit);
void reconnect_often(Hands& hands, UnitProcess& unit);
void switch_panels_often(Hands& hands, UnitProcess& unit);
void poll_for_long(Hands& hands, UnitProcess& unit);
// How long that is.
inline int polling_minutes = 30;

// --- What they share, in measured.cpp

// Works, and prints as a row of a table what the tool's process held before and after, and its
// processor share meanwhile, which it returns in percent. Descriptors must not be more than before,
// memory at most `most_mib` more.
double measured(Hands& hands, const std::string& what, double most_mib,
                const std::function<void()>& work);
// A phase under the fault at hand.
void phase(Hands& hands, const std::string& what, const std::function<void()>& work);
void strike(UnitProcess& unit);
void mend(UnitProcess& unit);
// Another telegram has come and is shown.
bool telegram_comes(Hands& hands, UnitProcess& unit, int most_ms = 10000);
// The engine panel, from a panel that may have been opened just now: its delayed stop of the
// polling must not come behind the start that the engine button makes.
void come_home(Hands& hands);
// The tool takes in what is done to it and draws: a menu opens and closes.
void see_it_alive(Hands& hands, const char* when);

} // namespace zol::rough

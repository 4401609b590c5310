// Line faults during each phase of the program. Each stage begins and ends on the engine panel with
// the polling running, unless it says otherwise.
#pragma once

#include "tests/process/tour/ui.h"
#include "tests/process/tour/unit_process.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace zol::rough {

using tour::rest;
using tour::Ui;
using tour::UnitProcess;

// A fault, as commands to the unit.
struct Fault {
    const char *name, *begin, *end;
};
// The device accepts every byte, and none arrives.
inline constexpr Fault dead_cable = {"cable", "line drop 1", "line clean"};
// Device node and link are removed, and return under another number.
inline constexpr Fault gone_adapter = {"adapter", "unplug", "plug"};
// The fault of the present visit.
inline const Fault* fault = &dead_cable;

// --- phases.cpp
void in_first_read(Ui& ui); // at the program's start
void open_a_box(Ui& ui);    // the toolkit keeps a file of it open
void while_polling(Ui& ui);
void with_a_menu_open(Ui& ui);
void in_the_panels(Ui& ui);
void in_the_changeover_windows_load(Ui& ui);
void during_a_write(Ui& ui);
void in_the_acquisition(Ui& ui);
void for_a_minute(Ui& ui);

// --- sequences.cpp: during long sequences
void in_the_fault_read(Ui& ui);
void in_the_parameter_file(Ui& ui);
void in_the_tuning(Ui& ui);
void in_the_reset_request(Ui& ui);
void in_the_reset_writes(Ui& ui);

// --- dialog.cpp: at the program's start
void in_the_connection_dialog(Ui& ui);
void with_a_busy_port(Ui& ui);
void with_a_port_busy_later(Ui& ui);

// --- other_car.cpp: another unit at the usual device of the port number
inline std::optional<UnitProcess> other_car;
// Starts it, with a folder below `out` in place of the machine's device folders.
void start_other_car(const std::filesystem::path& unit_program, const std::filesystem::path& out);
void stop_other_car();
void keep_off_the_other_car(Ui& ui);

// --- endurance.cpp
void warm_up(Ui& ui);
void reconnect_often(Ui& ui);
void switch_panels_often(Ui& ui);
void poll_for_long(Ui& ui);
inline int polling_minutes = 30;

// --- measured.cpp

// Works, and prints a row with memory and descriptors before and after and the processor share
// meanwhile, which it returns in percent. There must not be more descriptors than before, and at
// most `most_mib` more memory.
double measured(Ui& ui, const std::string& what, double most_mib,
                const std::function<void()>& work);
// The same with the present fault.
void phase(Ui& ui, const std::string& what, const std::function<void()>& work);
void break_line(Ui& ui);
void restore_line(Ui& ui);
// Another telegram arrives and is shown.
bool telegram_comes(Ui& ui, int most_ms = 10000);
void expect_values(Ui& ui);
void expect_no_values(Ui& ui);
// Opens the engine panel after the delayed stop of the polling of another panel, and expects
// values.
void return_home(Ui& ui);
// A menu opens and closes.
void check_responsive(Ui& ui, const char* when);

} // namespace zol::rough

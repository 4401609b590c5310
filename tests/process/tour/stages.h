// What the tour walks through, by subject. Each stage begins and ends on the engine panel.
#pragma once

#include "tests/process/tour/hands.h"
#include "tests/process/tour/unit_process.h"

namespace zol::tour {

// --- stages_connect.cpp: meeting the unit, and losing it
void start_with_answering_unit(Hands& hands, UnitProcess& unit);
void start_with_silent_unit(Hands& hands, UnitProcess& unit);
void give_up_at_another_port(Hands& hands, UnitProcess& unit);
void start_at_a_port_that_is_not_there(Hands& hands, UnitProcess& unit);
void watch_the_engine(Hands& hands, UnitProcess& unit);
void pull_the_cable(Hands& hands, UnitProcess& unit);

// --- stages_calibration.cpp
void move_gains(Hands& hands, UnitProcess& unit);
void use_keys(Hands& hands, UnitProcess& unit);
void tune(Hands& hands, UnitProcess& unit);

// --- stages_settings.cpp
void set_fuel_and_changeover(Hands& hands, UnitProcess& unit);
void set_tank(Hands& hands, UnitProcess& unit);
void set_lambda(Hands& hands, UnitProcess& unit);

// --- stages_changeover.cpp
void visit_changeover_window(Hands& hands, UnitProcess& unit);

// --- stages_diagnosis.cpp
void read_faults(Hands& hands, UnitProcess& unit);
void use_eobd_menus(Hands& hands, UnitProcess& unit);
void acquire_injection_time(Hands& hands, UnitProcess& unit);

// --- stages_service.cpp
void look_at_boxes(Hands& hands, UnitProcess& unit);
void reset_service_records(Hands& hands, UnitProcess& unit);
void save_parameters(Hands& hands, UnitProcess& unit);
void reset_to_factory_values(Hands& hands, UnitProcess& unit);
void close_in_the_middle_of_the_reset(Hands& hands, UnitProcess& unit);

// --- stages_handover.cpp: the line goes to another program
void hand_line_to_terminal(Hands& hands, UnitProcess& unit);
void hand_line_to_download(Hands& hands, UnitProcess& unit);

// --- stages_menus.cpp: the menus with a row of choices
void choose_injectors(Hands& hands, UnitProcess& unit);
void choose_ports(Hands& hands, UnitProcess& unit);

// --- stages_languages.cpp
void look_at_languages(Hands& hands, UnitProcess& unit);

// --- stages_return.cpp: after a new start
void find_all_in_unit(Hands& hands, UnitProcess& unit);
void find_all_in_windows(Hands& hands, UnitProcess& unit);

// --- What they share, in stage_steps.cpp

// What stands in a file of the application folder, named as the program names it.
std::string whole_file(const char* name);

// The unit comes to hold this value, within a few seconds, and is to keep it over the next starts.
void given(Hands& hands, UnitProcess& unit, const std::string& act, int number, int value);
// The engine panel, with the polling back on.
void go_home(Hands& hands);
// Comes to a panel by its button.
void go_to(Hands& hands, const QString& button, const QString& panel);
// Waits for a box with this text, and answers it.
void answer_box(Hands& hands, const QString& text, const QString& button, const QString& entry = {},
                int most_ms = 5000);
// Live values come: the unit is asked, and what it says is shown.
bool values_flow(Hands& hands, UnitProcess& unit, int most_ms = 8000);

} // namespace zol::tour

// The stages of the tour by subject. Each begins and ends on the engine panel.
#pragma once

#include "tests/process/tour/ui.h"

namespace zol::tour {

// --- stages_connect.cpp: start, connection and loss of the line
void start_with_answering_unit(Ui& ui);
void start_with_silent_unit(Ui& ui);
void cancel_at_another_port(Ui& ui);
void start_at_a_missing_port(Ui& ui);
void watch_the_engine(Ui& ui);
void pull_the_cable(Ui& ui);

// --- stages_calibration.cpp
void move_gains(Ui& ui);
void use_keys(Ui& ui);
void tune(Ui& ui);

// --- stages_settings.cpp
void set_fuel_and_changeover(Ui& ui);
void set_tank(Ui& ui);
void set_lambda(Ui& ui);
void visit_changeover_window(Ui& ui);

// --- stages_diagnosis.cpp
void read_faults(Ui& ui);
void use_eobd_menus(Ui& ui);
void acquire_injection_time(Ui& ui);

// --- stages_service.cpp
void open_boxes(Ui& ui);
void reset_service_records(Ui& ui);
void save_parameters(Ui& ui);
void reset_to_factory_values(Ui& ui);
void close_during_the_reset(Ui& ui);

// --- stages_handover.cpp: the line is handed over to another program
void hand_line_to_terminal(Ui& ui);
void hand_line_to_download(Ui& ui);

// --- stages_menus.cpp
void choose_injectors(Ui& ui);
void choose_ports(Ui& ui);
void choose_languages(Ui& ui);

// --- stages_return.cpp: after another start
void find_values_in_unit(Ui& ui);
void find_values_in_windows(Ui& ui);

// The content of a file of the application folder, named as the program names it.
std::string whole_file(const char* name);

} // namespace zol::tour

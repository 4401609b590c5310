// The state that more than one module uses, with its start values. Parameter values are not here
// but in link/parameter_mirrors.h.
#pragma once

#include "view/widget.h"

#include <string>

namespace zol::app {

struct AppState {
    // Polling is allowed. Handlers that need the line for themselves clear it (monitor/polling.h).
    // The changeover window also uses it: while it is set, the window's options write nothing.
    bool poll_enabled = true;
    // The program is filling widgets: handlers that check this write nothing to the unit. A few do
    // not check it, on purpose.
    bool ui_loading = false;
    // The main window's activation must not read the unit. Set when the connection dialog closes,
    // when another program is given the line and when the program ends; never cleared.
    bool no_reread = false;
    // The main window is closing, or the connection dialog was cancelled: no frame is sent any
    // more.
    bool program_ends = false;
    // The main window's controls have been coloured, which is done once in a run.
    bool controls_coloured = false;
    // The connection dialog is open.
    bool connect_dialog_open = false;
    // The settings panel is shown: polling must not run, whoever starts it.
    bool settings_panel_open = false;

    // 1 to 8, or 0 until one was read. After OK in the connection dialog it is the position in the
    // dialog's list, from 1, which is one lower than the port number from COM4 on.
    double com_port_number = 0;
    std::string tool_version = ZOL_VERSION; // set by the build
    std::string firmware_text; // "family.version.revision" of the unit. Set by the first read
    int ecu_family = 0;        // decides the image layout. Set by the first read
    int ecu_version = 0;       // set by the first read
    double ecu_revision = 0;   // set by the first read
    // Background of the window that was activated or loaded last.
    view::Colour panel_colour = view::rgb(192, 192, 0);
    std::string text_colour;      // a decimal number; any other text means no colour
    std::string current_language; // "it", "uk", "pl", "de", "fr", or empty
    std::string stored_version;   // version stored in the settings file; never displayed
    int tank_type = 0;            // 0 to 5: a preset; 99: free values
    double tuning_mode = 0;       // 1 during the automatic tuning; nothing depends on it
    bool tuning_measures = false; // the tuning is sampling: polling must not read live data
    // The value given to number 4000 in the parameter edit. It is not a parameter of the unit, and
    // nothing depends on it.
    double local_flag_4000 = 0;

    // Fuel state, from the last telegram that reported it.
    bool on_gas = false;
    bool gas_requested = false;
    bool no_press = false; // the gas pressure is too low

    // Live values of the last telegram.
    double engine_rpm = 0;
    double gas_pressure = 0;           // mbar
    double water_temperature = 0;      // degrees Celsius
    double lambda_sample = 0;          // mV
    double lambda_previous_sample = 0; // mV, the last one that the lambda panel drew; 0: none
    double trace_x = 0;                // left edge of the next bar of the lambda trace, twips
    // How many live data replies reported a lost link to the car, in the whole run.
    double lost_counter = 0;
    // Live data have been requested and the unit may still answer. Only monitor/eobd_live.cpp
    // writes it.
    bool eobd_read_under_way = false;
};

inline AppState state;

} // namespace zol::app

// The state that more than one module uses.
#pragma once

#include "view/widget.h"

#include <string>

namespace zol::app {

struct AppState {
    // Polling of the status telegram is allowed. Each write sequence clears it; it also serves the
    // changeover window as a lock.
    bool poll_enabled = true;
    // The program itself fills widgets: change handlers write nothing.
    bool ui_loading = false;
    // The main window's activation must not read the unit. Set by the closing of the connection
    // dialog, the hand-over of the line and the end of the program; never cleared again.
    bool no_reread = false;
    // The closing of the main window, or the cancelling of the connection dialog, has begun: no
    // frame leaves any more.
    bool program_ends = false;
    // The main window's controls have their colours: they are given once in a run.
    bool controls_coloured = false;
    // The connection dialog is up.
    bool connect_dialog_open = false;
    // The settings panel is on view: no polling, whoever starts it.
    bool settings_panel_open = false;

    double com_port_number = 0; // 1 to 8; 0 before one was read. Settings, connection dialog
    std::string tool_version = ZOL_VERSION; // set by the build
    std::string firmware_text;              // "family.version.revision" of the unit. First read
    int ecu_family = 0;                     // decides the image layout. First read
    int ecu_version = 0;                    // First read
    double ecu_revision = 0;                // First read
    view::Colour panel_colour = view::rgb(192, 192, 0); // follows the window after activation
    std::string text_colour;      // a colour as a decimal number, or no colour at all
    std::string current_language; // "it", "uk", "pl", "de", "fr", or empty
    std::string stored_version;   // the settings file's word on it; shown by nothing
    int tank_type = 0;            // 0 to 5 a preset, 99 free values
    double tuning_mode = 0;       // 1 while the automatic tuning runs; nothing depends on it
    bool tuning_measures = false; // its sampler reads: the polling leaves the live data out
    // The tool's own parameter 4000: the parameter edit sets it, and nothing acts on it.
    double local_flag_4000 = 0;

    // Fuel state, from the last telegram that said something about it.
    bool on_gas = false;
    bool gas_requested = false;
    bool no_press = false;

    // Live values of the last telegram.
    double engine_rpm = 0;
    double gas_pressure = 0;      // mbar
    double water_temperature = 0; // degrees Celsius
    double lambda_sample = 0;
    double lambda_previous_sample = 0; // of the lambda panel's last tick
    double trace_x = 0;                // where the next bar of the lambda trace stands, twips
    // Live EOBD telegrams that said the link to the car is lost: a total over the whole run.
    double lost_counter = 0;
    // A live EOBD read is under way that the unit may still answer. Written by that read alone.
    bool eobd_read_under_way = false;
};

inline AppState state;

} // namespace zol::app

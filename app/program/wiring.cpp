#include "app/program/wiring.h"

#include "app/port_menu.h"
#include "app/program/language.h"
#include "app/program/main_window.h"
#include "app/program/startup.h"
#include "calibration/changeover_window.h"
#include "calibration/engine_panel.h"
#include "calibration/fuel_panel.h"
#include "calibration/injector_menu.h"
#include "calibration/keyboard.h"
#include "calibration/lambda_panel.h"
#include "calibration/power_dialog.h"
#include "diagnostics/acquisition_window.h"
#include "diagnostics/eobd_menu.h"
#include "diagnostics/eobd_panel.h"
#include "diagnostics/terminal.h"
#include "link/activation.h"
#include "link/connection_dialog.h"
#include "link/port_tips.h"
#include "maintenance/factory_reset.h"
#include "maintenance/parameter_dump.h"
#include "maintenance/parameter_window.h"
#include "maintenance/service_records.h"
#include "monitor/lambda_trace.h"
#include "monitor/polling.h"
#include "monitor/rpm_bar.h"
#include "monitor/side_timers.h"
#include "monitor/tank_level.h"
#include "view/windows/form1.h"

namespace zol::app {

void connect_handlers() {
    connect_startup();
    connect_main_window();
    connect_port_menu();
    connect_language_menu();
    form1::Form1.on.activate = link::main_window_activated;
    link::connect_connection_dialog();
    link::connect_port_tips();
    monitor::connect_polling();
    monitor::connect_side_timers();
    monitor::connect_rpm_bar();
    monitor::connect_lambda_trace();
    monitor::connect_tank_level();
    calibration::connect_fuel_panel();
    calibration::connect_lambda_panel();
    calibration::connect_changeover_window();
    diagnostics::connect_eobd_panel();
    diagnostics::connect_eobd_menu();
    diagnostics::connect_acquisition_window();
    diagnostics::connect_terminal();
    maintenance::connect_factory_reset();
    maintenance::connect_parameter_dump();
    maintenance::connect_service_records();
    maintenance::connect_parameter_window();
    calibration::connect_engine_panel();
    calibration::connect_keyboard();
    calibration::connect_injector_menu();
    calibration::connect_power_dialog();
}

} // namespace zol::app

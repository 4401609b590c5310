#include "tests/support/program_state.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/helper_texts.h"
#include "app/window_scaling.h"
#include "calibration/automatic_tuning.h"
#include "diagnostics/acquisition_window.h"
#include "link/device_identity.h"
#include "link/parameter_mirrors.h"
#include "link/port_devices.h"
#include "link/serial_port.h"
#include "maintenance/service_records.h"
#include "monitor/polling_pass.h"
#include "view/screen.h"
#include "view/timers.h"
#include "view/view.h"

namespace zol::tests {

void reset_program_state() {
    view::reset();
    reset_all_but_widgets();
}

void reset_all_but_widgets() {
    view::reset_timers();
    view::view_state = {};
    view::scheduler_state = {};
    app::state = {};
    app::folder_state = {};
    app::helper_texts_state = {};
    app::scale_factors = {};
    link::machine_state = {};
    link::mirrors = {};
    link::found_devices = {};
    link::port_state = {};
    monitor::polling_pass_state = {};
    calibration::tuning = {};
    diagnostics::acquisition_state = {};
    maintenance::calendar_state = {};
}

} // namespace zol::tests

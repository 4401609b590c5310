#include "monitor/panels.h"

#include "app/app_state.h"
#include "link/ecu_frames.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::monitor {

void bring_back_engine_panel() {
    app::state.settings_panel_open = false;
    form1::Timer3.off();
    view::set_enabled(form1::Command5, true);
    if (!form1::Timer_stato_sistema.is_on()) {
        start_polling();
        link::wait_ms(500);
    }
    view::set_visible(form1::Command_exit, true);
    view::set_visible(form1::frame_engine, true);
    for (view::Widget* other :
         {&form1::Frame_impostazioni, &form1::Frame_Lambda, &form1::Frame_diagnosi})
        view::set_visible(*other, false);
}

} // namespace zol::monitor

#include "diagnostics/menu_write.h"

#include "link/ecu_frames.h"
#include "monitor/polling.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::diagnostics {

void begin_menu_write() {
    view::set_pointer(form1::Form1, view::Pointer::hourglass);
    view::set_tab_stop(form1::Slider_attenuazione, false);
    if (view::focus() == &form1::Slider_attenuazione) view::set_focus(form1::Form1);
    monitor::stop_polling_and_wait();
}

void end_menu_write() {
    view::set_pointer(form1::Form1, view::Pointer::normal);
    view::set_tab_stop(form1::Slider_attenuazione, true);
    view::set_focus(form1::Text2);
}

} // namespace zol::diagnostics

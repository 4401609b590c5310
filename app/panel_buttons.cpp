#include "app/panel_buttons.h"

#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::app {

using view::Pointer;

void show_busy_on_buttons() {
    view::set_pointer(form1::Command_engine, Pointer::hourglass);
    view::set_pointer(form1::Command_impostazioni, Pointer::hourglass);
}

void show_normal_on_buttons() {
    view::set_pointer(form1::Command_engine, Pointer::custom);
    view::set_pointer(form1::Command_impostazioni, Pointer::custom);
}

} // namespace zol::app

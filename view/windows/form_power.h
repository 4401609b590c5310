// The power adjustment dialog. Handlers: calibration/power_dialog.cpp.
#pragma once

#include "view/widget.h"

namespace zol::form_power {

extern view::Widget Form_power;
extern view::Widget Option_5, Option_15, Option_25;
extern view::Widget Option_meno_5, Option_meno_15, Option_meno_25;
extern view::Widget cmd_ok, cmd_cancel;

} // namespace zol::form_power

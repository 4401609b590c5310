// The connection dialog. Handlers: link/connection_dialog.cpp.
#pragma once

#include "view/widget.h"

namespace zol::centralina_attiva {

extern view::Widget Centralina_Attiva;
extern view::Widget Label1, ShockwaveFlash1, Combo1, Command_test;
extern view::Widget Label2; // result of the port test
extern view::Widget Command_ok, Command_cancel;

} // namespace zol::centralina_attiva

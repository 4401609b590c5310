// The window that acquires the injection time. Handlers: diagnostics/acquisition_window.cpp.
#pragma once

#include "view/timers.h"
#include "view/widget.h"

namespace zol::acquisizione {

extern view::Widget acquisizione;
extern view::Widget Label4, lbl_us_tinj, Label1;   // current time
extern view::Widget Label3, lbl_us_max, Label_max; // highest time
extern view::Widget progress_time_bar;
extern view::Widget Label2; // saved value
extern view::Widget Command_salva, Command_reset, Command_chiudi;

extern view::Timer Timer_tinj, Timer_ricerca_max, Timer1, Timerx;

} // namespace zol::acquisizione

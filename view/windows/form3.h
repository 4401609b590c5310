// The changeover and cut-off settings. Handlers: calibration/changeover_window.cpp.
#pragma once

#include "view/timers.h"
#include "view/widget.h"

namespace zol::form3 {

extern view::Widget Form3;

extern view::Widget Frame6, opt_norm, opt_perm, opt_acc; // kind of changeover
extern view::Widget lbl_rpm_comm, Text_rpm;
extern view::Widget Label38, Text_press_comm, Label39;
extern view::Widget Frame_comm_aut, Option_comm_auto_yes, Option_comm_auto_no;
extern view::Widget Lbl_fast, Label20, lbl_low, Slider2; // delay on low pressure
extern view::Widget Frame1, Option1, Option2, Option3;   // gas cut-off
extern view::Widget Label_inj, Text_123, lbl_ms_gas, Label_rpm, Text_124;
extern view::Widget Frame_cut_benz, Label1, Text1, Label2, Text2, lbl_ms_benz; // petrol cut-off
extern view::Widget Command1;                                                  // exit

extern view::Timer Timer2;

} // namespace zol::form3

// The information window with six parameters. Handlers: maintenance/parameter_window.cpp.
#pragma once

#include "view/widget.h"

namespace zol::form2 {

extern view::Widget Form2;
extern view::Widget Label1, Label2, Label3, Label4, Label5, Label6;
extern view::Widget cmd_exit;

} // namespace zol::form2

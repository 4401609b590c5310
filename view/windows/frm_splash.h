// The splash window, shown until the control unit has answered or the connection dialog opens.
#pragma once

#include "view/timers.h"
#include "view/widget.h"

namespace zol::frm_splash {

extern view::Widget frmSplash;
extern view::Widget ShockwaveFlash1, Label1, Label2, ProgressBar1; // Label2: tool version
extern view::Timer Timer_progress;

} // namespace zol::frm_splash

#include "view/windows/frm_splash.h"

#include "view/windows/style.h"

namespace zol::frm_splash {

using namespace zol::windows;

Widget frmSplash{
    window("frmSplash", "ZOL-INJECTION", {2062, 2700, 6000, 3600}).colours(slate, cream)};
Widget ShockwaveFlash1{control(Kind::movie, "ShockwaveFlash1", frmSplash, {240, 300, 2160, 2160})};
Widget Label1{caption("Label1", frmSplash, {2580, 780, 3180, 600}, "ZOL-INJECTION")
                  .colours(slate, cream)
                  .font(18, true)};
Widget Label2{
    caption("Label2", frmSplash, {2580, 1440, 3180, 420}, "").colours(slate, cream).font(14)};
Widget ProgressBar1{
    control(Kind::progress_bar, "ProgressBar1", frmSplash, {240, 2700, 5520, 240}).range(0, 100)};

view::Timer Timer_progress(frmSplash, "Timer_progress", 500);

} // namespace zol::frm_splash

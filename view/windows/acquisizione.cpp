#include "view/windows/acquisizione.h"

#include "view/windows/style.h"

namespace zol::acquisizione {

using namespace zol::windows;

Widget acquisizione{
    window("acquisizione", "TINJ MAX.", {1680, 2100, 6780, 4800}).colours(paper, ink)};
Widget Label4{caption("Label4", acquisizione, {240, 240, 600, 300}, "TINJ").font(11, true)};
Widget lbl_us_tinj{caption("lbl_us_tinj", acquisizione, {900, 240, 600, 300}, "µs").font(11)};
Widget Label1{figure("Label1", acquisizione, {240, 600, 3000, 1080}, "0", 36)};
Widget Label3{caption("Label3", acquisizione, {3540, 240, 600, 300}, "MAX").font(11, true)};
Widget lbl_us_max{caption("lbl_us_max", acquisizione, {4200, 240, 600, 300}, "µs").font(11)};
Widget Label_max{figure("Label_max", acquisizione, {3540, 600, 3000, 1080}, "0", 36)};
Widget progress_time_bar{
    control(Kind::progress_bar, "progress_time_bar", acquisizione, {240, 1920, 6300, 240})
        .range(0, 100)};
Widget Label2{caption("Label2", acquisizione, {240, 2400, 6300, 420}, "").font(14)};
Widget Command_salva{button("Command_salva", acquisizione, {240, 3240, 1980, 600}, "SALVA")};
Widget Command_reset{button("Command_reset", acquisizione, {2400, 3240, 1980, 600}, "RESET")};
Widget Command_chiudi{button("Command_chiudi", acquisizione, {4560, 3240, 1980, 600}, "CHIUDI")};

view::Timer Timer_tinj(acquisizione, "Timer_tinj", 300);
view::Timer Timer_ricerca_max(acquisizione, "Timer_ricerca_max", 100);
view::Timer Timer1(acquisizione, "Timer1", 100);
view::Timer Timerx(acquisizione, "Timerx", 0);

} // namespace zol::acquisizione

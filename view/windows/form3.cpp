#include "view/windows/form3.h"

#include "view/windows/style.h"

namespace zol::form3 {

using namespace zol::windows;

namespace {

// The places of a frame's option buttons, from the top.
constexpr Place option_line(int line) { return {180, 300.0 + 360 * line, 2400, 300}; }

} // namespace

Widget Form3{window("Form3", "COMMUTAZIONE...", {240, 1200, 9600, 6600}).colours(paper, ink)};

Widget Frame6{group("Frame6", Form3, {120, 120, 3960, 1440}, "TIPO DI COMMUTAZIONE")};
Widget opt_norm{option("opt_norm", Frame6, option_line(0), "normal")};
Widget opt_perm{option("opt_perm", Frame6, option_line(1), "Permanent")};
Widget opt_acc{option("opt_acc", Frame6, option_line(2), "Acceleration")};

Widget lbl_rpm_comm{caption("lbl_rpm_comm", Form3, {4440, 210, 2760, 300}, "Giri comm. g/min.")};
Widget Text_rpm{entry("Text_rpm", Form3, {7260, 180, 1200, 360})};
Widget Label38{caption("Label38", Form3, {4440, 810, 2760, 300}, "PRESS. COMM")};
Widget Text_press_comm{entry("Text_press_comm", Form3, {7260, 780, 1200, 360})};
Widget Label39{caption("Label39", Form3, {8520, 810, 840, 300}, "mBAR")};

// The delay on low pressure: position 1, at the top, is the shortest. The captions are level with
// the slider's end marks, half a handle inside its ends.
Widget Frame_comm_aut{
    group("Frame_comm_aut", Form3, {4260, 1380, 5220, 2400}, "Commutazione Automatica")};
Widget Option_comm_auto_yes{option("Option_comm_auto_yes", Frame_comm_aut, option_line(0), "yes")};
Widget Option_comm_auto_no{option("Option_comm_auto_no", Frame_comm_aut, option_line(1), "no")};
Widget Lbl_fast{caption("Lbl_fast", Frame_comm_aut, {3350, 285, 1380, 240}, "fast")};
Widget Label20{caption("Label20", Frame_comm_aut, {3350, 1200, 1380, 240}, "med")};
Widget lbl_low{caption("lbl_low", Frame_comm_aut, {3350, 2115, 1380, 240}, "slow")};
Widget Slider2{slider("Slider2", Frame_comm_aut, {2900, 300, 420, 2040})
                   .range(1, 3)
                   .starts_at(1)
                   .steps(1, 1, 1)
                   .upright()
                   .runs_change_on_assignment()};

Widget Frame1{group("Frame1", Form3, {120, 1680, 3960, 2640}, "CUT-OFF  GAS")};
Widget Option1{option("Option1", Frame1, option_line(0), "INJ - TIME")};
Widget Option2{option("Option2", Frame1, option_line(1), "RPM")};
Widget Option3{option("Option3", Frame1, option_line(2), "NOT ACTIVE")};
Widget Label_inj{caption("Label_inj", Frame1, {180, 1620, 1860, 240}, "INJ  Cut-Off")};
Widget Text_123{entry("Text_123", Frame1, {2100, 1560, 1200, 360})};
Widget lbl_ms_gas{caption("lbl_ms_gas", Frame1, {3360, 1620, 480, 240}, "ms")};
Widget Label_rpm{caption("Label_rpm", Frame1, {180, 2160, 1860, 240}, "RPM Cut-Off")};
Widget Text_124{entry("Text_124", Frame1, {2100, 2100, 1200, 360})};

Widget Frame_cut_benz{group("Frame_cut_benz", Form3, {4260, 3900, 5220, 1440}, "CUT-OFF BENZ")};
Widget Label1{caption("Label1", Frame_cut_benz, {180, 360, 2760, 240}, "RPM")};
Widget Text1{entry("Text1", Frame_cut_benz, {3000, 300, 1200, 360})};
Widget Label2{caption("Label2", Frame_cut_benz, {180, 900, 2760, 240}, "TIME")};
Widget Text2{entry("Text2", Frame_cut_benz, {3000, 840, 1200, 360})};
Widget lbl_ms_benz{caption("lbl_ms_benz", Frame_cut_benz, {4260, 900, 600, 240}, "ms")};

Widget Command1{button("Command1", Form3, {7620, 5520, 1860, 540}, "EXIT")};

view::Timer Timer2(Form3, "Timer2", 0);

} // namespace zol::form3

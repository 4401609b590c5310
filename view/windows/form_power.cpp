#include "view/windows/form_power.h"

#include "view/windows/style.h"

namespace zol::form_power {

using namespace zol::windows;

Widget Form_power{window("Form_power", "POWER", {2820, 3000, 4500, 3000}).colours(paper, ink)};
Widget Option_5{option("Option_5", Form_power, {360, 240, 1740, 360}, "+5%").font(10)};
Widget Option_15{option("Option_15", Form_power, {360, 720, 1740, 360}, "+15%").font(10)};
Widget Option_25{option("Option_25", Form_power, {360, 1200, 1740, 360}, "+25%").font(10)};
Widget Option_meno_5{option("Option_meno_5", Form_power, {2400, 240, 1740, 360}, "- 5%").font(10)};
Widget Option_meno_15{
    option("Option_meno_15", Form_power, {2400, 720, 1740, 360}, "- 15%").font(10)};
Widget Option_meno_25{
    option("Option_meno_25", Form_power, {2400, 1200, 1740, 360}, "- 25%").font(10)};
Widget cmd_ok{button("cmd_ok", Form_power, {360, 1860, 1740, 540}, "OK")};
Widget cmd_cancel{button("cmd_cancel", Form_power, {2400, 1860, 1740, 540}, "CANCEL")};

} // namespace zol::form_power

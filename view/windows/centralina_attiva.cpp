#include "view/windows/centralina_attiva.h"

#include "view/windows/style.h"

namespace zol::centralina_attiva {

using namespace zol::windows;

Widget Centralina_Attiva{
    window("Centralina_Attiva", "ZOL-INJECTION", {1680, 2220, 6780, 4560}).colours(claret, cream)};
Widget Label1{caption("Label1", Centralina_Attiva, {240, 240, 4380, 840},
                      "The control unit does not answer. Choose the serial port and run the test.")
                  .colours(claret, cream)
                  .font(11, true)};
Widget ShockwaveFlash1{
    control(Kind::movie, "ShockwaveFlash1", Centralina_Attiva, {4800, 240, 1740, 1560})};
Widget Combo1{control(Kind::combo_box, "Combo1", Centralina_Attiva, {240, 1320, 2400, 330})
                  .colours(view::white, ink)
                  .font(10)};
Widget Command_test{button("Command_test", Centralina_Attiva, {2820, 1260, 1800, 480}, "TEST")};
Widget Label2{caption("Label2", Centralina_Attiva, {240, 2040, 6300, 600}, "")
                  .colours(view::system_colour, ink)
                  .aligned(Align::centre)
                  .font(14, true)};
Widget Command_ok{
    button("Command_ok", Centralina_Attiva, {2820, 3180, 1800, 540}, "OK").disabled()};
Widget Command_cancel{
    button("Command_cancel", Centralina_Attiva, {4740, 3180, 1800, 540}, "CANCEL")};

} // namespace zol::centralina_attiva

#include "view/windows/form2.h"

#include "view/windows/style.h"

namespace zol::form2 {

using namespace zol::windows;

namespace {

Design line(std::string_view name, int number) {
    return caption(name, Form2, {360, 240.0 + 540 * number, 5280, 420}, "")
        .colours(claret, cream)
        .font(14, true);
}

} // namespace

Widget Form2{window("Form2", "PARAMETER", {2062, 1920, 6000, 4920}).colours(claret, cream)};
Widget Label1{line("Label1", 0)};
Widget Label2{line("Label2", 1)};
Widget Label3{line("Label3", 2)};
Widget Label4{line("Label4", 3)};
Widget Label5{line("Label5", 4)};
Widget Label6{line("Label6", 5)};
Widget cmd_exit{button("cmd_exit", Form2, {3900, 3660, 1740, 540}, "EXIT")};

} // namespace zol::form2

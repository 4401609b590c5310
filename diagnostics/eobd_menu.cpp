#include "diagnostics/eobd_menu.h"

#include "app/helper_texts.h"
#include "diagnostics/menu_write.h"
#include "link/ecu_frames.h"
#include "link/parameter_catalogue.h"
#include "link/read_marks.h"
#include "view/windows/form1.h"

namespace zol::diagnostics {
namespace {

using link::mirrors;
using link::wait_ms;
namespace par = link::par;

constexpr int search = 1;
// Inverse is sent as 1 in both bytes of the value; the mirror holds 1.
constexpr int inverse_on_the_wire = 257;

// Polling is not stopped: the frame is sent between its requests. The ticks are set by the next
// image read.
void search_clicked() {
    wait_ms(200);
    mirrors.eobd_protocol = search;
    link::send_parameter(par::eobd_protocol, search);
    wait_ms(300);
}

void choose_direction(bool inverse) {
    begin_menu_write();
    mirrors.eobd_direction = inverse ? 1 : 0;
    link::tick_eobd_direction();
    link::send_parameter(par::eobd_direction, inverse ? inverse_on_the_wire : 0);
    wait_ms(200);
    end_menu_write();
}

} // namespace

void connect_eobd_menu() {
    form1::mnu_search.on.click = search_clicked;
    form1::mnu_direction_normal_eobd.on.click = [] { choose_direction(false); };
    form1::mnu_direction_inverse_eobd.on.click = [] { choose_direction(true); };
    app::note_parameters(form1::mnu_search, {par::eobd_protocol});
    for (view::Widget* item :
         {&form1::mnu_direction_normal_eobd, &form1::mnu_direction_inverse_eobd})
        app::note_parameters(*item, {par::eobd_direction});
}

} // namespace zol::diagnostics

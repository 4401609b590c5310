#include "link/program_end.h"

#include "app/app_state.h"
#include "link/ecu_frames.h"
#include "view/timers.h"

namespace zol::link {

void begin_program_end(int ms) {
    app::state.program_ends = true;
    view::end_program_within(ms, [] {
        if (port_is_open()) close_port();
    });
}

} // namespace zol::link

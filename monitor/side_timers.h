// The small periodic jobs around the polling loop.
#pragma once

namespace zol::monitor {

void connect_side_timers();

} // namespace zol::monitor

// The diagnosis menu: the search for the car's protocol, and which way the correction by its fuel
// trims acts. The nine protocols themselves only show what the unit reports.
#pragma once

namespace zol::diagnostics {

void connect_eobd_menu();

} // namespace zol::diagnostics

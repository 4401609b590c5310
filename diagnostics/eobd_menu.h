// The diagnosis menu: it starts the search for the car's protocol and sets the direction of the
// correction by fuel trims. The items of the nine protocols only show what the unit reports; they
// have no handlers.
#pragma once

namespace zol::diagnostics {

void connect_eobd_menu();

} // namespace zol::diagnostics

// The diagnosis menu: it starts the search for the car's protocol and sets in which direction the
// car's fuel trims correct the gas. The items of the nine protocols only show what the unit
// reports; they have no handlers.
#pragma once

namespace zol::diagnostics {

void connect_eobd_menu();

} // namespace zol::diagnostics

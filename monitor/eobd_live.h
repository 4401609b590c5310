// The live data of the car's diagnosis line, the 12-byte reply to command 16.
#pragma once

namespace zol::monitor {

// Asks until a reply of 12 bytes comes, and shows it. False after one of 8 bytes: the status
// telegram is to be asked for again. A unit that answers neither is asked without limit, except
// while the lambda panel or the acquisition reads: after a second without an answer it lets them.
bool read_eobd_live();

} // namespace zol::monitor

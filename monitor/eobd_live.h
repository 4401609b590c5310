// The live data of the car's diagnosis line, the 12-byte reply to command 16.
#pragma once

namespace zol::monitor {

// Asks until a reply of 12 bytes comes, and shows it. False after one of 8 bytes: the status
// telegram is to be asked for again. A unit that answers neither is asked without limit. After a
// second without an answer, and while the lambda panel or the acquisition reads, it is asked only
// once a second.
bool read_eobd_live();

} // namespace zol::monitor

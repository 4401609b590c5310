// The live data of the car's diagnosis, the 12-byte reply to command 16.
#pragma once

namespace zol::monitor {

// Requests the live data until a reply of 12 bytes arrives, and shows it. False after a reply of 8
// bytes, which means that the status telegram must be requested again. A unit that sends neither is
// asked every 100 ms without limit. After a second without a usable reply it is asked only once a
// second while the lambda panel or the acquisition window reads the status.
bool read_eobd_live();

} // namespace zol::monitor

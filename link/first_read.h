// The first read of the control unit: firmware version and parameter image. It has two paths. The
// activation path (link/activation.cpp) runs at the main window's activation, the dialog path from
// the connection dialog. They differ in retries, in firmware thresholds and in which widgets they
// set, and the differences are intended.
#pragma once

namespace zol::link {

// Requests the firmware version once and stores its three numbers and its text. False if the echo
// is wrong; nothing changes then.
bool read_version();

// The dialog path, from the version to the image. Repeats the version request without limit and the
// image request up to three times; without an image the mirrors keep their values.
void read_for_dialog();

} // namespace zol::link

// The first read of the control unit: firmware version and parameter image, by way of the main
// window's activation or of the connection dialog. The two roads differ in retries, in firmware
// thresholds and in what reaches the widgets, and they are meant to.
#pragma once

namespace zol::link {

// Asks for the firmware version once and takes its three numbers. False if the echo is wrong.
bool read_version();

// The dialog's read, from the version to the image. The connection dialog owns what stands before
// and behind it.
void read_for_dialog();

} // namespace zol::link

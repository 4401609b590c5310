// Why a port test failed, in one sentence, and what to do about it, in another; in the operator's
// language.
#pragma once

#include <string>

namespace zol::link {

// The port could not be opened; `error` is the serial port's text for why not. No device, no
// permission and a device in use have sentences of their own, anything else that text.
std::string why_port_failed(int port_number, const std::string& error);
// The port was opened, and no byte came.
std::string why_no_answer(int port_number);

} // namespace zol::link

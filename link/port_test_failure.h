// Why a port test failed, in one sentence, and what to do about it, in another; in the operator's
// language.
#pragma once

#include <string>

namespace zol::link {

// The port could not be opened; `error` is the serial port's text for why not. No device, no
// permission, a device in use and one that is no serial port have sentences of their own. For a
// terminal of a session the result is `error`, for anything else a sentence that contains it.
std::string why_port_failed(int port_number, const std::string& error);
// The port was opened, and no byte came.
std::string why_no_answer(int port_number);

} // namespace zol::link

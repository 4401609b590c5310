#include "link/port_test_failure.h"

#include "app/helper_texts.h"
#include "link/port_devices.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <initializer_list>

namespace zol::link {
namespace {

std::string with_replaced(const std::string& key, const std::string& mark,
                          const std::string& replacement) {
    std::string text = app::helper_word(key);
    if (const auto at = text.find(mark); at != std::string::npos)
        text.replace(at, mark.size(), replacement);
    return text;
}

std::string with_device(const std::string& key, int port_number) {
    return with_replaced(key, "{device}", port_device(port_number).name);
}

// The serial port's text ends with the system's own for the cause.
bool is_one_of(const std::string& error, std::initializer_list<int> causes) {
    return std::any_of(causes.begin(), causes.end(),
                       [&](int cause) { return error.ends_with(std::strerror(cause)); });
}

} // namespace

std::string why_port_failed(int port_number, const std::string& error) {
    if (port_device(port_number).name.empty()) return app::helper_word("no port chosen");
    if (is_one_of(error, {ENOENT, ENODEV, ENXIO, EIO}))
        return with_device("no device", port_number);
    if (is_one_of(error, {EACCES, EPERM})) return with_device("no permission", port_number);
    if (is_one_of(error, {EBUSY})) return with_device("in use", port_number);
    if (is_one_of(error, {ENOTTY, EINVAL})) return with_device("not a serial port", port_number);
    // The serial port's own text for this case names the remedy, in the operator's language.
    if (error.ends_with(app::helper_word("terminal of a session"))) return error;
    return with_replaced("cannot open", "{error}", error);
}

std::string why_no_answer(int port_number) { return with_device("no answer", port_number); }

} // namespace zol::link

#include "link/port_devices.h"

#include "app/application_folder.h"
#include "app/helper_texts.h"

#include <iterator>
#include <system_error>

namespace zol::link {
namespace {

constexpr const char* usual_devices[] = {"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyACM0",
                                         "/dev/ttyACM1", "/dev/ttyS0",   "/dev/ttyS1",
                                         "/dev/ttyS2",   "/dev/ttyS3"};

} // namespace

std::filesystem::path device_of_port(int port_number) {
    if (port_number < 1 || port_number > static_cast<int>(std::size(usual_devices))) return {};
    const auto link = app::application_file("\\ports\\com" + std::to_string(port_number));
    std::error_code error;
    // A link whose device is gone still names the port's device.
    if (std::filesystem::symlink_status(link, error).type() !=
        std::filesystem::file_type::not_found)
        return link;
    return usual_devices[port_number - 1];
}

std::string port_tip(int port_number) {
    const auto device = device_of_port(port_number);
    std::error_code error;
    const auto target = std::filesystem::read_symlink(device, error);
    const std::string leads_to = error ? "" : " -> " + target.string();
    const bool there = std::filesystem::exists(device, error);
    return "COM" + std::to_string(port_number) + ": " + device.string() + leads_to + " (" +
           app::helper_word(there ? "there" : "not there") + ")";
}

} // namespace zol::link

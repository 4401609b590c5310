#include "link/port_devices.h"

#include "app/application_folder.h"
#include "app/helper_texts.h"
#include "link/device_identity.h"

#include <sys/stat.h>
#include <system_error>

namespace zol::link {
namespace {

std::filesystem::path link_of_port(int port_number) {
    return app::application_file("\\ports\\com" + std::to_string(port_number));
}

constexpr std::array usual_devices = {"dev/ttyUSB0", "dev/ttyUSB1", "dev/ttyACM0", "dev/ttyACM1",
                                      "dev/ttyS0",   "dev/ttyS1",   "dev/ttyS2",   "dev/ttyS3"};
static_assert(usual_devices.size() == found_devices.size());

} // namespace

std::filesystem::path place_of_found(int port_number) {
    const FoundDevice& found = found_devices[static_cast<std::size_t>(port_number - 1)];
    std::error_code error;
    if (found.path == link_of_port(port_number) || std::filesystem::exists(found.path, error) ||
        !has_serial_number(found.identity))
        return found.path;
    for (const char* usual : usual_devices) {
        struct stat there {};
        const auto device = machine_state.root / usual;
        if (::stat(device.c_str(), &there) == 0 && device_identity(there.st_rdev) == found.identity)
            return device;
    }
    return found.path;
}

std::filesystem::path device_of_port(int port_number) {
    if (port_number < 1 || port_number > static_cast<int>(usual_devices.size())) return {};
    const auto index = static_cast<std::size_t>(port_number - 1);
    const auto link = link_of_port(port_number);
    std::error_code error;
    // A link whose target is gone still counts.
    if (std::filesystem::symlink_status(link, error).type() !=
            std::filesystem::file_type::not_found ||
        found_devices[index].path == link)
        return link;
    return machine_state.root / usual_devices[index];
}

std::string with_target(const std::filesystem::path& device) {
    std::error_code error;
    const auto target = std::filesystem::read_symlink(device, error);
    return device.string() + (error ? "" : " -> " + target.string());
}

PortDevice port_device(int port_number) {
    const auto device = device_of_port(port_number);
    std::error_code error;
    const bool there = std::filesystem::exists(device, error);
    const auto target = std::filesystem::read_symlink(device, error);
    return {error ? device.string() : target.string(), there};
}

std::string port_tip(int port_number) {
    const bool there = port_device(port_number).is_there;
    return "COM" + std::to_string(port_number) + ": " + with_target(device_of_port(port_number)) +
           " (" + app::helper_word(there ? "there" : "not there") + ")";
}

} // namespace zol::link

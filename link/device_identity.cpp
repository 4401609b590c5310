#include "link/device_identity.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <sstream>
#include <sys/sysmacros.h>
#include <system_error>

namespace zol::link {
namespace {

namespace fs = std::filesystem;

std::string whole_text(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Searches upwards from the device's folder to that of the USB adapter, which is the first one with
// a vendor. Port and interface number tell the ports of one adapter apart. Empty if the device is
// not on USB.
std::string usb_identity(fs::path folder) {
    std::string identity = "usb";
    for (; folder.has_relative_path(); folder = folder.parent_path()) {
        std::error_code error;
        for (const char* part :
             {"port_number", "bInterfaceNumber", "idVendor", "idProduct", "serial"})
            if (fs::exists(folder / part, error))
                identity += std::string(" ") + part + "=" + whole_text(folder / part);
        if (fs::exists(folder / "idVendor", error)) return identity;
    }
    return {};
}

bool is_pseudo_terminal(dev_t device) {
    constexpr unsigned first = 136, last = 143; // fixed by the kernel
    return major(device) >= first && major(device) <= last;
}

// The controlling terminal in a line of /proc/<process>/stat; 0 for none. It is the field after
// state, parent, group and session. These follow the program's name in parentheses, which may
// itself hold blanks and parentheses. The kernel packs the 12 bits of the major number between the
// low 8 and the high 12 bits of the minor number.
dev_t controlling_terminal(const std::string& stat) {
    const auto name_end = stat.rfind(')');
    if (name_end == std::string::npos) return 0;
    std::istringstream fields(stat.substr(name_end + 1));
    std::string state;
    long parent = 0, group = 0, session = 0, terminal = 0;
    if (!(fields >> state >> parent >> group >> session >> terminal)) return 0;
    const auto packed = static_cast<unsigned>(terminal);
    return makedev((packed >> 8) & 0xfff, (packed & 0xff) | ((packed >> 12) & 0xfff00));
}

} // namespace

std::string device_identity(dev_t device) {
    const auto number = std::to_string(major(device)) + ":" + std::to_string(minor(device));
    std::error_code error;
    const auto folder = fs::canonical(machine_state.root / "sys/dev/char" / number, error);
    if (const auto identity = error ? std::string() : usb_identity(folder); !identity.empty())
        return identity;
    return is_pseudo_terminal(device) ? pseudo_terminal : number;
}

std::string file_mark(const struct stat& file) {
    return std::to_string(file.st_ino) + " " + std::to_string(file.st_ctim.tv_sec) + " " +
           std::to_string(file.st_ctim.tv_nsec);
}

bool has_serial_number(const std::string& identity) {
    return identity.find(" serial=") != std::string::npos;
}

bool is_terminal_of_a_session(dev_t device) {
    if (device == 0) return false; // processes without a terminal report this number
    // /dev/tty, /dev/console, /dev/ptmx and /dev/tty0, fixed by the kernel: aliases of another
    // terminal.
    if ((major(device) == 5 && minor(device) <= 2) || device == makedev(4, 0)) return true;
    std::error_code error;
    fs::directory_iterator process(machine_state.root / "proc", error);
    for (; !error && process != fs::directory_iterator(); process.increment(error)) {
        const std::string id = process->path().filename().string();
        if (!std::all_of(id.begin(), id.end(), [](unsigned char c) { return std::isdigit(c); }))
            continue;
        if (controlling_terminal(whole_text(process->path() / "stat")) == device) return true;
    }
    return false;
}

} // namespace zol::link

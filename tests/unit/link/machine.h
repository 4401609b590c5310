// A fake computer: pseudo-terminals under the names of its serial devices, and what its system
// reports about them.
#pragma once

#include "link/device_identity.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace zol::link {

inline void write_text(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

inline dev_t device_number(const std::filesystem::path& device) {
    struct stat found {};
    return ::stat(device.c_str(), &found) == 0 ? found.st_rdev : 0;
}

inline void replace_link(const std::filesystem::path& link, const std::filesystem::path& target) {
    std::filesystem::create_directories(link.parent_path());
    std::filesystem::remove(link);
    std::filesystem::create_symlink(target, link);
}

struct UsbAdapter {
    std::string vendor = "0403", product = "6001", serial = "";
    std::string interface_number = "00", port_number = "";
};

class Machine {
  public:
    explicit Machine(std::filesystem::path folder) : root(std::move(folder)) {
        std::filesystem::create_directories(root);
        machine_state.root = root;
    }
    ~Machine() { machine_state.root = "/"; }
    Machine(const Machine&) = delete;

    // From now on the system reports that the device belongs to this adapter.
    void describe(dev_t device, const UsbAdapter& adapter) {
        const auto number = std::to_string(major(device)) + ":" + std::to_string(minor(device));
        const auto usb = root / "sys/devices/pci0/usb1" / ("1-" + std::to_string(++adapters_));
        write_text(usb.parent_path() / "idVendor", "1d6b\n"); // the hub's
        const auto interface = usb / "1-1:1.0";
        const auto port = interface / "ttyUSB0";
        std::filesystem::create_directories(port / "tty/ttyUSB0");
        const std::map<std::filesystem::path, std::string> texts = {
            {usb / "idVendor", adapter.vendor},
            {usb / "idProduct", adapter.product},
            {usb / "serial", adapter.serial},
            {interface / "bInterfaceNumber", adapter.interface_number},
            {port / "port_number", adapter.port_number}};
        for (const auto& [file, text] : texts)
            if (!text.empty()) write_text(file, text + "\n");
        replace_link(root / "sys/dev/char" / number, port / "tty/ttyUSB0");
    }

    const std::filesystem::path root;

  private:
    int adapters_ = 0;
};

} // namespace zol::link

// A serial port over a pseudo-terminal: a cable with both ends in the test's hands.
#pragma once

#include "app/application_folder.h"
#include "link/port_devices.h"
#include "link/posix_serial_port.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <optional>
#include <poll.h>
#include <pty.h>
#include <string>
#include <unistd.h>

namespace zol::link {

// The far end of a cable, and the name of the near one.
struct Cable {
    int far_end = -1;
    std::string device;

    Cable() {
        int near_end = -1;
        char name[64] = {};
        EXPECT_EQ(::openpty(&far_end, &near_end, name, nullptr, nullptr), 0);
        device = name;
        ::close(near_end);
    }
    ~Cable() { pull(); }
    Cable(const Cable&) = delete;

    void pull() {
        if (far_end >= 0) ::close(far_end);
        far_end = -1;
    }
    void send(const Bytes& bytes) const {
        EXPECT_EQ(::write(far_end, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    Bytes receive(std::size_t length) const {
        Bytes all;
        pollfd ready{far_end, POLLIN, 0};
        while (all.size() < length && ::poll(&ready, 1, 5000) == 1) {
            std::uint8_t block[256];
            const ssize_t got = ::read(far_end, block, sizeof block);
            if (got <= 0) break;
            all.insert(all.end(), block, block + got);
        }
        return all;
    }
};

class SerialCable : public testing::Test {
  protected:
    SerialCable()
        : folder(std::filesystem::temp_directory_path() /
                 ("zol_ports_" + std::to_string(::getpid()))) {
        std::filesystem::create_directories(folder / "ports");
        app::use_application_folder(folder);
        found_devices = {};
    }
    ~SerialCable() override {
        port.close();
        std::filesystem::remove_all(folder);
    }

    void lead_com1_to(const std::filesystem::path& device) {
        std::filesystem::remove(folder / "ports/com1");
        std::filesystem::create_symlink(device, folder / "ports/com1");
    }
    std::optional<std::string> open_com1() {
        port.set_number(1);
        port.set_line_settings("9600,n,8,1");
        return port.open();
    }
    // What arrives within 5 seconds, as far as `length` bytes.
    Bytes read(std::size_t length) {
        Bytes all;
        for (int tenths = 0; tenths < 50000 && all.size() < length; ++tenths) {
            const auto some = port.read_all();
            if (!some) break;
            all.insert(all.end(), some->begin(), some->end());
            if (some->empty()) ::usleep(100);
        }
        return all;
    }

    const std::filesystem::path folder;
    PosixSerialPort port;
};

} // namespace zol::link

// A serial port over a pseudo-terminal, whose far end the test holds.
#pragma once

#include "app/application_folder.h"
#include "link/port_devices.h"
#include "link/posix_serial_port.h"
#include "tests/support/frames.h"

#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <optional>
#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace zol::link {

// The request of the polling.
inline const Bytes poll_frame = tests::frame_bytes(3);

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
    // What arrives within 5 seconds, up to `length` bytes.
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
    void expect_no_bytes() const {
        int bytes = -1;
        EXPECT_EQ(::ioctl(far_end, FIONREAD, &bytes), 0);
        EXPECT_EQ(bytes, 0);
    }
};

// Another program's hold on the device of a cable.
struct OpenDevice {
    explicit OpenDevice(const Cable& cable)
        : descriptor(::open(cable.device.c_str(), O_RDWR | O_NOCTTY)) {}
    ~OpenDevice() { ::close(descriptor); }
    OpenDevice(const OpenDevice&) = delete;

    bool lock() const { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; }
    termios settings() const {
        termios line{};
        EXPECT_EQ(::tcgetattr(descriptor, &line), 0);
        return line;
    }
    void set(const termios& line) const { EXPECT_EQ(::tcsetattr(descriptor, TCSANOW, &line), 0); }
    const int descriptor;
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
    // Opens the cable as COM1.
    void connect(const Cable& cable) {
        lead_com1_to(cable.device);
        EXPECT_EQ(open_com1(), std::nullopt);
    }
    void expect_open_fails(int error) {
        EXPECT_THAT(open_com1().value_or(""), testing::HasSubstr(std::strerror(error)));
        EXPECT_FALSE(port.is_open());
    }
    std::optional<std::string> open_com1() {
        port.set_number(1);
        port.set_line_settings("9600,n,8,1");
        return port.open();
    }
    // What arrives within 5 seconds, up to `length` bytes.
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

// With a cable that is open as COM1.
class ConnectedCable : public SerialCable {
  protected:
    ConnectedCable() { connect(cable); }
    Cable cable;
};

} // namespace zol::link

// A serial port without a unit.
#pragma once

#include "link/serial_port.h"

#include <string>

namespace zol::tests {

// It can be opened, and gives no bytes.
class SilentPort : public link::SerialPort {
  public:
    void set_number(int) override {}
    void set_line_settings(const std::string&) override {}
    std::optional<std::string> open() override { return std::nullopt; }
    void close() override {}
    bool is_open() const override { return false; }
    bool write(std::span<const std::uint8_t>) override { return false; }
    std::optional<link::Bytes> read_all() override { return std::nullopt; }
};

} // namespace zol::tests

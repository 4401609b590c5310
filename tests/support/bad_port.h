// A serial port on a bad line: bytes are damaged as a seed decides, the cable is pulled and plugged
// in again, the permission is taken away.
#pragma once

#include "link/serial_port.h"
#include "simulator/bad_line.h"

#include <functional>

namespace zol::tests {

// Wraps any port. While its adapter is out, each write and read is a fault and the port cannot be
// opened. When the adapter is back, the port works at once, as the real one does.
class BadPort final : public link::SerialPort {
  public:
    // `inner` must outlive it; `now_us` gives the time of the line.
    BadPort(link::SerialPort& inner, std::function<std::int64_t()> now_us,
            const sim::BadLineOptions& options = {})
        : inner_(inner), now_us_(std::move(now_us)), far_end_(inner), line_(far_end_, options) {}

    const sim::BadLineOptions& options() const { return line_.options(); }
    void set_options(const sim::BadLineOptions& options) { line_.set_options(options); }
    std::uint64_t damaged() const { return line_.damaged(); }
    bool plugged() const { return line_.plugged(now_us_()); }

    void set_number(int port_number) override { inner_.set_number(port_number); }
    void set_line_settings(const std::string& settings) override {
        inner_.set_line_settings(settings);
    }
    std::optional<std::string> open() override;
    void close() override;
    bool is_open() const override { return inner_.is_open(); }
    bool write(std::span<const std::uint8_t> bytes) override;
    std::optional<link::Bytes> read_all() override;

  private:
    // The inner port as the line uses it. When its bytes arrived is not known: each counts from the
    // read that found it.
    class FarEnd final : public sim::Line {
      public:
        explicit FarEnd(link::SerialPort& port) : port_(port) {}
        void receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) override;
        std::vector<std::uint8_t> take(std::int64_t now_us) override;
        std::optional<std::int64_t> next_byte_at_us() const override;
        void fetch(std::int64_t now_us);
        bool faulty = false; // the last write or read
        void clear() { here_.clear(); }

      private:
        link::SerialPort& port_;
        std::vector<std::uint8_t> here_;
        std::int64_t here_at_us_ = 0;
    };

    link::SerialPort& inner_;
    std::function<std::int64_t()> now_us_;
    FarEnd far_end_;
    sim::BadLine line_;
};

} // namespace zol::tests

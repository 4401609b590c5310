// A serial port with a bad line behind it: what passes is damaged by a seed, the cable falls out
// and comes back, the permission goes.
#pragma once

#include "link/serial_port.h"
#include "simulator/bad_line.h"

#include <functional>

namespace zol::tests {

// Stands before any port. An adapter that is out faults each write and read and cannot be opened;
// it is back at once when it is put back, as the real port sees to by itself.
class BadPort final : public link::SerialPort {
  public:
    // `inner` must outlive it; `now_us` tells the time of the line.
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
    // The inner port as the line sees it. Nobody says when its bytes have come in: each counts
    // from when it was asked for.
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

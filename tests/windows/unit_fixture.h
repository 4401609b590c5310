// The fixture for tests of the main window with a simulated unit, on the real clock: the program's
// handlers, and a line without a device. The first read is left out; a test starts the polling by
// poll().
#pragma once

#include "link/serial_port.h"
#include "simulator/control_unit.h"
#include "tests/windows/window_fixture.h"
#include "view/windows/form1.h"

#include <QTemporaryDir>

namespace zol::view {

class UnitFixture : public WindowFixture {
  protected:
    UnitFixture();
    ~UnitFixture() override;

    // Starts the polling and waits until a telegram is shown.
    void poll();
    // Whether the control is drawn as no longer read.
    bool is_stale(const Widget& control) const;
    // Runs `work` in `ms`, also inside a handler that repeats a request to a silent unit.
    static void later(int ms, const std::function<void()>& work);

    sim::ControlUnit unit{{.warm = true}};
    const QTemporaryDir folder;

  private:
    class Port : public link::SerialPort {
      public:
        explicit Port(sim::ControlUnit& unit) : unit_(unit) {}
        void set_number(int) override {}
        void set_line_settings(const std::string&) override {}
        std::optional<std::string> open() override;
        void close() override { open_ = false; }
        bool is_open() const override { return open_; }
        bool write(std::span<const std::uint8_t> bytes) override;
        std::optional<link::Bytes> read_all() override;

      private:
        sim::ControlUnit& unit_;
        bool open_ = false;
    };
    Port port_{unit};
};

} // namespace zol::view

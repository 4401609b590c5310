// The main window on a simulated unit, on the real clock: the program's own handlers, a line
// without a device, and the polling under way. It begins where the first read of the unit has
// ended.
#pragma once

#include "link/serial_port.h"
#include "simulator/control_unit.h"
#include "tests/windows/window_fixture.h"
#include "view/windows/form1.h"

#include <QTemporaryDir>

namespace zol::view {

class UnitBench : public WindowFixture {
  protected:
    UnitBench();
    ~UnitBench() override;

    // Lets the polling run until its telegrams are shown.
    void poll();
    bool is_stale(const Widget& control) const;
    // Runs `work` in `ms`, also beneath a handler that asks a silent unit for ever.
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

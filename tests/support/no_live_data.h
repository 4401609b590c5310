// A control unit of a family with live data that replies to every command except the one for live
// data.
#pragma once

#include "tests/support/bench.h"

namespace zol::tests {

class PortWithoutLiveData : public SimulatedPort {
  public:
    PortWithoutLiveData(sim::ControlUnit& unit, view::VirtualTime& time)
        : SimulatedPort(unit, time), time_(time) {}

    bool has_live_data = false;

    bool write(std::span<const std::uint8_t> bytes) override {
        if (has_live_data || !is_open() || unplugged || bytes[4] != 16)
            return SimulatedPort::write(bytes);
        sent.push_back({time_.now_us() / 1000, Send(16), {bytes.begin(), bytes.end()}});
        return true;
    }

  private:
    view::VirtualTime& time_;
};

struct NoLiveDataBench : Bench {
    explicit NoLiveDataBench(bool warm = true)
        : Bench({.family = 2, .version = 7, .revision = 71, .warm = warm}) {
        port = std::make_unique<PortWithoutLiveData>(*unit, time);
        link::use_serial_port(*port);
    }
};

} // namespace zol::tests

// A session with the simulated unit on virtual time, as it is recorded.
#pragma once

#include "link/ecu_frames.h"
#include "logbook/recording.h"
#include "simulator/control_unit.h"

#include <string>
#include <vector>

namespace zol::logbook {

class SimulatedSession {
  public:
    explicit SimulatedSession(const sim::Options& options = {}) : unit(options) {}

    void ask(link::Command command, int wait_ms = 300) {
        request(link::command_frame(command));
        wait(wait_ms);
    }
    void write(int number, int value, int wait_ms = 300) {
        request(*link::write_frame(number, value));
        wait(wait_ms);
    }
    void request(const Bytes& bytes) {
        events.push_back({now_us, EventKind::request, bytes, {}});
        unit.receive(bytes, now_us);
    }
    // The unit's bytes arrive every few milliseconds, as from a USB adapter.
    void wait(int ms) {
        for (const std::int64_t end_us = now_us + ms * 1000LL; now_us < end_us;) {
            now_us += 4000;
            Bytes bytes = unit.take(now_us);
            if (!bytes.empty()) events.push_back({now_us, EventKind::reply, std::move(bytes), {}});
        }
    }
    std::string text(const std::string& car = "AB-123") const {
        std::string all = header_text(
            {"zol-logbook 1", car, "2026-11-22T14:10:05+01:00", "/dev/ttyUSB0", "COM1"});
        for (const Event& event : events)
            all += event_line(event);
        return all;
    }

    sim::ControlUnit unit;
    std::vector<Event> events;
    std::int64_t now_us = 0;
};

} // namespace zol::logbook

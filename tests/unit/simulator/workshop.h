// A simulated unit, to which a test sends frames, on a clock that only the test advances.
#pragma once

#include "simulator/control_unit.h"
#include "tests/support/frames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sim {

struct Workshop {
    explicit Workshop(const Options& options = {}) : unit(options) { unit.advance(now_us); }

    ControlUnit unit;
    std::int64_t now_us = 5'000'000; // a clock need not start at 0

    void wait_ms(std::int64_t ms) {
        now_us += ms * 1000;
        unit.advance(now_us);
    }
    void wait_s(double s) { wait_ms(static_cast<std::int64_t>(s * 1000)); }
    void send(const Bytes& bytes) { unit.receive(bytes, now_us); }
    void send_command(int code) { send(zol::tests::frame_bytes(code)); }
    void write(int number, int value) { send(zol::tests::write_bytes(number, value)); }
    Bytes read() { return unit.take(now_us); }
    // Sends a command, waits for the whole reply and returns it.
    Bytes ask(int code) {
        send_command(code);
        wait_ms(400);
        return read();
    }
    std::string type(const std::string& line) { return unit.command(line, now_us); }
    // The word of the status telegram at this position, counted from 1.
    int status_word(std::size_t position) { return word(ask(3), position); }

    static int word(const Bytes& bytes, std::size_t position) {
        EXPECT_GT(bytes.size(), position);
        if (bytes.size() <= position) return -1;
        return bytes[position - 1] * 256 + bytes[position];
    }
};

// Positions in the status telegram.
inline constexpr std::size_t rpm_at = 6, injection_at = 8, pressure_at = 10, lambda_at = 12,
                             gain_at = 14, water_at = 20, stage_at = 22, tank_at = 24, fuel_at = 26,
                             battery_at = 28;

class WorkshopTest : public testing::Test, public Workshop {
  protected:
    explicit WorkshopTest(const Options& options = {}) : Workshop(options) {}
};

} // namespace sim

// One start of the program on virtual time, with line faults, a simulated car and all checks.
#pragma once

#include "tests/soak/boxes.h"
#include "tests/soak/checks.h"
#include "tests/soak/handlers.h"
#include "tests/soak/log.h"
#include "tests/support/bad_port.h"
#include "tests/support/logic_fixture.h"

namespace zol::soak {

// What a start passes to the next.
struct Carried {
    std::unique_ptr<sim::ControlUnit> unit;
    std::string settings; // the file
    std::int64_t now_us = 0;
};

class Session final : public tests::LogicTest {
  public:
    Session(Log& session_log, Carried before, std::uint32_t seed);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() override;
    void TestBody() override {}

    bool ended() const { return time.ended(); }
    bool box_is_up() const { return boxes.up > 0; }
    std::int64_t now_us() { return time.now_us(); }
    // An act of the operator. Returns when the program lets time pass; `work` may still be waiting.
    void act(const std::string& what, std::function<void()> work);
    // Lets time pass, and checks every few seconds.
    void pass(std::int64_t ms);
    void car(const std::string& command); // a command to the simulated unit
    Carried leave();                      // ends the program at once

    sim::ControlUnit& the_unit() { return *unit; }
    tests::SimulatedPort& the_port() { return *port; }

    Log& log;
    Handlers handlers;
    Checks checks;
    RandomAnswers boxes;
    std::unique_ptr<tests::BadPort> line;

  private:
    class Watched;
    std::unique_ptr<link::SerialPort> watched_;
};

} // namespace zol::soak

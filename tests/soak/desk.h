// One start of the program: on virtual time, before a line and a car that may do anything, with an
// operator who may do anything, and every check in place.
#pragma once

#include "tests/soak/boxes.h"
#include "tests/soak/checks.h"
#include "tests/soak/handlers.h"
#include "tests/soak/log.h"
#include "tests/support/bad_port.h"
#include "tests/support/bench.h"

namespace zol::soak {

// What a start leaves to the next.
struct Carried {
    std::unique_ptr<sim::ControlUnit> unit;
    std::string settings; // the file
    std::int64_t now_us = 0;
};

class Desk final : public tests::Bench {
  public:
    Desk(Log& desk_log, Carried before, std::uint32_t seed);
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;
    ~Desk() override;
    void TestBody() override {}

    bool ended() const { return time.ended(); }
    bool box_is_up() const { return boxes.up > 0; }
    std::int64_t now_us() { return time.now_us(); }
    // An act of the operator's; comes back when the program lets time pass, with `work` at its end
    // or in the middle of a wait.
    void act(const std::string& what, std::function<void()> work);
    // Lets time pass, with the checks every so often.
    void pass(std::int64_t ms);
    void car(const std::string& command); // typed at the simulated car
    Carried leave();                      // ends the program where it stands

    sim::ControlUnit& the_unit() { return *unit; }
    tests::SimulatedPort& the_port() { return *port; }

    Log& log;
    Handlers handlers;
    Checks checks;
    AnyAnswers boxes;
    std::unique_ptr<tests::BadPort> line;

  private:
    class Watched;
    std::unique_ptr<link::SerialPort> watched_;
};

} // namespace zol::soak

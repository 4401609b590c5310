// The whole simulation: a control unit with its car, the line to it, and the commands for both.
#pragma once

#include "simulator/bad_line.h"
#include "simulator/control_unit.h"

namespace sim {

struct Simulation {
    explicit Simulation(const Options& options, const BadLineOptions& bad = {})
        : unit(options), line(unit, bad) {}
    Simulation(const Simulation&) = delete;
    Simulation& operator=(const Simulation&) = delete;

    ControlUnit unit;
    BadLine line;

    // Runs a command of the unit (simulator/console.h) or of the line: "line drop 0.01", "line
    // clean", "line". Returns the text to show.
    std::string command(std::string_view text, std::int64_t now_us);
};

} // namespace sim

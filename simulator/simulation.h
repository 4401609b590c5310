// The whole simulation: a control unit with its car, the line to it, and the commands for both.
#pragma once

#include "simulator/bad_line.h"
#include "simulator/control_unit.h"

namespace sim {

struct Simulation {
    // `other_end` is at the end of the line instead of the unit; it must outlive this object.
    explicit Simulation(const Options& options, const BadLineOptions& bad = {},
                        Line* other_end = nullptr)
        : unit(options), line(other_end ? *other_end : unit, bad) {}
    Simulation(const Simulation&) = delete;
    Simulation& operator=(const Simulation&) = delete;

    ControlUnit unit;
    BadLine line;

    // Runs a command of the unit (simulator/console.h) or of the line: "line drop 0.01", "line
    // clean", "line". Returns the text to show.
    std::string command(std::string_view text, std::int64_t now_us);
};

} // namespace sim

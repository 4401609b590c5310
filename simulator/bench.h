// The whole bench: a unit, the line to it, and the commands for both.
#pragma once

#include "simulator/bad_line.h"
#include "simulator/control_unit.h"

namespace sim {

struct Bench {
    explicit Bench(const Options& options, const BadLineOptions& bad = {})
        : unit(options), line(unit, bad) {}
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    ControlUnit unit;
    BadLine line;

    // A command of the unit, or of the line: "line drop 0.01", "line clean", "line".
    std::string command(std::string_view text, std::int64_t now_us);
};

} // namespace sim

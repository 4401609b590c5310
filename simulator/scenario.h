// Typed commands with times, from a file: "12.5 throttle 40".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

struct ScenarioStep {
    double at_s = 0; // after the start
    std::string command;
    int line = 0; // of the file
};

struct Scenario {
    std::vector<ScenarioStep> steps;
    // "FILE:3: ...", one for each line that is not right; the steps are then not to be used.
    std::vector<std::string> wrong;
};

// Every line is a time in seconds, not before the one above it, and a command; empty lines and
// what stands behind # are comments. `file` only names it in the complaints. Each command is tried
// on a unit of its own, so that a wrong one is found here and not in the middle of a run; `quit`
// is taken too.
Scenario read_scenario(std::string_view text, std::string_view file);
// The same from a file; one that cannot be read is a complaint too.
Scenario load_scenario(const std::string& path);

} // namespace sim

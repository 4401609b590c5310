// A scenario: a file of commands with times, such as "12.5 throttle 40".
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
    // One text "FILE:3: ..." for each wrong line. If there are any, the steps must not be used.
    std::vector<std::string> wrong;
};

// Each line is a time in seconds, not before that of the line above, and a command. Empty lines and
// text after # are ignored. `file` is only used in the error texts. Each command is tried on a
// separate unit, so that a wrong one is found before the run; `quit` is also allowed.
Scenario read_scenario(std::string_view text, std::string_view file);
// The same from a file. A file that cannot be read also gives an error text.
Scenario load_scenario(const std::string& path);

} // namespace sim

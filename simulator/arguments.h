// The command-line arguments of control-unit, and its help text.
#pragma once

#include "simulator/bad_line.h"
#include "simulator/control_unit.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sim {

struct Arguments {
    Options unit;
    BadLineOptions line;
    std::string device;   // empty: a pseudo-terminal
    std::string link;     // empty: none
    std::string log;      // empty: none
    std::string scenario; // empty: none
    std::string replay;   // empty: none
    bool exit_on_eof = false;
    bool help = false;
    bool version = false;
};

// Reads the arguments after the program's name. If one is wrong, returns nothing and sets `wrong`
// to a sentence that names the argument and says what is accepted.
std::optional<Arguments> read_arguments(std::span<const char* const> words, std::string& wrong);

std::string help_text();

} // namespace sim

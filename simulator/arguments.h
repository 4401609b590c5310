// The program's arguments.
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
    bool exit_on_eof = false;
    bool help = false;
    bool version = false;
};

// Reads what stands behind the program's name. On a wrong argument nothing, and `wrong` gets a
// sentence that names it and says what is right.
std::optional<Arguments> read_arguments(std::span<const char* const> words, std::string& wrong);

std::string help_text();

} // namespace sim

#include "simulator/simulation.h"

#include "simulator/console.h"
#include "simulator/words.h"

namespace sim {

std::string Simulation::command(std::string_view text, std::int64_t now_us) {
    const auto words = split_words(text);
    if (words.size() == 1 && words[0] == "help")
        return command_help() +
               "\n  line              shows the state of the line\n"
               "  line drop 0.01    sets a fault: drop, double, flip, insert,\n"
               "                    truncate, delay, split, join, unplug (0 to 1),\n"
               "                    delay-ms, unplug-ms, silence, echo, babble,\n"
               "                    denied (on, off), seed\n"
               "  line clean        removes all faults";
    if (words.empty() || words[0] != "line") {
        std::string answer = unit.command(text, now_us);
        if (!unit.quirks().plugged) line.clear();
        return answer;
    }
    BadLineOptions options = line.options();
    if (words.size() == 2 && words[1] == "clean") {
        const std::uint32_t seed = options.seed;
        options = {};
        options.seed = seed;
    } else if (words.size() == 3) {
        const std::string wrong = set_switch(options, words[1], words[2]);
        if (!wrong.empty()) return "Error: " + wrong + ". Type, for example: line drop 0.01.";
    } else if (words.size() != 1) {
        return "Error: line takes a switch and its value. Type, for example: line drop 0.01, or "
               "line clean.";
    }
    line.set_options(options);
    return "line: " + describe(options);
}

} // namespace sim

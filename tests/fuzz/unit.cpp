// Random scenario files, commands, arguments and line bytes for the simulated unit. Holds that its
// answers are printable and that wrong arguments get a message.
#include "simulator/arguments.h"
#include "simulator/scenario.h"
#include "simulator/simulation.h"
#include "tests/fuzz/input.h"

#include <string>
#include <vector>

namespace zol::fuzz {
namespace {

bool printable(std::string_view text) {
    for (const char c : text)
        if (c != '\n' && (c < ' ' || c > '~')) return false;
    return true;
}

void scenario(Input input) {
    const sim::Scenario read = sim::read_scenario(input.text(), "FILE");
    double before_s = 0;
    for (const sim::ScenarioStep& step : read.steps) {
        require(step.at_s >= before_s, "the steps of a scenario are in order");
        before_s = step.at_s;
    }
    for (const std::string& wrong : read.wrong)
        require(printable(wrong) && wrong.starts_with("FILE:"), "a message names its line");
}

// Commands and line bytes, with time between them.
void talk(Input input) {
    sim::Options options;
    options.family = input.byte() % 5;
    options.version = input.byte();
    options.revision = input.byte();
    sim::Simulation simulation(options);
    std::string log;
    simulation.unit.set_log([&log](std::string_view line) { log = line; });
    std::int64_t now_us = 0;
    for (int turn = 0; turn < 16 && !input.empty(); ++turn) {
        const int what = input.byte();
        // Up to a quarter of a second, or long enough for a restart.
        now_us += what >= 254 ? 3'000'000 : (what >> 1) * 2'000;
        if (what & 1)
            simulation.line.receive(input.piece(), now_us);
        else
            require(printable(simulation.command(input.line(), now_us)), "an answer is printable");
        require(simulation.line.take(now_us).size() < 100'000,
                "the line has a limited number of bytes");
        require(printable(log), "the log is printable");
    }
}

void arguments(Input input) {
    std::vector<std::string> words;
    while (!input.empty() && words.size() < 20)
        words.emplace_back(input.line());
    std::vector<const char*> pointers;
    for (const std::string& word : words)
        pointers.push_back(word.c_str());
    std::string wrong;
    const auto read = sim::read_arguments(pointers, wrong);
    require(read.has_value() == wrong.empty(), "wrong arguments get a message");
    if (read) sim::Simulation(read->unit, read->line).command("state", 0);
}

} // namespace

void run_input(Input input) {
    switch (input.byte() % 4) {
    case 0: return scenario(input);
    case 1: return arguments(input);
    default: return talk(input);
    }
}

} // namespace zol::fuzz

#include "simulator/arguments.h"

#include "simulator/words.h"

#include <array>

namespace sim {
namespace {

// "2.7.71".
std::string read_firmware(std::string_view value, Options& options) {
    const auto first = value.find('.');
    const auto second = first == std::string_view::npos ? first : value.find('.', first + 1);
    if (second != std::string_view::npos) {
        const auto family = number_in(value.substr(0, first), 0, 4);
        const auto version = number_in(value.substr(first + 1, second - first - 1), 0, 255);
        const auto revision = number_in(value.substr(second + 1), 0, 255);
        if (family && version && revision) {
            options.family = *family;
            options.version = *version;
            options.revision = *revision;
            return {};
        }
    }
    return "takes a family from 0 to 4, a version and a revision from 0 to 255, as in 2.7.71";
}

// "drop=0.01,echo=on".
std::string read_line_switches(std::string_view value, BadLineOptions& options) {
    while (!value.empty()) {
        const auto comma = value.find(',');
        const std::string_view one = value.substr(0, comma);
        const auto equals = one.find('=');
        if (equals == std::string_view::npos) return "takes switches as in drop=0.01,echo=on";
        const std::string wrong =
            set_switch(options, one.substr(0, equals), one.substr(equals + 1));
        if (!wrong.empty()) return "is wrong: " + wrong;
        value = comma == std::string_view::npos ? std::string_view{} : value.substr(comma + 1);
    }
    return {};
}

std::string read_path(std::string_view value, std::string& path) {
    if (value.empty()) return "takes a path, which must not be empty";
    path = value;
    return {};
}

std::string read_seed(std::string_view value, Arguments& arguments) {
    const auto seed = number_in<std::uint32_t>(value, 0, UINT32_MAX);
    if (!seed) return "takes a number from 0 to 4294967295";
    arguments.unit.seed = arguments.line.seed = *seed;
    return {};
}

std::string read_protocol(std::string_view value, Options& options) {
    const auto protocol = number_in(value, 2, 10);
    if (!protocol) return "takes a number from 2 to 10";
    options.protocol = *protocol;
    return {};
}

struct Valued {
    std::string_view name;
    std::string (*read)(std::string_view value, Arguments&);
};
constexpr std::array<Valued, 8> valued = {
    {{"--device", [](std::string_view v, Arguments& a) { return read_path(v, a.device); }},
     {"--link", [](std::string_view v, Arguments& a) { return read_path(v, a.link); }},
     {"--log", [](std::string_view v, Arguments& a) { return read_path(v, a.log); }},
     {"--scenario", [](std::string_view v, Arguments& a) { return read_path(v, a.scenario); }},
     {"--firmware", [](std::string_view v, Arguments& a) { return read_firmware(v, a.unit); }},
     {"--line", [](std::string_view v, Arguments& a) { return read_line_switches(v, a.line); }},
     {"--seed", read_seed},
     {"--protocol", [](std::string_view v, Arguments& a) { return read_protocol(v, a.unit); }}}};

struct Bare {
    std::string_view name;
    void (*set)(Arguments&);
};
constexpr std::array<Bare, 6> bare = {
    {{"--warm", [](Arguments& a) { a.unit.warm = true; }},
     {"--exit-on-eof", [](Arguments& a) { a.exit_on_eof = true; }},
     {"--help", [](Arguments& a) { a.help = true; }},
     {"-h", [](Arguments& a) { a.help = true; }},
     {"--version", [](Arguments& a) { a.version = true; }},
     {"-V", [](Arguments& a) { a.version = true; }}}};

constexpr std::string_view see_help = "; control-unit --help lists them all";

} // namespace

std::optional<Arguments> read_arguments(std::span<const char* const> words, std::string& wrong) {
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        const auto equals = word.starts_with("--") ? word.find('=') : std::string_view::npos;
        const std::string_view name = word.substr(0, equals);
        bool known = false;
        for (const Bare& one : bare) {
            if (one.name != word) continue;
            one.set(arguments);
            known = true;
        }
        for (const Valued& one : valued) {
            if (one.name != name) continue;
            known = true;
            std::string_view value;
            if (equals != std::string_view::npos)
                value = word.substr(equals + 1);
            else if (i + 1 < words.size())
                value = words[++i];
            else {
                wrong =
                    std::string(name) + " needs a value behind it" + std::string(see_help) + ".";
                return std::nullopt;
            }
            const std::string fault = one.read(value, arguments);
            if (fault.empty()) continue;
            wrong = std::string(name) + " " + fault + "; it got " + quoted(value) + ".";
            return std::nullopt;
        }
        if (known) continue;
        wrong = "There is no argument " + quoted(word) + std::string(see_help) + ".";
        return std::nullopt;
    }
    if (!arguments.device.empty() && !arguments.link.empty()) {
        wrong =
            "--link names a pseudo-terminal and does not go with --device; leave one of them out.";
        return std::nullopt;
    }
    return arguments;
}

std::string help_text() {
    return R"(NAME
    control-unit - a simulated gas-injection control unit with a car behind it

SYNOPSIS
    control-unit [--link PATH | --device PATH] [--firmware F.V.R] [--warm]
                 [--seed N] [--protocol N] [--line SWITCHES] [--scenario FILE]
                 [--log FILE] [--exit-on-eof]
    control-unit --help | --version

DESCRIPTION
    Behaves on a serial line as a control unit in a car does, so that the
    service tool can be tried and learnt with no car. It opens a pseudo-terminal
    and prints its path; a tool opens that path as its serial port. Bytes go at
    the pace of 9600 baud, and an answer begins 20 to 60 ms behind its request.

    Behind the unit an engine runs: it starts cold and warms up, goes over to
    gas when the unit's parameters allow it, asks for more injection time when
    the gas is lean and for less when it is rich, empties its tank and stores
    faults. Commands typed on standard input steer it, for example:

        throttle 40     coolant 85      gas on          fault add 301
        tank 30         pressure 900    mixture 80      lambda silent
        silence on      garble 5        late 300        unplug
        state           memory 3        log on          help

    Standard input may end; the unit then stays on the line.

OPTIONS
    --link PATH
        Makes a symbolic link to the pseudo-terminal and removes it at the end.
        A link left behind is replaced; anything else at PATH is left alone and
        refused.
    --device PATH
        Uses this serial port at 9600 baud, 8 data bits, no parity, 1 stop bit,
        in place of a pseudo-terminal.
    --firmware F.V.R
        Family 0 to 4, version and revision, each 0 to 255. Family 0 has the
        car's diagnosis, 1 a lambda probe, 2 to 4 have both. Without it: 0.2.71.
    --warm
        The engine has been running for half an hour. Without it, a cold start.
    --seed N
        Fixes all chance: the latencies, the engine's unrest and the bad line.
        Without it: 1. The same seed and the same requests give the same run.
    --protocol N
        What the car's diagnosis speaks, 2 to 10. Without it: 7.
    --line SWITCHES
        A bad line, as in drop=0.01,echo=on. drop, double, flip, insert,
        truncate and delay take a chance for each byte from 0 to 1, delay-ms the
        longest delay; silence, echo and babble are on or off; seed N gives the
        line a seed of its own. The command "line" changes them later.
    --scenario FILE
        Types the commands of FILE at their times. A line is a time in seconds
        after the start and a command, as in "12.5 throttle 40"; # begins a
        comment.
    --log FILE
        Writes requests and answers to FILE, in words and with their times.
        Without it the command "log on" shows them on standard output.
    --exit-on-eof
        Ends when standard input ends.
    --help, --version
        Print this text, or the version, and end.

EXIT STATUS
    0 after quit, an interrupt or a termination signal; 1 if the port, the link
    or the log cannot be opened; 2 for wrong arguments or a wrong scenario.

FILES
    PATH of --link is the one file that is left changed, and only while the
    program runs.

EXAMPLES
    Start it as port 1 of a tool that looks into the folder "ports":
        control-unit --link ports/com1 --firmware 2.7.71
    A drive from a file, on a bad line, written down:
        control-unit --warm --scenario drive.txt --line drop=0.01 --log wire.txt
)";
}

} // namespace sim

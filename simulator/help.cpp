#include "simulator/arguments.h"

namespace sim {
namespace {

constexpr std::string_view text = R"(NAME
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
        A link left behind by a unit that was killed is replaced. Anything else
        at PATH, such as a link to a real adapter or to a pseudo-terminal in
        use, is refused and stays as it is.
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
        truncate, delay, split, join and unplug take a chance for each byte from
        0 to 1: lost, twice, a bit changed, a foreign byte ahead, lost with all
        behind it, late, a pause ahead, held for the next answer, the cable out.
        delay-ms and unplug-ms are the longest times. silence, echo, babble and
        denied are on or off; denied takes away the permission to open the
        pseudo-terminal, which root does not need. seed N gives the line a seed
        of its own. The command "line" changes them later.
    --scenario FILE
        Types the commands of FILE at their times. A line is a time in seconds
        after the start and a command, as in "12.5 throttle 40"; # begins a
        comment.
    --log FILE
        Writes requests and answers to FILE, in words and with their times.
        FILE may be a FIFO, whose reader may come later. A log that cannot be
        written is reported on standard error and does not hold up the unit.
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
    Start it as port 1 of a tool that looks into the folder "ports", in an
    application folder that is used only for practice:
        control-unit --link ~/practice/zol-injection/ports/com1
    A drive from a file, on a bad line, written down:
        control-unit --warm --scenario drive.txt --line drop=0.01 --log wire.txt
)";

} // namespace

std::string help_text() { return std::string(text); }

} // namespace sim

#include "simulator/arguments.h"

namespace sim {
namespace {

constexpr std::string_view text = R"(NAME
    control-unit - a simulated gas-injection control unit with a car

SYNOPSIS
    control-unit [--link PATH | --device PATH] [--firmware F.V.R] [--warm]
                 [--seed N] [--protocol N] [--line SWITCHES] [--scenario FILE]
                 [--log FILE] [--exit-on-eof]
    control-unit --replay FILE [--link PATH | --device PATH] [--seed N]
                 [--line SWITCHES] [--log FILE] [--exit-on-eof]
    control-unit --help | --version

DESCRIPTION
    Behaves on a serial line as a control unit in a car does, so that the
    service tool can be tried and learnt without a car. It opens a
    pseudo-terminal and prints its path; a tool opens that path as its serial
    port. Bytes are sent at 9600 baud, and an answer begins 20 to 60 ms after
    its request.

    The unit has a simulated car: the engine starts cold and warms up, changes
    over to gas when the unit's parameters allow it, requests more injection
    time when the gas is lean and less when it is rich, empties the tank and
    causes faults. Commands on standard input control it, for example:

        throttle 40     coolant 85      gas on          fault add 301
        tank 30         pressure 900    mixture 80      lambda silent
        silence on      garble 5        late 300        unplug
        state           memory 3        log on          help

    When standard input ends, the unit goes on running.

OPTIONS
    --link PATH
        Creates a symbolic link to the pseudo-terminal and removes it at the
        end. The link of a unit that was killed is replaced. Anything else at
        PATH, such as a link to a real adapter or to a pseudo-terminal in use,
        is an error and is not changed.
    --device PATH
        Uses this serial port at 9600 baud, 8 data bits, no parity, 1 stop bit,
        instead of a pseudo-terminal.
    --firmware F.V.R
        Family 0 to 4, version and revision, each 0 to 255. Family 0 has the
        car's diagnosis, 1 a lambda probe, 2 to 4 have both. Default: 0.2.71.
    --warm
        Starts with an engine that has run for half an hour. Default: cold.
    --seed N
        Seed of everything random: latencies, engine and bad line. The same
        seed and the same requests give the same run. Default: 1.
    --protocol N
        Protocol of the car's diagnosis, 2 to 10. Default: 7.
    --line SWITCHES
        Faults of the line, such as drop=0.01,echo=on. These take a probability
        for each byte, 0 to 1:
            drop       the byte is lost
            double     it arrives twice
            flip       one bit is changed
            insert     a random byte arrives before it
            truncate   it and what follows are lost, up to a pause
            delay      it is late, by up to delay-ms
            split      a pause is inserted before it
            join       it is held until the next answer
            unplug     the cable is disconnected, for up to unplug-ms
        silence (nothing arrives), echo (what is sent comes back), babble
        (random bytes arrive) and denied take on or off. denied removes the
        permission to open the pseudo-terminal, which does not stop root.
        seed=N gives the line a seed of its own. The command "line" changes
        all of these later.
    --scenario FILE
        Runs the commands of FILE at their times. A line is a time in seconds
        after the start and a command, such as "12.5 throttle 40"; # begins a
        comment.
    --replay FILE
        Answers as the unit in FILE did, a recording of zol-logbook: the same
        answer to the same request, in the recorded order and after the
        recorded delay. After the last answer to a request the first one
        follows again. A request that was never recorded gets no answer and is
        reported once. There is no car: of the commands, only "line",
        "unplug", "plug" and "quit" are taken.
    --log FILE
        Writes requests and answers to FILE, as text and with their times.
        FILE may be a FIFO, whose reader may come later. A log that cannot be
        written is reported on standard error and does not delay the unit.
        Without this option the command "log on" shows them on standard output.
    --exit-on-eof
        Ends when standard input ends.
    --help, --version
        Print this text, or the version, and end.

EXIT STATUS
    0   after quit, an interrupt or a termination signal
    1   the port, the link or the log cannot be opened
    2   wrong arguments, a wrong scenario or a wrong recording

FILES
    The link exists only while the program runs. The log is the only file that
    the program leaves.

EXAMPLES
    As port 1 of a tool with the folder "ports", in an application folder that
    is used only for practice:
        control-unit --link ~/practice/zol-injection/ports/com1
    A drive from a file on a bad line, with a log:
        control-unit --warm --scenario drive.txt --line drop=0.01 --log wire.txt
)";

} // namespace

std::string help_text() { return std::string(text); }

} // namespace sim

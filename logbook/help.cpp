#include "logbook/help.h"

namespace zol::logbook {
namespace {

constexpr std::string_view program_text = R"(NAME
    zol-logbook - records and reads what passes on a control unit's serial line

SYNOPSIS
    zol-logbook record --car REGISTRATION [--port N] [--device PATH]
                       [--folder PATH] [--data PATH]
    zol-logbook release [--folder PATH]
    zol-logbook check FILE
    zol-logbook show [--all] FILE
    zol-logbook csv [--separator NAME] FILE
    zol-logbook compare A B
    zol-logbook backup [--to PATH] FILE
    zol-logbook COMMAND --help
    zol-logbook --help | --version

COMMANDS
    record
        Passes every byte between the adapter and the tool, and records it.
    release
        Removes links that a killed "record" has left behind.
    check FILE
        Says what is in a recording and whether it is whole.
    show FILE
        Shows a recording in words: writes, commands, answers, counts.
    csv FILE
        Prints a recording as a table for a spreadsheet.
    compare A B
        Shows which parameters of the unit differ between two backups.
    backup FILE
        Makes a file of each parameter image in a recording.

EXIT STATUS
    0 when the command was carried out, 1 when it could not be, 2 for wrong
    arguments.
)";

constexpr std::string_view record_text = R"(SYNOPSIS
    zol-logbook record --car REGISTRATION [--port N] [--device PATH]
                       [--folder PATH] [--data PATH]

DESCRIPTION
    Start it before the tool. It opens the serial adapter, makes the link
    ports/com1 in the tool's application folder, and passes every byte both
    ways. The tool is started as usual and needs no setting. An interrupt
    (Ctrl+C) ends the recording and removes the link; the tool, started again,
    then opens the adapter itself.

    While the adapter is pulled, used by another program or forbidden, there
    is no link. Once the same adapter is back, the link is made again, and a
    tool that is still running goes on with it.

    If the program is killed, a second process of it writes what was recorded
    to the end and removes the link. If both are killed, as by a power cut,
    "record" or "release" removes the link at the next start.

    A disk that is full or slow never delays the line: the recording stops
    with a message, and bytes are passed on.

OPTIONS
    --car REGISTRATION
        The car, as the name of a folder. Needed.
    --port N
        The port number of the tool, 1 to 8. Without it: 1.
    --device PATH
        The adapter. Without it the one that the tool would open for the
        number: /dev/ttyUSB0 for 1, /dev/ttyUSB1 for 2, /dev/ttyACM0 and 1 for
        3 and 4, /dev/ttyS0 to 3 for 5 to 8.
    --folder PATH
        The tool's application folder. Without it the folder of this program,
        if it has a folder "ports", else the user's own,
        ~/.local/share/zol-injection.
    --data PATH
        Where the recordings go. Without it "logbook" in the application
        folder.

FILES
    <data>/<registration>/<date>-<n>.zlog
        The recording, described in docs/recording-format.md.
    <folder>/ports/com<n>
        The link. One that this program did not make is never changed:
        "record" then asks for another port number.
    <folder>/ports/.com<n>.logbook
        Says which link is this program's, while it runs.
)";

constexpr std::string_view release_text = R"(SYNOPSIS
    zol-logbook release [--folder PATH]

DESCRIPTION
    Removes the links in the folder "ports" that a "record" has left behind,
    which was killed together with its second process. The link of one that
    runs stays, and so does any link that "record" did not make.

OPTIONS
    --folder PATH
        The tool's application folder, found as for "record".
)";

constexpr std::string_view check_text = R"(SYNOPSIS
    zol-logbook check FILE

DESCRIPTION
    Reads the recording FILE from beginning to end and prints the car, the
    start, the port, the time that it covers and the number of bytes each way.
    A last line that is not whole, as a power cut leaves it, is left out and
    reported, and so is a recording that was interrupted before its end. Any
    other wrong line is named by its number, with what to do, and the exit
    status is 1.
)";

constexpr std::string_view show_text = R"(SYNOPSIS
    zol-logbook show [--all] FILE

DESCRIPTION
    Prints what passed in the recording FILE, one line each, with the time in
    seconds: what the tool wrote and asked, what the unit answered, and what
    happened to the port. A write has the parameter's name, its value before,
    where an image or an earlier write tells it, and its new value with the
    unit.

    The end counts the requests whose answer came in time, came only after the
    request had been repeated or given up (late), or did not come (lost), and
    the answers that had a wrong echo or were too short (garbled).

OPTIONS
    --all
        Also the status and the live data, which the tool asks for three times
        a second.
)";

constexpr std::string_view csv_text = R"(SYNOPSIS
    zol-logbook csv [--separator comma | semicolon | tab] FILE

DESCRIPTION
    Prints a table of the recording FILE on standard output: one row for each
    status telegram, each telegram of live data and each write, with the time
    in seconds since the recording began. The header names the units. Columns
    that a row has no value for are empty.

    Rows and quotes are those of RFC 4180, in UTF-8 with a byte-order mark.

OPTIONS
    --separator NAME
        comma, the default: with decimal points, as RFC 4180 has it.
        semicolon: with decimal commas, for a spreadsheet that is set to a
        language which writes numbers with a comma. tab: with decimal points.

EXAMPLES
    zol-logbook csv 2026-11-22-1.zlog > drive.csv
    zol-logbook csv --separator semicolon 2026-11-22-1.zlog > Fahrt.csv
)";

constexpr std::string_view compare_text = R"(SYNOPSIS
    zol-logbook compare A B

DESCRIPTION
    Shows which of the unit's parameters differ between A and B, in the groups
    in which they are set, with both values, the difference and the unit.
    Values are as the tool shows them: a gain of 1250 has the unit 1/1000.

    A and B are recordings, files that "backup" made, or the tool's parameter
    file log/setting.txt. Each time the tool reads the unit's parameters,
    their image passes in the recording; FILE#1 is the first one, FILE#2 the
    second, and FILE alone the last one.

    The tool's parameter file names its values by their place in the image of
    a unit of family 0. For a unit of another family compare recordings.

EXAMPLES
    What a session has changed, if the tool was started again at its end:
        zol-logbook compare 2026-11-22-1.zlog#1 2026-11-22-1.zlog
    Two cars:
        zol-logbook compare AB-123/2026-11-22-1.zlog CD-456/2026-11-23-1.zlog
)";

constexpr std::string_view backup_text = R"(SYNOPSIS
    zol-logbook backup [--to PATH] FILE

DESCRIPTION
    Makes a file of each parameter image that passed in the recording FILE,
    named after it: 2026-11-22-1-image-1.zlog and so on. Such a file is a
    recording with the image and the unit's version alone, and has the car and
    the date. A file that is there already is never replaced.

OPTIONS
    --to PATH
        The folder for the files. Without it, that of the recording.
)";

struct Text {
    std::string_view command, text;
};
constexpr Text texts[] = {
    {"", program_text},        {"record", record_text}, {"release", release_text},
    {"check", check_text},     {"show", show_text},     {"csv", csv_text},
    {"compare", compare_text}, {"backup", backup_text},
};

} // namespace

std::string_view help_text(std::string_view command) {
    for (const Text& one : texts)
        if (one.command == command) return one.text;
    return program_text;
}

} // namespace zol::logbook

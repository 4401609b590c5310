// zol-logbook check: what is in a recording, and whether it is whole.
#include "logbook/commands.h"
#include "logbook/recording_file.h"

#include <cstdio>

namespace zol::logbook {

int check_command(Words words) {
    if (words.size() != 1) {
        complain("check takes one file, as in: zol-logbook check 2026-11-22-1.zlog");
        return wrong_words;
    }
    RecordingHeader header;
    std::size_t requested = 0, replied = 0, notes = 0;
    std::int64_t last_us = 0;
    bool ended = false;
    const ReadResult result = read_recording(words[0], header, [&](const Event& event) {
        last_us = event.at_us;
        ended = event.kind == EventKind::note && event.text == "end";
        if (event.kind == EventKind::request) requested += event.bytes.size();
        if (event.kind == EventKind::reply) replied += event.bytes.size();
        if (event.kind == EventKind::note) ++notes;
    });
    if (result.events > 0 || result.wrong.empty())
        std::printf("car %s, started %s, %s on %s, written by %s\n"
                    "%zu events in %.1f s: %zu bytes to the unit, %zu bytes from it, %zu notes\n",
                    header.car.c_str(), header.started.c_str(), header.port.c_str(),
                    header.device.c_str(), header.program.c_str(), result.events,
                    static_cast<double>(last_us) / 1e6, requested, replied, notes);
    if (result.torn) std::printf("The last line is not whole and was left out.\n");
    if (result.wrong.empty() && !ended) std::printf("It has no end: it was interrupted.\n");
    if (result.wrong.empty()) return done;
    complain(result.wrong);
    return failed;
}

} // namespace zol::logbook

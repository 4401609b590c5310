// zol-logbook show: a recording in words.
#include "logbook/commands.h"
#include "logbook/decoder.h"
#include "logbook/recording_file.h"
#include "logbook/words.h"

#include <cstdio>
#include <string_view>

namespace zol::logbook {
namespace {

// The polling's answers come three times a second.
bool is_polled(int command) {
    return command == static_cast<int>(link::Command::status) ||
           command == static_cast<int>(link::Command::eobd_live);
}

void show_line(std::int64_t at_us, const char* who, const std::string& what) {
    std::printf("%s  %s  %s\n", time_text(at_us).c_str(), who, what.c_str());
}

void show(const Decoded& decoded, bool all) {
    const int command = decoded.request.command;
    if (decoded.kind == Decoded::Kind::write)
        show_line(decoded.at_us, "tool", write_text(decoded));
    else if (is_polled(command) && !all)
        return;
    else if (decoded.kind == Decoded::Kind::command)
        show_line(decoded.at_us, "tool", command_name(command));
    else
        show_line(decoded.at_us, "unit", reply_text(decoded));
}

void show_counts(const Decoder& decoder) {
    const DecoderCounts& counts = decoder.counts();
    std::printf("\nunit version %s\n"
                "%zu requests: %zu answered in time, %zu late, %zu lost; %zu answers garbled\n"
                "%zu writes; %zu bytes from the tool that are no request\n",
                version_text(decoder.unit().version).c_str(), counts.requests, counts.answered,
                counts.late, counts.lost, counts.garbled, counts.writes, decoder.stray_bytes());
}

} // namespace

int show_command(Words words) {
    const bool all = words.size() == 2 && std::string_view(words[0]) == "--all";
    if (words.size() != (all ? 2u : 1u)) {
        complain("show takes one file, as in: zol-logbook show 2026-11-22-1.zlog");
        return wrong_words;
    }
    RecordingHeader header;
    bool began = false;
    Decoder decoder([&](const Decoded& decoded) { show(decoded, all); });
    const ReadResult result = read_recording(words.back(), header, [&](const Event& event) {
        if (!began)
            std::printf("car %s, started %s, %s on %s\n\n", header.car.c_str(),
                        header.started.c_str(), header.port.c_str(), header.device.c_str());
        began = true;
        decoder.push(event);
        if (event.kind == EventKind::note) show_line(event.at_us, "port", event.text);
    });
    decoder.finish();
    if (result.wrong.empty() || began) show_counts(decoder);
    if (result.wrong.empty()) return done;
    complain(result.wrong);
    return failed;
}

} // namespace zol::logbook

// Random text as a recording, for both readers, the decoder and the reader of the parameter file.
// Holds that the readers agree and that each request is counted once.
#include "logbook/backup.h"
#include "logbook/decoder.h"
#include "logbook/words.h"
#include "simulator/replay.h"
#include "tests/fuzz/input.h"

#include <string>
#include <vector>

namespace zol::fuzz {
namespace {

std::string written_again(const logbook::RecordingHeader& header,
                          const std::vector<logbook::Event>& events) {
    std::string text = logbook::header_text(header);
    for (const logbook::Event& event : events)
        text += logbook::event_line(event);
    return text;
}

// What was asked for is known to the simulated unit, and answered without end.
void replay(std::string_view text, std::size_t requests) {
    sim::Recording recording = sim::read_recording(text, "FILE");
    require(recording.wrong.empty() == (requests > 0), "both readers agree on a right recording");
    sim::Replay unit;
    bool known = true;
    unit.set_sink([&](const sim::Frame&, bool recorded) { known = known && recorded; });
    unit.play(std::move(recording));
    logbook::RecordingHeader header;
    logbook::read_recording_text(text, header, [&](const logbook::Event& event) {
        if (event.kind == logbook::EventKind::request) unit.receive(event.bytes, event.at_us);
        unit.take(event.at_us);
    });
    require(known, "a recorded request is known");
}

void read_all(std::string_view text) {
    logbook::RecordingHeader header;
    std::vector<logbook::Event> events;
    std::size_t requests = 0;
    logbook::Decoder decoder([&](const logbook::Decoded& decoded) {
        if (decoded.kind == logbook::Decoded::Kind::reply) {
            logbook::reply_text(decoded);
            return;
        }
        ++requests;
        require(!logbook::write_text(decoded).empty(), "a write has a text");
    });
    const auto result =
        logbook::read_recording_text(text, header, [&](const logbook::Event& event) {
            require(events.empty() || event.at_us >= events.back().at_us, "time never decreases");
            events.push_back(event);
            decoder.push(event);
        });
    decoder.finish();
    const logbook::DecoderCounts& counts = decoder.counts();
    require(counts.answered + counts.late + counts.lost <= counts.requests,
            "a request is answered, late or lost once");
    require(result.events == events.size(), "the events are counted");
    const std::string again = written_again(header, events);
    logbook::RecordingHeader second;
    std::size_t read_again = 0;
    const auto repeated =
        logbook::read_recording_text(again, second, [&](const logbook::Event& event) {
            require(event.bytes == events[read_again].bytes, "an event is read as it was written");
            ++read_again;
        });
    require(repeated.wrong.empty() && read_again == events.size(), "what is written can be read");
    if (result.wrong.empty()) replay(text, requests);
    logbook::values_of_parameter_file(text);
}

} // namespace

// The first byte chooses whether a correct header is put before the text.
void run_input(Input input) {
    const bool with_header = input.byte() != '-';
    const std::string header = with_header ? "zol-logbook recording 1\n\n" : "";
    read_all(header + std::string(input.text()));
}

} // namespace zol::fuzz

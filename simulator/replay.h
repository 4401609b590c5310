// A recorded unit: answers each request as the unit in a recording did, with the same bytes after
// the same delays; after the last recorded answer to a request, the first one follows again. It
// knows no car; what was not recorded gets no answer and is reported.
//
// docs/recording-format.md describes the recording. It is read here with code of the simulator's
// own, as everything that the simulator knows.
#pragma once

#include "simulator/line.h"
#include "simulator/wire.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace sim {

// What came back after one request, up to the next one.
struct RecordedAnswer {
    struct Piece {
        std::int64_t delay_us; // after the request's last byte
        std::vector<std::uint8_t> bytes;
    };
    std::vector<Piece> pieces; // none if the unit said nothing
};

struct Recording {
    // Command, number and value of a request; the last two are 0 where it has none.
    using Key = std::tuple<int, int, int>;
    std::map<Key, std::vector<RecordedAnswer>> answers; // in the order of the recording
    std::string wrong; // "FILE:9: ...": the recording is then not to be used
};

// Leaves out a last line without an end, as a power cut leaves it. `file` only names it in the
// complaint.
Recording read_recording(std::string_view text, std::string_view file);
// The same from a file; one that cannot be read is a complaint, too.
Recording load_recording(const std::string& path);

class Replay final : public Line {
  public:
    void play(Recording recording) { recording_ = std::move(recording); }

    void receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) override;
    std::vector<std::uint8_t> take(std::int64_t now_us) override;
    std::optional<std::int64_t> next_byte_at_us() const override;

    // Lets go of what is on its way, as when the cable is pulled.
    void clear();
    // Gets each request, and whether the recording has it.
    void set_sink(std::function<void(const Frame& request, bool recorded)> sink) {
        sink_ = std::move(sink);
    }

  private:
    struct Coming {
        std::int64_t at_us;
        std::vector<std::uint8_t> bytes;
    };
    void answer(const Frame& request);

    Recording recording_;
    std::map<Recording::Key, std::size_t> next_; // answer of each request
    FrameReader reader_;
    std::deque<Coming> coming_;
    std::function<void(const Frame&, bool)> sink_;
};

} // namespace sim

#include "simulator/replay.h"

#include "simulator/words.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace sim {
namespace {

constexpr std::string_view first_line = "zol-logbook recording 1";
constexpr std::size_t largest_file = std::size_t{256} << 20;
constexpr std::size_t most_bytes_of_a_line = 1024;

Recording::Key key_of(const Frame& request) {
    return {request.command, request.number, request.value};
}

std::optional<std::vector<std::uint8_t>> read_hex(std::string_view digits) {
    constexpr std::string_view all = "0123456789abcdef";
    if (digits.empty() || digits.size() % 2 != 0 || digits.size() / 2 > most_bytes_of_a_line)
        return std::nullopt;
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const auto high = all.find(digits[i]), low = all.find(digits[i + 1]);
        if (high == all.npos || low == all.npos) return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return bytes;
}

// Puts the events of a recording together.
class Builder {
  public:
    explicit Builder(Recording& recording) : recording_(recording) {}

    // What is wrong with the line; empty if nothing is.
    std::string take(std::string_view line) {
        const auto words = split_words(line);
        const auto at_us =
            words.empty() ? std::nullopt : number_in<std::int64_t>(words[0], last_us_, INT64_MAX);
        if (!at_us)
            return "a line begins with a time in microseconds, not before that of the line above";
        last_us_ = *at_us;
        if (words.size() > 1 && words[1] == "!") return {};
        const auto bytes = words.size() == 3 ? read_hex(words[2]) : std::nullopt;
        if (!bytes || (words[1] != ">" && words[1] != "<"))
            return "the time is followed by > or < and bytes of two digits each, or by ! and a "
                   "note";
        if (words[1] == ">")
            request(*bytes);
        else if (answer_)
            answer_->pieces.push_back({last_us_ - asked_us_, *bytes});
        return {};
    }

  private:
    void request(const std::vector<std::uint8_t>& bytes) {
        for (const std::uint8_t byte : bytes) {
            const auto frame = reader_.push(byte, last_us_);
            if (!frame) continue;
            auto& answers = recording_.answers[key_of(*frame)];
            answer_ = &answers.emplace_back();
            asked_us_ = last_us_;
        }
    }

    Recording& recording_;
    FrameReader reader_;
    RecordedAnswer* answer_ = nullptr; // of the last request
    std::int64_t last_us_ = 0, asked_us_ = 0;
};

} // namespace

Recording read_recording(std::string_view text, std::string_view file) {
    Recording recording;
    Builder builder(recording);
    int number = 0;
    bool in_header = true;
    for (auto end = text.find('\n'); end != text.npos; end = text.find('\n')) {
        ++number;
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        std::string wrong;
        if (number == 1 && line != first_line)
            wrong = "the first line is \"" + std::string(first_line) +
                    "\"; name a recording of zol-logbook";
        else if (!in_header)
            wrong = builder.take(line);
        if (line.empty()) in_header = false;
        if (wrong.empty()) continue;
        recording.wrong = std::string(file) + ":" + std::to_string(number) + ": " + wrong + ".";
        return recording;
    }
    if (in_header)
        recording.wrong = std::string(file) + " is no recording of zol-logbook: no empty line ends "
                                              "its header.";
    else if (recording.answers.empty())
        recording.wrong = std::string(file) + " has no request in it; name another recording.";
    return recording;
}

Recording load_recording(const std::string& path) {
    // Opening a pipe that nobody writes to would wait for ever.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat found {};
    if (descriptor >= 0 && ::fstat(descriptor, &found) == 0 && !S_ISREG(found.st_mode)) {
        ::close(descriptor);
        Recording none;
        none.wrong = path + " is no regular file; name a recording of zol-logbook.";
        return none;
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        descriptor < 0 ? nullptr : ::fdopen(descriptor, "rb"), &std::fclose);
    std::string text;
    std::vector<char> buffer(65536);
    while (file && text.size() <= largest_file) {
        const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), file.get());
        if (got == 0) break;
        text.append(buffer.data(), got);
    }
    Recording recording;
    if (!file || std::ferror(file.get()) != 0)
        recording.wrong = path + " cannot be read: " + std::strerror(errno) +
                          "; name a recording of zol-logbook.";
    else if (text.size() > largest_file)
        recording.wrong = path + " has more than 256 MiB; name a shorter recording.";
    else
        return read_recording(text, path);
    return recording;
}

void Replay::receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) {
    for (const std::uint8_t byte : bytes)
        if (const auto request = reader_.push(byte, now_us)) answer(*request);
}

void Replay::answer(const Frame& request) {
    const auto found = recording_.answers.find(key_of(request));
    const bool recorded = found != recording_.answers.end();
    if (sink_) sink_(request, recorded);
    if (!recorded) return;
    std::size_t& next = next_[found->first];
    const RecordedAnswer& answer = found->second[next];
    next = (next + 1) % found->second.size();
    for (const RecordedAnswer::Piece& piece : answer.pieces) {
        std::int64_t at_us = request.at_us + piece.delay_us;
        // Bytes keep their order: a request that came sooner than in the recording waits.
        if (!coming_.empty()) at_us = std::max(at_us, coming_.back().at_us);
        coming_.push_back({at_us, piece.bytes});
    }
}

std::vector<std::uint8_t> Replay::take(std::int64_t now_us) {
    std::vector<std::uint8_t> out;
    while (!coming_.empty() && coming_.front().at_us <= now_us) {
        out.insert(out.end(), coming_.front().bytes.begin(), coming_.front().bytes.end());
        coming_.pop_front();
    }
    return out;
}

std::optional<std::int64_t> Replay::next_byte_at_us() const {
    if (coming_.empty()) return std::nullopt;
    return coming_.front().at_us;
}

void Replay::clear() {
    coming_.clear();
    reader_.clear();
}

} // namespace sim

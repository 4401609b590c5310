#include "logbook/decoder.h"

#include "link/telegram_positions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zol::logbook {
namespace {

using link::Command;

constexpr std::int64_t request_gap_us = 100'000;
// An answer ends with a pause of this length. At a new request a shorter one is enough: USB
// adapters hand bytes over every 16 ms, and the unit takes longer than that to answer.
constexpr std::int64_t reply_gap_us = 100'000, reply_gap_after_request_us = 20'000;
constexpr std::int64_t longest_answer_us = 1'000'000;
constexpr std::size_t most_open = 64;
constexpr std::size_t longest_reply = 4096; // the image has 200 bytes

struct Answer {
    Command command;
    std::size_t shortest;
};
constexpr std::array<Answer, 7> answers = {{{Command::read_image, 7},
                                            {Command::status, link::shortest_telegram},
                                            {Command::reset, 5},
                                            {Command::presence, 1},
                                            {Command::version, 11},
                                            {Command::eobd_faults, 19},
                                            {Command::eobd_live, link::no_live_data_length}}};

const Answer* answer_to(int command) {
    const auto found = std::find_if(answers.begin(), answers.end(), [&](const Answer& one) {
        return static_cast<int>(one.command) == command;
    });
    return found == answers.end() ? nullptr : &*found;
}

bool begins_like(const Bytes& held, const Bytes& frame, std::size_t fixed) {
    const auto length = static_cast<std::ptrdiff_t>(std::min(held.size(), fixed));
    return std::equal(held.begin(), held.begin() + length, frame.begin());
}

// The frames differ from each other in these only: a command in the last byte, a write in the last
// four.
bool begins_command(const Bytes& held) {
    return begins_like(held, link::command_frame(Command::status), 4) &&
           (held.size() < 5 || held[4] != static_cast<std::uint8_t>(Command::write_parameter));
}
bool begins_write(const Bytes& held) { return begins_like(held, *link::write_frame(0, 0), 5); }

// Whether the head is that of a request, with the length that the answer has. No answer needs such
// a head; one that has it is known to be whole, where the next one follows without a pause.
bool names_its_length(const Bytes& reply) {
    return reply.size() >= 5 && begins_like(reply, link::command_frame(Command::status), 2) &&
           reply[2] * 256u + reply[3] == reply.size();
}

} // namespace

bool wants_answer(int command) { return answer_to(command) != nullptr; }

std::optional<Request> RequestReader::push(std::uint8_t byte, std::int64_t at_us) {
    if (at_us - last_us_ > request_gap_us) {
        stray_bytes_ += held_.size();
        held_.clear();
    }
    last_us_ = at_us;
    held_.push_back(byte);
    while (!begins_command(held_) && !begins_write(held_)) {
        held_.erase(held_.begin());
        ++stray_bytes_;
    }
    const bool write = begins_write(held_);
    if (held_.size() < (write ? 9u : 5u)) return std::nullopt;
    const link::Reply frame(std::exchange(held_, {}));
    Request request{*frame.byte(5)};
    if (write) {
        request.number = *frame.word(6);
        request.value = *frame.word(8);
    }
    return request;
}

void Decoder::push(const Event& event) {
    last_us_ = event.at_us;
    const bool requested = requested_since_ || event.kind == EventKind::request;
    const std::int64_t gap = requested ? reply_gap_after_request_us : reply_gap_us;
    const bool next_may_follow = requested_since_ && names_its_length(reply_);
    if (!reply_.empty() &&
        (event.kind == EventKind::note || next_may_follow || event.at_us - reply_last_us_ > gap))
        end_reply();
    if (event.kind == EventKind::reply) take_reply_bytes(event);
    if (event.kind != EventKind::request) return;
    requested_since_ = true;
    for (const std::uint8_t byte : event.bytes)
        if (const auto request = requests_.push(byte, event.at_us))
            take_request(*request, event.at_us);
}

void Decoder::take_request(const Request& request, std::int64_t at_us) {
    Decoded decoded;
    decoded.at_us = at_us;
    decoded.request = request;
    if (request.command == static_cast<int>(Command::write_parameter)) {
        decoded.kind = Decoded::Kind::write;
        ++counts_.writes;
        int& value = unit_.values.try_emplace(request.number, -1).first->second;
        if (value >= 0) decoded.old_value = value;
        value = request.value;
    } else if (wants_answer(request.command)) {
        ++counts_.requests;
        open_.push_back({request, at_us});
        if (open_.size() > most_open) lose(1);
    }
    sink_(decoded);
}

void Decoder::take_reply_bytes(const Event& event) {
    if (reply_.empty()) {
        reply_began_us_ = event.at_us;
        requested_since_ = false;
    }
    reply_.insert(reply_.end(), event.bytes.begin(), event.bytes.end());
    reply_last_us_ = event.at_us;
    if (reply_.size() > longest_reply) end_reply();
}

void Decoder::lose(std::size_t count) {
    for (; count > 0; --count) {
        ++lost_[open_.front().request.command];
        ++counts_.lost;
        open_.pop_front();
    }
}

// The youngest open request of this command is answered, and all that were sent before it are lost.
// If none is open, the answer to a lost one has come late.
bool Decoder::belongs_to_a_request(int command) {
    const auto found = std::find_if(open_.rbegin(), open_.rend(), [&](const Open& one) {
        return one.request.command == command && one.at_us <= reply_began_us_;
    });
    if (found != open_.rend()) {
        lose(static_cast<std::size_t>(open_.rend() - found) - 1);
        open_.pop_front();
        ++counts_.answered;
        return true;
    }
    const auto lost = lost_.find(command);
    if (lost == lost_.end() || lost->second == 0) return false;
    --lost->second;
    --counts_.lost;
    ++counts_.late;
    return true;
}

void Decoder::end_reply() {
    Decoded decoded;
    decoded.kind = Decoded::Kind::reply;
    decoded.at_us = reply_began_us_;
    decoded.reply = link::Reply(std::exchange(reply_, {}));
    const int presence = static_cast<int>(Command::presence);
    int command = decoded.reply.byte(5).value_or(presence);
    // Any byte answers the presence test, whatever it says.
    const bool tested = !open_.empty() && open_.back().request.command == presence;
    if (!wants_answer(command) && tested) command = presence;
    const Answer* answer = answer_to(command);
    const bool acknowledges = command == static_cast<int>(Command::write_parameter);
    if (!answer || decoded.reply.length() < answer->shortest || !belongs_to_a_request(command)) {
        if (!acknowledges) ++counts_.garbled;
        return;
    }
    decoded.request.command = command;
    if (command == static_cast<int>(Command::version)) unit_.version = version_of(decoded.reply);
    if (command == static_cast<int>(Command::read_image)) {
        const auto family = unit_.version ? std::optional(unit_.version->family) : std::nullopt;
        for (const auto& [number, value] : values_of_image(decoded.reply, family))
            unit_.values[number] = value;
    }
    sink_(decoded);
}

void Decoder::finish() {
    if (!reply_.empty()) end_reply();
    // Those whose answer may still have been on its way are neither answered nor lost.
    while (!open_.empty() && last_us_ - open_.front().at_us > longest_answer_us)
        lose(1);
}

} // namespace zol::logbook

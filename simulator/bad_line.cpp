#include "simulator/bad_line.h"

#include "simulator/words.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace sim {
namespace {

struct Chance {
    std::string_view name;
    double BadLineOptions::*value;
};
constexpr std::array<Chance, 9> chances = {{{"drop", &BadLineOptions::drop},
                                            {"double", &BadLineOptions::doubled},
                                            {"flip", &BadLineOptions::flip},
                                            {"insert", &BadLineOptions::insert},
                                            {"truncate", &BadLineOptions::truncate},
                                            {"delay", &BadLineOptions::delay},
                                            {"split", &BadLineOptions::split},
                                            {"join", &BadLineOptions::join},
                                            {"unplug", &BadLineOptions::unplug}}};

// The longest time of a probability switch, in ms.
struct Longest {
    std::string_view name;
    std::string_view of;
    int BadLineOptions::*value;
};
constexpr std::array<Longest, 2> longests = {{{"delay-ms", "delay", &BadLineOptions::delay_ms},
                                              {"unplug-ms", "unplug", &BadLineOptions::unplug_ms}}};

struct Flag {
    std::string_view name;
    bool BadLineOptions::*value;
};
constexpr std::array<Flag, 4> flags = {{{"silence", &BadLineOptions::silence},
                                        {"echo", &BadLineOptions::echo},
                                        {"babble", &BadLineOptions::babble},
                                        {"denied", &BadLineOptions::denied}}};

// Limits the bytes that are kept for a tool that does not read.
constexpr std::size_t most_pending = 65536;

} // namespace

BadLine::BadLine(Line& inner, const BadLineOptions& options)
    : inner_(inner), options_(options), chance_(options.seed) {}

void BadLine::set_options(const BadLineOptions& options) {
    if (options.seed != options_.seed) chance_ = Random(options.seed);
    if (!options.babble) babble_at_us_.reset();
    options_ = options;
}

void BadLine::pass(std::uint8_t byte, std::int64_t now_us, Direction& direction,
                   std::vector<std::uint8_t>& out) {
    if (plugged(now_us) && chance_.chance(options_.unplug)) {
        out_until_us_ = now_us + 1000LL * chance_.between(1, std::max(1, options_.unplug_ms));
        const auto on_its_way = [&](const Pending& held) { return held.at_us > now_us; };
        pending_.erase(std::find_if(pending_.begin(), pending_.end(), on_its_way), pending_.end());
    }
    if (!plugged(now_us)) {
        ++damaged_;
        return;
    }
    if (now_us - direction.last_us > pause_us) direction.cutting = false;
    direction.last_us = now_us;
    direction.cutting = direction.cutting || chance_.chance(options_.truncate);
    if (direction.cutting || chance_.chance(options_.drop)) {
        ++damaged_;
        return;
    }
    if (chance_.chance(options_.insert)) {
        ++damaged_;
        out.push_back(static_cast<std::uint8_t>(chance_.next() >> 8));
    }
    if (chance_.chance(options_.flip)) {
        ++damaged_;
        byte = static_cast<std::uint8_t>(byte ^ (1 << chance_.between(0, 7)));
    }
    out.push_back(byte);
    if (chance_.chance(options_.doubled)) {
        ++damaged_;
        out.push_back(byte);
    }
}

// When the next answer begins, the bytes held by `join` are released together with its first byte.
void BadLine::release_joined(std::int64_t at_us) {
    if (at_us - last_arrival_us_ <= pause_us || at_us >= joined_until_us_) return;
    for (Pending& held : pending_)
        if (held.at_us == joined_until_us_) held.at_us = at_us;
    joined_until_us_ = INT64_MIN;
}

void BadLine::enqueue(std::uint8_t byte, std::int64_t at_us) {
    release_joined(at_us);
    last_arrival_us_ = at_us;
    if (pending_.size() >= most_pending) return;
    if (chance_.chance(options_.delay)) {
        ++damaged_;
        at_us += 1000LL * chance_.between(1, std::max(1, options_.delay_ms));
    }
    if (chance_.chance(options_.split)) {
        ++damaged_;
        at_us += 1000LL * chance_.between(least_split_ms, most_split_ms);
    }
    if (at_us >= joined_until_us_ && chance_.chance(options_.join)) {
        ++damaged_;
        at_us = joined_until_us_ = at_us + join_us;
    }
    // take() only looks at the front of the queue, so a delayed byte also delays the ones after it.
    pending_.push_back({at_us, byte});
}

void BadLine::receive(std::span<const std::uint8_t> bytes, std::int64_t now_us) {
    collect(now_us);
    std::vector<std::uint8_t> passed;
    for (const std::uint8_t byte : bytes)
        pass(byte, now_us, to_unit_, passed);
    if (options_.echo && plugged(now_us))
        for (const std::uint8_t byte : bytes)
            enqueue(byte, now_us);
    inner_.receive(passed, now_us);
}

void BadLine::babble(std::int64_t at_us) {
    if (plugged(at_us)) {
        enqueue(static_cast<std::uint8_t>(chance_.next() >> 8), at_us);
        ++damaged_;
    }
    babble_at_us_ = at_us + chance_.between(least_babble_us, most_babble_us);
}

void BadLine::collect(std::int64_t now_us) {
    // Each byte is processed at its own time, so a run does not depend on how often this function
    // is called.
    std::vector<std::uint8_t> passed;
    while (true) {
        const auto inner_at = inner_.next_byte_at_us();
        if (options_.babble && !babble_at_us_)
            babble_at_us_ = now_us + chance_.between(least_babble_us, most_babble_us);
        if (babble_at_us_ && *babble_at_us_ <= now_us &&
            (!inner_at || *babble_at_us_ < *inner_at)) {
            babble(*babble_at_us_);
            continue;
        }
        if (!inner_at || *inner_at > now_us) break;
        passed.clear();
        for (const std::uint8_t byte : inner_.take(*inner_at))
            pass(byte, *inner_at, to_tool_, passed);
        for (const std::uint8_t byte : passed)
            if (!options_.silence) enqueue(byte, *inner_at);
    }
}

std::vector<std::uint8_t> BadLine::take(std::int64_t now_us) {
    collect(now_us);
    std::vector<std::uint8_t> out =
        inner_.take(now_us); // returns nothing after collect(), but lets the unit's time advance
    out.clear();
    while (!pending_.empty() && pending_.front().at_us <= now_us) {
        out.push_back(pending_.front().byte);
        pending_.pop_front();
    }
    return out;
}

std::optional<std::int64_t> BadLine::next_byte_at_us() const {
    std::optional<std::int64_t> next = inner_.next_byte_at_us();
    const auto sooner = [&next](std::int64_t at_us) {
        next = std::min(next.value_or(at_us), at_us);
    };
    if (!pending_.empty()) sooner(pending_.front().at_us);
    if (babble_at_us_) sooner(*babble_at_us_);
    return next;
}

std::string set_switch(BadLineOptions& options, std::string_view name, std::string_view value) {
    for (const Chance& chance : chances) {
        if (chance.name != name) continue;
        const auto number = number_in(value, 0.0, 1.0);
        if (!number) return std::string(name) + " takes a probability from 0 to 1, such as 0.01";
        options.*chance.value = *number;
        return {};
    }
    for (const Flag& flag : flags) {
        if (flag.name != name) continue;
        if (value != "on" && value != "off") return std::string(name) + " takes on or off";
        options.*flag.value = value == "on";
        return {};
    }
    for (const Longest& longest : longests) {
        if (longest.name != name) continue;
        const auto number = number_in(value, 1, 60000);
        if (!number) return std::string(name) + " takes a number from 1 to 60000";
        options.*longest.value = *number;
        return {};
    }
    if (name == "seed") {
        const auto number = number_in<std::uint32_t>(value, 0, UINT32_MAX);
        if (!number) return "seed takes a number from 0 to 4294967295";
        options.seed = *number;
        return {};
    }
    return "there is no switch " + quoted(name) +
           "; there are drop, double, flip, insert, truncate, delay, delay-ms, split, join, "
           "unplug, unplug-ms, silence, echo, babble, denied and seed";
}

std::string describe(const BadLineOptions& options) {
    std::string all = "seed " + std::to_string(options.seed);
    const std::size_t bare = all.size();
    char number[32];
    for (const Chance& chance : chances) {
        if (options.*chance.value <= 0) continue;
        std::snprintf(number, sizeof number, " %g", options.*chance.value);
        all += ", " + std::string(chance.name) + number;
        for (const Longest& longest : longests)
            if (longest.of == chance.name)
                all += " of up to " + std::to_string(options.*longest.value) + " ms";
    }
    for (const Flag& flag : flags)
        if (options.*flag.value) all += ", " + std::string(flag.name);
    return all.size() == bare ? all + ", clean" : all;
}

} // namespace sim

#include "tests/soak/disturbances.h"

#include <cmath>

namespace zol::soak {
namespace {

constexpr std::int64_t s = 1'000'000;

} // namespace

sim::Options some_unit(std::uint32_t seed) {
    sim::Random dice(seed);
    // At and near the limits of the version checks.
    static constexpr int versions[] = {0, 1, 2, 5, 6, 7, 8, 255};
    static constexpr int revisions[] = {0, 23, 24, 25, 34, 35, 70, 71, 255};
    return {.family = static_cast<int>(seed % 5),
            .version = versions[dice.next() % std::size(versions)],
            .revision = revisions[dice.next() % std::size(revisions)],
            .seed = seed,
            .warm = dice.chance(0.6),
            .protocol = dice.between(2, 10)};
}

void Disturbances::change_line(Session& session) {
    using O = sim::BadLineOptions;
    static constexpr double O::*chances[] = {&O::drop,   &O::doubled,  &O::flip,
                                             &O::insert, &O::truncate, &O::delay,
                                             &O::split,  &O::join,     &O::unplug};
    O options;
    options.seed = dice_.next();
    options.delay_ms = dice_.between(5, 2000);
    options.unplug_ms = dice_.between(100, 60'000);
    const int faults = dice_.chance(0.45) ? 0 : dice_.between(1, 3);
    for (int fault = 0; fault < faults; ++fault)
        options.*chances[dice_.next() % std::size(chances)] = std::pow(10, -4 + 3 * dice_.unit());
    if (faults > 0) {
        options.silence = dice_.chance(0.15);
        options.echo = dice_.chance(0.1);
        options.babble = dice_.chance(0.15);
        options.denied = dice_.chance(0.1);
    }
    session.the_port().open_error.reset();
    if (faults > 0 && dice_.chance(0.08)) session.the_port().open_error = "Device or resource busy";
    session.line->set_options(options);
    session.log.note("line: " + describe(options) +
                     (session.the_port().open_error ? ", busy for whoever opens it" : ""));
    line_until_us_ = session.now_us() + s * dice_.between(5, 240);
}

void Disturbances::change_car(Session& session) {
    static const char* const commands[] = {
        "throttle 0",     "throttle 40",     "throttle 90",    "coolant 20",    "coolant 85",
        "coolant 60",     "engine off",      "engine on",      "gas on",        "gas off",
        "tank 5",         "tank 80",         "sender 2",       "pressure 600",  "pressure auto",
        "mixture 70",     "mixture 150",     "mixture 100",    "lambda silent", "lambda normal",
        "fault add 301",  "fault add 1234",  "fault clear",    "diagnosis off", "diagnosis on",
        "protocol 4",     "battery 9.5",     "battery auto",   "silence on",    "silence off",
        "acknowledge on", "acknowledge off", "garble 5",       "late 300",      "late 0",
        "length 20",      "length 28",       "length 4",       "wrong-echo 9",  "telegram 27",
        "telegram 29",    "reset-answer 5",  "reset-answer 7", "unplug",        "plug",
        "restart"};
    session.car(commands[dice_.next() % std::size(commands)]);
    // A unit that cannot answer must not stay so.
    if (dice_.chance(0.5))
        for (const char* good : {"silence off", "plug", "late 0"})
            session.car(good);
    car_until_us_ = session.now_us() + s * dice_.between(10, 300);
}

void Disturbances::change(Session& session) {
    if (session.now_us() >= line_until_us_) change_line(session);
    if (session.now_us() >= car_until_us_) change_car(session);
}

void Disturbances::end(Session& session) {
    session.line->set_options({});
    session.the_port().open_error.reset();
    session.the_unit().quirks() = {};
    for (const char* good : {"plug", "engine on", "coolant 85", "throttle 0", "pressure auto",
                             "tank 60", "diagnosis on", "restart"})
        session.car(good);
}

} // namespace zol::soak

#include "tests/soak/run.h"

#include "tests/soak/fitter.h"
#include "tests/soak/recovery.h"
#include "tests/soak/weather.h"

#include <algorithm>

namespace zol::soak {
namespace {

constexpr std::int64_t s = 1'000'000;

// Busy hours and quiet ones: bursts of acts, and stretches in which he only watches.
void work_on(Desk& desk, Fitter& fitter, Weather& weather, sim::Random& dice,
             std::int64_t until_us) {
    while (!desk.ended() && desk.now_us() < until_us) {
        const std::int64_t burst_until_us = desk.now_us() + s * dice.between(20, 300);
        const int longest_pause_ms = dice.chance(0.3) ? 300 : 4000;
        while (!desk.ended() && desk.now_us() < std::min(burst_until_us, until_us)) {
            weather.blow(desk);
            fitter.act(desk);
            desk.pass(dice.between(1, longest_pause_ms));
        }
        const std::int64_t quiet_until_us = desk.now_us() + s * dice.between(10, 900);
        while (!desk.ended() && desk.now_us() < std::min(quiet_until_us, until_us)) {
            weather.blow(desk);
            desk.pass(10'000);
        }
    }
}

} // namespace

RunResult run(const RunOptions& options) {
    sim::Random dice(options.seed ^ 0x50ac0000u);
    Log log(options.keep_all);
    Fitter fitter(dice.next());
    Weather weather(dice.next());
    const sim::Options unit = some_unit(options.seed);
    log.note("seed " + std::to_string(options.seed) + ", unit " + std::to_string(unit.family) +
             "." + std::to_string(unit.version) + "." + std::to_string(unit.revision));
    Carried carried{std::make_unique<sim::ControlUnit>(unit), "", 0};
    const auto until_us = static_cast<std::int64_t>(options.hours * 3600e6);
    RunResult result;
    while (result.recovery.empty()) {
        ++result.starts;
        Desk desk(log, std::move(carried), dice.next());
        work_on(desk, fitter, weather, dice, until_us);
        if (desk.now_us() >= until_us || !desk.ended()) result.recovery = recover(desk);
        result.deepest_wait = std::max(result.deepest_wait, desk.checks.deepest_wait);
        carried = desk.leave();
        carried.now_us += s * dice.between(1, 30);
    }
    log.note(result.recovery);
    result.findings = log.findings();
    result.transcript = log.lines();
    result.digest = log.digest();
    result.hours = static_cast<double>(carried.now_us) / 3600e6;
    result.acts = fitter.acts();
    return result;
}

} // namespace zol::soak

#include "tests/soak/run.h"

#include "tests/soak/disturbances.h"
#include "tests/soak/random_operator.h"
#include "tests/soak/recovery.h"

#include <algorithm>

namespace zol::soak {
namespace {

constexpr std::int64_t s = 1'000'000;

// Bursts of acts, and quiet times without any.
void work_on(Session& session, RandomOperator& random_operator, Disturbances& disturbances,
             sim::Random& dice, std::int64_t until_us) {
    while (!session.ended() && session.now_us() < until_us) {
        const std::int64_t burst_until_us = session.now_us() + s * dice.between(20, 300);
        const int longest_pause_ms = dice.chance(0.3) ? 300 : 4000;
        while (!session.ended() && session.now_us() < std::min(burst_until_us, until_us)) {
            disturbances.change(session);
            random_operator.act(session);
            session.pass(dice.between(1, longest_pause_ms));
        }
        const std::int64_t quiet_until_us = session.now_us() + s * dice.between(10, 900);
        while (!session.ended() && session.now_us() < std::min(quiet_until_us, until_us)) {
            disturbances.change(session);
            session.pass(10'000);
        }
    }
}

} // namespace

RunResult run(const RunOptions& options) {
    sim::Random dice(options.seed ^ 0x50ac0000u);
    Log log(options.keep_all);
    RandomOperator random_operator(dice.next());
    Disturbances disturbances(dice.next());
    const sim::Options unit = some_unit(options.seed);
    log.note("seed " + std::to_string(options.seed) + ", unit " + std::to_string(unit.family) +
             "." + std::to_string(unit.version) + "." + std::to_string(unit.revision));
    Carried carried{std::make_unique<sim::ControlUnit>(unit), "", 0};
    const auto until_us = static_cast<std::int64_t>(options.hours * 3600e6);
    RunResult result;
    while (result.recovery.empty()) {
        ++result.starts;
        Session session(log, std::move(carried), dice.next());
        work_on(session, random_operator, disturbances, dice, until_us);
        if (session.now_us() >= until_us || !session.ended()) result.recovery = recover(session);
        result.deepest_wait = std::max(result.deepest_wait, session.checks.deepest_wait);
        carried = session.leave();
        carried.now_us += s * dice.between(1, 30);
    }
    log.note(result.recovery);
    result.findings = log.findings();
    result.transcript = log.lines();
    result.digest = log.digest();
    result.hours = static_cast<double>(carried.now_us) / 3600e6;
    result.acts = random_operator.acts();
    return result;
}

} // namespace zol::soak

#include "tests/bench/rows.h"
#include "tests/process/rough/faults.h"
#include "tests/process/tour/stages.h"

#include <QString>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iterator>

namespace zol::rough {
namespace {

using clock = std::chrono::steady_clock;

// Descriptors that this process holds; the one that reads the list is among them each time.
int descriptors() {
    return static_cast<int>(
        std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

// A level of the tank that the one before was not.
int next_level() {
    static int turn = 0;
    return 20 + ++turn % 7 * 10;
}

} // namespace

double measured(Hands& hands, const std::string& what, double most_mib,
                const std::function<void()>& work) {
    const double mib = bench::resident_mib(), used_ms = bench::processor_ms();
    const int held = descriptors();
    const auto start = clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken = clock::now() - start;
    const double share = (bench::processor_ms() - used_ms) / taken.count() * 100;
    const double mib_now = bench::resident_mib();
    const int held_now = descriptors();
    std::printf("| %-42s | %6.1f | %5.1f | %5.1f | %2d | %2d | %5.2f |\n", what.c_str(),
                taken.count() / 1000, mib, mib_now, held, held_now, share);
    std::fflush(stdout);
    hands.see(what + ": no more descriptors than before", held_now <= held);
    hands.see(what + ": no more memory than it may take", mib_now - mib <= most_mib);
    return share;
}

void phase(Hands& hands, const std::string& what, const std::function<void()>& work) {
    constexpr double most_mib = 2; // some windows open for the first time
    measured(hands, std::string(fault->name) + ", " + what, most_mib, work);
}

void strike(UnitProcess& unit) { unit.type(fault->strikes); }
void mend(UnitProcess& unit) { unit.type(fault->is_mended); }

bool telegram_comes(Hands& hands, UnitProcess& unit, int most_ms) {
    const auto shown = [&] { return hands.text("label_liv2"); };
    const QString before = shown();
    unit.type("tank " + std::to_string(next_level()));
    return hands.until([&] { return shown() != before; }, most_ms);
}

void come_home(Hands& hands) {
    constexpr int delayed_stop_ms = 200;
    Hands::rest(2 * delayed_stop_ms);
    tour::go_home(hands);
}

void see_it_alive(Hands& hands, const char* when) {
    hands.menu({"mnu_Lingua"});
    hands.see(std::string("the menu opens ") + when, hands.menu_open());
    hands.leave_menus();
    hands.see(std::string("the menu closes ") + when,
              hands.until([&] { return !hands.menu_open(); }));
}

} // namespace zol::rough

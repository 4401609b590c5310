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

// Open descriptors of this process. One of them is always this function's own.
int descriptors() {
    return static_cast<int>(
        std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

// Another tank level than before.
int next_level() {
    static int turn = 0;
    return 20 + ++turn % 7 * 10;
}

} // namespace

double measured(Ui& ui, const std::string& what, double most_mib,
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
    ui.check(what + ": not more descriptors than before", held_now <= held);
    ui.check(what + ": not more memory than allowed", mib_now - mib <= most_mib);
    return share;
}

void phase(Ui& ui, const std::string& what, const std::function<void()>& work) {
    constexpr double most_mib = 2; // some windows open for the first time
    measured(ui, std::string(fault->name) + ", " + what, most_mib, work);
}

void break_line(Ui& ui) { ui.unit.type(fault->begin); }
void restore_line(Ui& ui) { ui.unit.type(fault->end); }

bool telegram_comes(Ui& ui, int most_ms) {
    const auto shown = [&] { return ui.text("label_liv2"); };
    const QString before = shown();
    ui.unit.type("tank " + std::to_string(next_level()));
    return ui.wait_until([&] { return shown() != before; }, most_ms);
}

void expect_values(Ui& ui) { ui.check("values are updated", telegram_comes(ui)); }

void expect_no_values(Ui& ui) { ui.check("values are not updated", !telegram_comes(ui, 1500)); }

void return_home(Ui& ui) {
    constexpr int delayed_stop_ms = 200;
    rest(2 * delayed_stop_ms);
    ui.go_home();
    expect_values(ui);
}

void check_responsive(Ui& ui, const char* when) {
    ui.menu({"mnu_Lingua"});
    ui.check(std::string("the menu opens ") + when, ui.menu_open());
    ui.close_menus();
    ui.expect(std::string("the menu closes ") + when, [&] { return !ui.menu_open(); });
}

} // namespace zol::rough

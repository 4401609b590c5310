#include "tests/process/tour/ui.h"
#include "tests/process/tour/windows.h"
#include "tests/support/mirror_check.h"
#include "view/timers.h"

#include <QApplication>
#include <QWidget>

#include <chrono>
#include <cstdio>
#include <semaphore>
#include <thread>

namespace zol::tour {
namespace {

// The program's pump runs posted calls and then idles: the screen is up to date by then, and no
// input is waiting.
std::vector<std::string> differences() {
    std::vector<std::string> found;
    std::binary_semaphore compared(0);
    const auto compare = [&] {
        found = tests::mirror_differences();
        compared.release();
    };
    const auto once_idle = [&] { QMetaObject::invokeMethod(qApp, compare, Qt::QueuedConnection); };
    QMetaObject::invokeMethod(
        qApp, [&] { view::post(once_idle); }, Qt::QueuedConnection);
    compared.acquire();
    return found;
}

void print_failed(const std::string& claim) {
    std::printf("FAILED: %s\n", claim.c_str());
    std::fflush(stdout);
}

} // namespace

void rest(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }

bool Ui::wait_until(const std::function<bool()>& holds, int most_ms) {
    for (int waited = 0; waited < most_ms; waited += 50) {
        if (holds()) return true;
        rest(50);
    }
    return holds();
}

void Ui::wait_shown(const QString& window) {
    wait_until([&] { return shown(window); });
}

void Ui::wait_gone(const QString& window) {
    wait_until([&] { return !shown(window); });
}

void Ui::wait_idle(const QString& window) {
    const auto idle = [&] {
        return ask([&] {
            const QWidget* top = window_named(window);
            return !top || top->cursor().shape() != Qt::WaitCursor;
        });
    };
    // A handler may show the normal pointer between two of its steps.
    const auto for_a_while = [&] {
        if (!idle()) return false;
        rest(250);
        return idle();
    };
    wait_until(for_a_while, 15000);
}

void Ui::settle(int ms) {
    wait_idle();
    rest(ms);
}

void Ui::check(const std::string& claim, bool holds) {
    ++(holds ? tally.passed : tally.failed);
    if (!holds) print_failed(claim);
    compare_with_data();
}

void Ui::expect(const std::string& claim, const std::function<bool()>& holds, int most_ms) {
    check(claim, wait_until(holds, most_ms));
}

void Ui::expect_shown(const QString& window, int most_ms) {
    expect(
        window.toStdString() + " opens", [&] { return shown(window); }, most_ms);
}

void Ui::expect_gone(const QString& window, int most_ms) {
    expect(
        window.toStdString() + " closes", [&] { return !shown(window); }, most_ms);
}

void Ui::expect_panel(const QString& panel) {
    expect(panel.toStdString() + " is shown", [&] { return visible(panel); });
}

void Ui::compare_with_data() {
    ++tally.compared;
    std::vector<std::string> found;
    // The display needs a moment to activate another window.
    constexpr int longest_change_ms = 2000;
    if (wait_until([&] { return (found = differences()).empty(); }, longest_change_ms)) return;
    tally.failed += static_cast<int>(found.size());
    for (const std::string& difference : found)
        print_failed("the screen shows the data: " + difference);
}

void Ui::given(const std::string& act, int number, int value) {
    int held = -1;
    const bool came = wait_until([&] { return (held = unit.parameter(number)) == value; }, 6000);
    tally.given[static_cast<std::size_t>(number)] = value;
    check(act + ": PAR_" + std::to_string(number) + " is " + std::to_string(held) + ", wanted " +
              std::to_string(value),
          came);
}

void Ui::change(const std::vector<Change>& changes, const QString& window) {
    for (const Change& each : changes) {
        if (each.entry)
            enter(each.control, each.entry, window);
        else
            click(each.control, window);
        given(each.control, each.number, each.value);
        wait_idle(window);
        rest(each.settle_ms);
    }
}

void Ui::go_home() { go_to("Command_engine", "frame_engine"); }

void Ui::go_to(const QString& button, const QString& panel) {
    click(button);
    expect_panel(panel);
    rest(700); // the delayed stop of the polling, and what starts it again, are over by then
}

void Ui::answer_box(const QString& text, const QString& button, const QString& entry, int most_ms) {
    const bool came = wait_until([&] { return box_open(); }, most_ms);
    const QString actual = came ? box_text() : QString("no box");
    check("a box has the text \"" + text.toStdString() + "\", not \"" + actual.toStdString() + "\"",
          actual.contains(text));
    if (!came) return;
    answer(button, entry);
    rest(150);
}

bool Ui::values_flow(int most_ms) {
    // The tank has this level only when it was just set.
    const auto level = [&] { return text("label_liv2"); };
    const QString before = level();
    unit.type("tank 90");
    rest(100);
    const bool flowed = wait_until([&] { return level() != before; }, most_ms);
    unit.type("tank 60");
    return flowed;
}

} // namespace zol::tour

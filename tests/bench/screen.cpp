// Times of the main window: a full repaint, also divided by that of an empty window with as many
// widgets; live values that all change; a change of language; and a message lookup by size of its
// file. Argument: the build folder.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/message_catalogue.h"
#include "app/program/language.h"
#include "app/program/wiring.h"
#include "link/parameter_mirrors.h"
#include "monitor/rpm_bar.h"
#include "monitor/status_telegram.h"
#include "tests/bench/rows.h"
#include "view/qt/qt_view.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <QApplication>
#include <QLabel>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <unistd.h>
#include <vector>

namespace {

using namespace zol;
namespace fs = std::filesystem;

constexpr QSize full_hd(1920, 1080), ultra_hd(3840, 2160);

double median_ms(int runs, const std::function<void()>& work) {
    std::vector<double> taken;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> ms =
            std::chrono::steady_clock::now() - start;
        taken.push_back(ms.count());
    }
    std::ranges::sort(taken);
    return taken[taken.size() / 2];
}

QWidget* main_window() {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == "Form1") return top;
    return nullptr;
}

void settle(int ms = 50) { view::wait_on(form1::Timer2, ms); }

double repaint_ms(QWidget& window) {
    return median_ms(21, [&] { window.repaint(); });
}

double empty_repaint_ms() {
    QWidget window;
    window.resize(ultra_hd);
    constexpr int columns = 16, pitch_x = 240, pitch_y = 120;
    for (int i = 0; i < static_cast<int>(form1::Form1.controls.size()); ++i)
        (new QLabel(QString::number(i), &window))
            ->setGeometry(i % columns * pitch_x, i / columns * pitch_y, pitch_x - 8, pitch_y - 8);
    window.show();
    settle();
    return repaint_ms(window);
}

void measure_repaint(QWidget& window) {
    window.resize(ultra_hd);
    settle();
    const double ours = repaint_ms(window), empty = empty_repaint_ms();
    bench::print_row("full repaint of the main window at 3840 x 2160", ours, "ms", "at most 30");
    bench::print_row("the same over an empty window of as many widgets", ours / empty, "x", "-");
}

// A status telegram in which every field differs from the one before.
link::Reply telegram(int number) {
    link::Bytes bytes(30, 0);
    const auto put = [&](std::size_t position, int value) {
        bytes[position - 1] = static_cast<std::uint8_t>(value >> 8); // positions count from 1
        bytes[position] = static_cast<std::uint8_t>(value & 0xff);
    };
    using At = monitor::TelegramPosition;
    for (std::size_t position : {At::injection_time, At::pressure, At::ktar, At::temperature,
                                 At::state_number, At::tank, At::battery})
        put(position, 1000 + number % 4000);
    put(At::rpm, 800 + number * 370 % 7000);
    put(At::lambda, 100 + number * 130 % 800);
    put(At::fuel_state, number % 4);
    return link::Reply(bytes);
}

void measure_live_values(QWidget& window) {
    // A unit that sends pressure and battery too.
    link::mirrors.pressure_sensor = 1;
    app::state.ecu_version = 7;
    app::state.ecu_revision = 71;
    window.resize(full_hd);
    settle();
    constexpr int telegrams = 200, pitch_ms = 100;
    const double before = bench::processor_ms();
    for (int number = 0; number < telegrams; ++number) {
        monitor::show_telegram(telegram(number));
        // The lamps have their own timer of 300 ms.
        if (number % 3 == 0) monitor::show_rpm(app::state.engine_rpm);
        settle(pitch_ms);
    }
    bench::print_row("processor share of 10 telegrams a second, 1920 x 1080",
                     (bench::processor_ms() - before) / (telegrams * pitch_ms) * 100, "%",
                     "at most 2");
}

void measure_language(QWidget& window) {
    const char* codes[] = {"it", "uk", "pl", "fr", "de"};
    int turn = 0;
    bench::print_row("a change of language, painted, 1920 x 1080",
                     median_ms(25,
                               [&] {
                                   app::set_language(codes[turn++ % 5]);
                                   view::pump_until(view::now_us()); // changes reach the screen
                                   window.repaint();
                               }),
                     "ms", "at most 10");
}

// Time to find the last message, after `count` others.
double lookup_us(const fs::path& folder, int count) {
    {
        std::ofstream file(folder / "language" / "Mivra_it.ini");
        for (int key = 2000; key < 2000 + count; ++key)
            file << '[' << key << "]\nsome text\n";
        file << "[1999]\nthe last\n[1998]\n\n";
    }
    return 1000 * median_ms(101, [] { app::message(1999); });
}

void measure_lookup(const fs::path& folder) {
    app::set_language("it");
    for (int count : {45, 450, 4500})
        bench::print_row("a message lookup after " + std::to_string(count) + " others",
                         lookup_us(folder, count), "us", "-");
}

[[noreturn]] void measure(const fs::path& folder) {
    form1::Form1.on = {}; // no first read
    view::show(form1::Form1);
    settle(300);
    QWidget* window = main_window();
    if (!window) ::_exit(1);
    measure_repaint(*window);
    measure_live_values(*window);
    measure_language(*window);
    measure_lookup(folder);
    std::fflush(stdout);
    ::_exit(0);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: bench_screen BUILD_FOLDER\n");
        return 2;
    }
    const fs::path folder =
        fs::temp_directory_path() / ("zol_bench_screen_" + std::to_string(::getpid()));
    fs::create_directories(folder);
    fs::copy(fs::absolute(arguments[1]) / "app" / "language", folder / "language");
    app::use_application_folder(folder);
    app::connect_handlers();
    view::qt::run(arguments[0], [&] { measure(folder); });
}

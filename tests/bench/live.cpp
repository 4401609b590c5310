// Polling and handlers on the real event loop, real windows and a pseudo-terminal with the
// simulated unit. Each time is divided by the sum of the waits in it. Arguments: the build folder,
// the firmware version, and what to measure: poll or acts.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/program/startup.h"
#include "app/program/wiring.h"
#include "link/ecu_frames.h"
#include "link/parameter_mirrors.h"
#include "link/posix_serial_port.h"
#include "tests/bench/rows.h"
#include "tests/process/tour/unit_process.h"
#include "view/operator.h"
#include "view/qt/qt_view.h"
#include "view/screen.h"
#include "view/timers.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <semaphore>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace zol;
namespace fs = std::filesystem;
namespace acts = view::operator_acts;

// Measures how late the loop wakes and how long the program is busy: the time of a run beyond its
// waits.
struct TimedPlatform : view::Platform {
    explicit TimedPlatform(view::Platform& it) : inner(it) {}
    std::int64_t now_us() override { return inner.now_us(); }
    void idle(std::int64_t until_us) override {
        const std::int64_t before = now_us();
        inner.idle(until_us);
        const std::int64_t after = now_us();
        idled_us += after - before;
        if (until_us != forever && after >= until_us) {
            late_us += after - until_us;
            latest_us = std::max(latest_us, after - until_us);
        }
    }
    [[noreturn]] void end_program() override {
        inner.end_program();
        std::abort();
    }
    view::Platform& inner;
    std::int64_t idled_us = 0, late_us = 0, latest_us = 0;
};
TimedPlatform* timed = nullptr;

// Records the times of status requests and the number of each request.
struct TimedPort : link::PosixSerialPort {
    bool write(std::span<const std::uint8_t> bytes) override {
        if (bytes.size() == 5) ++asked[bytes[4]];
        if (bytes.size() == 5 && bytes[4] == 3) requests_us.push_back(view::now_us());
        return PosixSerialPort::write(bytes);
    }
    std::vector<std::int64_t> requests_us;
    std::array<int, 256> asked{};
};

// Runs `work` on the windows' thread and waits until it is done, with all its waits.
void run_inside(const std::function<void()>& work) {
    std::binary_semaphore done{0};
    const auto whole = [&] {
        work();
        done.release();
    };
    QMetaObject::invokeMethod(
        qApp, [&] { view::post(whole); }, Qt::QueuedConnection);
    done.acquire();
}

void rest(int seconds) { std::this_thread::sleep_for(std::chrono::seconds(seconds)); }

void measure_polling(TimedPort& port, tour::UnitProcess& unit, double mandated_ms) {
    constexpr int seconds = 60;
    run_inside([&] { port.requests_us.clear(); });
    const double used_before = bench::processor_ms();
    for (int second = 0; second < seconds; ++second) {
        unit.type("throttle " + std::to_string(second % 5 * 10)); // every field changes
        rest(1);
    }
    const double used = bench::processor_ms() - used_before;
    std::vector<std::int64_t> at;
    run_inside([&] { at = port.requests_us; });
    const double cycle_ms =
        static_cast<double>(at.back() - at.front()) / 1000 / static_cast<double>(at.size() - 1);
    const std::string cycle =
        "poll cycle of " + std::to_string(static_cast<int>(mandated_ms)) + " ms, mean over 60 s";
    bench::print_row(cycle, cycle_ms / mandated_ms, "x", "at most 1.02");
    bench::print_row("processor share while polling, all fields changing", used / (seconds * 10.0),
                     "%", "at most 1");
}

// The time of `act` divided by the waits that it makes.
void measure_act(const char* what, const std::function<void()>& act) {
    std::int64_t wall_us = 0, beyond_us = 0;
    run_inside([&] {
        const std::int64_t start = view::now_us(), idled = timed->idled_us, late = timed->late_us;
        act();
        wall_us = view::now_us() - start;
        beyond_us = wall_us - (timed->idled_us - idled) + (timed->late_us - late);
    });
    bench::print_row(what, static_cast<double>(wall_us) / static_cast<double>(wall_us - beyond_us),
                     "x", "at most 1.02");
}

// The time of `act` divided by the sum of its specified waits. It repeats a request without a valid
// reply, for example after a telegram of the polling.
void measure_against(const char* what, const TimedPort& port, link::Command request,
                     double (*specified_ms)(int asked), const std::function<void()>& act) {
    std::int64_t wall_us = 0;
    int asked = 0;
    run_inside([&] {
        const auto code = static_cast<std::size_t>(request);
        const std::int64_t start = view::now_us();
        const int before = port.asked[code];
        act();
        wall_us = view::now_us() - start;
        asked = port.asked[code] - before;
    });
    bench::print_row(what, static_cast<double>(wall_us) / 1000 / specified_ms(asked), "x",
                     "at most 1.02");
}

double specified_dump_ms(int asked) { return asked * (400.0 + 1400); }
// After the unit's reply: its restart, 38 single values and 48 cells.
double specified_reset_ms(int asked) {
    return asked * (400.0 + 600) + 1200 + 1800 + 38 * 100 + 48 * 300;
}

void enter(view::Widget& field, const char* text) {
    acts::click(field);
    acts::type(field, text);
    acts::key(*field.window, acts::enter, 0);
}

void visit_changeover_window() {
    acts::click(form1::Command303);
    view::wait_on(form3::Timer2, 50); // it is visible
    for (view::Widget* option :
         {&form3::opt_perm, &form3::opt_acc, &form3::opt_norm, &form3::Option1, &form3::Option2,
          &form3::Option3, &form3::Option_comm_auto_no, &form3::Option_comm_auto_yes})
        acts::click(*option);
    enter(form3::Text_rpm, "1500");
    enter(form3::Text_press_comm, "800");
    enter(form3::Text_123, "500");
    enter(form3::Text_124, "1500");
    acts::drag_to(form3::Slider2, 2);
    acts::click(form3::Command1);
}

// Answers each box with its first button as soon as it is open.
std::thread boxes_answered(std::atomic<bool>& until) {
    return std::thread([&until] {
        while (!until) {
            QMetaObject::invokeMethod(
                qApp,
                [] {
                    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                        if (!box->buttons().isEmpty()) box->buttons().first()->click();
                },
                Qt::QueuedConnection);
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    });
}

void measure_acts(const TimedPort& port) {
    measure_act("a move of the gain slider, over its waits",
                [] { acts::drag_to(form1::Slider_ktar, 1300); });
    measure_act("a tank preset, over its waits", [] {
        acts::click(form1::Command_impostazioni);
        acts::choose(form1::Combo_tank_level, 1);
    });
    measure_act("a full visit to the changeover window, over its waits", visit_changeover_window);
    run_inside([] { acts::click(form1::Command_engine); });
    std::atomic<bool> over = false;
    std::thread answering = boxes_answered(over);
    measure_act("an automatic tuning, over its waits",
                [] { acts::key(form1::Form1, 'T', acts::ctrl_key); });
    measure_against("a parameter dump, over its waits", port, link::Command::read_image,
                    specified_dump_ms, [] { acts::click(form1::mnu_dump_parametri); });
    measure_against("a factory reset, over its waits and the unit's answer", port,
                    link::Command::reset, specified_reset_ms,
                    [] { acts::click(form1::mnu_reset_centralina); });
    over = true;
    answering.join();
    bench::print_row("the latest that any wait ended", static_cast<double>(timed->latest_us) / 1000,
                     "ms", "at most 2");
}

[[noreturn]] void measure(const std::string& what, const fs::path& build, const fs::path& folder,
                          const std::string& firmware, TimedPort& port) {
    {
        tour::UnitProcess unit(
            build / "simulator" / "control-unit",
            {"--link", (folder / "ports" / "com1").string(), "--warm", "--firmware", firmware});
        // The program starts when the unit's device exists.
        rest(1);
        run_inside(app::sub_main);
        rest(10);
        if (what == "poll")
            measure_polling(port, unit, firmware.front() == '2' ? 450 : 350);
        else
            measure_acts(port);
    }
    ::_exit(0);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fprintf(stderr, "usage: bench_live BUILD_FOLDER FIRMWARE poll|acts\n");
        return 2;
    }
    const fs::path build = fs::absolute(arguments[1]);
    const fs::path folder =
        fs::temp_directory_path() / ("zol_bench_live_" + std::to_string(::getpid()));
    fs::create_directories(folder / "ports");
    fs::create_directories(folder / "log");
    fs::create_directory_symlink(build / "app" / "language", folder / "language");
    if (std::FILE* settings = std::fopen((folder / "setting.ini").c_str(), "w")) {
        std::fputs("[General]\nLANGUAGE=uk\n", settings);
        std::fclose(settings);
    }
    app::use_application_folder(folder);
    TimedPort port;
    link::use_serial_port(port);
    app::connect_handlers();
    const std::string firmware = arguments[2], what = arguments[3];
    view::qt::run(arguments[0], [&] {
        static TimedPlatform platform(view::platform());
        timed = &platform;
        view::use_platform(platform);
        std::thread([&, what, build, folder, firmware] {
            measure(what, build, folder, firmware, port);
        }).detach();
    });
}

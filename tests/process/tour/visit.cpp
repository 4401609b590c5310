#include "tests/process/tour/visit.h"

#include "app/application_folder.h"
#include "app/program/startup.h"
#include "app/program/wiring.h"
#include "link/posix_serial_port.h"
#include "view/qt/qt_view.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace zol::tour {

namespace fs = std::filesystem;

namespace {

void walk(const Stage& stage, Ui& ui) {
    const Tally before = ui.tally;
    stage.walk(ui);
    ui.compare_with_data();
    std::printf("  %-32s %3d passed", stage.name, ui.tally.passed - before.passed);
    if (const int failed = ui.tally.failed - before.failed) std::printf(", %d FAILED", failed);
    std::printf("\n");
    std::fflush(stdout);
}

// Runs the program in this process, which its EXIT button or the last stage ends.
[[noreturn]] void run_program(const Visit& visit, char* program_name, const fs::path& out,
                              Tally& tally, UnitProcess& unit) {
    ::alarm(visit.longest_s);
    app::use_application_folder(out / "app");
    link::PosixSerialPort port;
    link::use_serial_port(port);
    app::connect_handlers();
    view::qt::run(program_name, [&] {
        std::thread([&] {
            Ui ui(out, tally, unit);
            for (const Stage& stage : visit.stages)
                walk(stage, ui);
            ui.click("Command_exit");
            constexpr int longest_end_ms = 5000;
            rest(longest_end_ms);
            ::_exit(EXIT_FAILURE);
        }).detach();
        app::sub_main();
    });
}

} // namespace

void make_folder(const fs::path& build, const fs::path& folder, const std::string& language) {
    fs::remove_all(folder);
    for (const char* part : {"ports", "log"})
        fs::create_directories(folder / part);
    for (const char* part : {"language", "manual"})
        if (fs::exists(build / "app" / part))
            fs::copy(build / "app" / part, folder / part, fs::copy_options::recursive);
    std::ofstream(folder / "setting.ini") << "[General]\nLANGUAGE=" << language << '\n';
}

void make_visit(const Visit& visit, char* program_name, const fs::path& out, Tally& tally,
                UnitProcess& unit) {
    std::printf("%s\n", visit.name);
    std::fflush(stdout);
    unit.type(visit.unit_before);
    const pid_t process = ::fork();
    if (process == 0) run_program(visit, program_name, out, tally, unit);
    int status = 0;
    const bool ended = process > 0 && ::waitpid(process, &status, 0) == process &&
                       WIFEXITED(status) && WEXITSTATUS(status) == 0;
    ++(ended ? tally.passed : tally.failed);
    if (!ended) std::printf("FAILED: the program ends (status %d)\n", status);
}

UnitProcess start_unit(const fs::path& build, const fs::path& out,
                       const std::vector<std::string>& more_arguments) {
    std::vector<std::string> arguments = {"--link", (out / "app" / "ports" / "com1").string(),
                                          "--warm", "--firmware", "2.7.71"};
    arguments.insert(arguments.end(), more_arguments.begin(), more_arguments.end());
    return {build / "simulator" / "control-unit", arguments};
}

int report(const Tally& tally, const fs::path& out) {
    std::printf("%d checks passed, %d failed, the windows compared with their data %d times\n",
                tally.passed, tally.failed, tally.compared);
    std::printf("%d screenshots in %s\n", tally.screenshots, out.c_str());
    return tally.failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

Tally* shared_tally() {
    void* memory =
        ::mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return nullptr;
    auto* tally = new (memory) Tally{};
    tally->given.fill(never_set);
    return tally;
}

} // namespace zol::tour

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

void walk(const Stage& stage, Hands& hands, UnitProcess& unit) {
    const Tally before = hands.tally();
    stage.walk(hands, unit);
    hands.compare_with_data();
    const Tally& now = hands.tally();
    std::printf("  %-32s %3d seen", stage.name, now.seen - before.seen);
    if (now.missed > before.missed) std::printf(", %d MISSED", now.missed - before.missed);
    std::printf("\n");
    std::fflush(stdout);
}

// The program in this very process. It ends the process by its own EXIT button, or
// in the middle of the last stage.
[[noreturn]] void run_program(const Visit& visit, char* program_name, const fs::path& out,
                              Tally& tally, UnitProcess& unit) {
    ::alarm(visit.longest_s);
    app::use_application_folder(out / "app");
    link::PosixSerialPort port;
    link::use_serial_port(port);
    app::connect_handlers();
    view::qt::run(program_name, [&] {
        std::thread([&] {
            Hands hands(out, tally);
            for (const Stage& stage : visit.stages)
                walk(stage, hands, unit);
            hands.click("Command_exit");
            constexpr int longest_end_ms = 5000;
            Hands::rest(longest_end_ms);
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
    ++(ended ? tally.seen : tally.missed);
    if (!ended) std::printf("MISSED: the program ends (status %d)\n", status);
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

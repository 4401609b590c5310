// Walks through the program as an operator would: the real windows, a real serial device, the
// simulated unit at its other end. Leaves numbered pictures and the decoded wire log, and says what
// it saw. Arguments: the build folder, the folder for what it leaves, and, to make only one of the
// visits, its number from 1 on. Ends with 1 if something was not seen.
#include "app/application_folder.h"
#include "app/startup.h"
#include "app/wiring.h"
#include "link/posix_serial_port.h"
#include "tests/tour/stages.h"
#include "view/qt/qt_view.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace zol::tour {
namespace {

namespace fs = std::filesystem;

struct Stage {
    const char* name;
    void (*walk)(Hands&, UnitProcess&);
};

// One run of the program, from its start to its EXIT button.
struct Visit {
    const char* name;
    const char* unit_before; // what happens to the unit first
    std::vector<Stage> stages;
};

const std::vector<Visit> visits = {
    {"First start: the unit answers",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Engine, over to gas", watch_the_engine},
      {"Gains, attenuation, speed", move_gains},
      {"Keys", use_keys},
      {"Automatic tuning", tune}}},
    {"Second start: the unit is silent at first",
     "silence on",
     {{"Connection dialog", start_with_silent_unit},
      {"Fuel, sensor, changeover", set_fuel_and_changeover},
      {"Tank", set_tank},
      {"Changeover window", visit_changeover_window},
      {"Lambda", set_lambda},
      {"Injectors, car type", choose_injectors},
      {"Faults", read_faults},
      {"EOBD menus", use_eobd_menus},
      {"Injection time", acquire_injection_time}}},
    {"Third start: all is found again",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"In the unit", find_all_in_unit},
      {"In the windows", find_all_in_windows},
      {"Cable pulled and put back", pull_the_cable},
      {"Boxes, windows, colours", look_at_boxes},
      {"Service records", reset_service_records},
      {"Parameter file", save_parameters},
      {"Languages", look_at_languages},
      {"Factory reset", reset_to_factory_values}}},
    {"Last start: the line goes to a terminal",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Terminal", hand_line_to_terminal}}},
};

// An application folder of the tour's own, so that nobody's settings are touched.
void make_folder(const fs::path& build, const fs::path& folder) {
    fs::remove_all(folder);
    for (const char* part : {"ports", "log"})
        fs::create_directories(folder / part);
    for (const char* part : {"language", "manual"})
        if (fs::exists(build / "app" / part))
            fs::copy(build / "app" / part, folder / part, fs::copy_options::recursive);
    std::ofstream(folder / "setting.ini") << "[General]\nLANGUAGE=uk\n";
}

void walk(const Stage& stage, Hands& hands, UnitProcess& unit) {
    const Tally before = hands.tally();
    stage.walk(hands, unit);
    const Tally& now = hands.tally();
    std::printf("  %-32s %3d seen", stage.name, now.seen - before.seen);
    if (now.missed > before.missed) std::printf(", %d MISSED", now.missed - before.missed);
    std::printf("\n");
    std::fflush(stdout);
}

// The program in this very process. It ends the process by its own EXIT button.
[[noreturn]] void run_program(const Visit& visit, char* program_name, const fs::path& out,
                              Tally& tally, UnitProcess& unit) {
    constexpr unsigned longest_visit_s = 300;
    ::alarm(longest_visit_s);
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
    if (!ended) std::printf("MISSED: the EXIT button ends the program (status %d)\n", status);
}

// Seen by this process and those it forks.
Tally* shared_tally() {
    void* memory =
        ::mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return nullptr;
    auto* tally = new (memory) Tally{};
    tally->given.fill(never_set);
    return tally;
}

int run_tour(char* program_name, const fs::path& build, const fs::path& out,
             const std::vector<Visit>& chosen) {
    fs::remove_all(out);
    make_folder(build, out / "app");
    Tally* tally = shared_tally();
    if (!tally) return EXIT_FAILURE;
    {
        UnitProcess unit(build / "simulator" / "control-unit",
                         {"--link", (out / "app" / "ports" / "com1").string(), "--warm",
                          "--firmware", "2.7.71", "--log", (out / "wire.log").string()});
        for (const Visit& visit : chosen)
            make_visit(visit, program_name, out, *tally, unit);
    }
    std::printf("%d things seen, %d missed, %d pictures and the wire log in %s\n", tally->seen,
                tally->missed, tally->pictures, out.c_str());
    return tally->missed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace zol::tour

int main(int count, char** arguments) {
    namespace fs = std::filesystem;
    using zol::tour::visits;
    const std::size_t visit = count == 4 ? std::strtoul(arguments[3], nullptr, 10) : 0;
    if (count < 3 || count > 4 || visit > visits.size() || (count == 4 && visit == 0)) {
        std::fprintf(stderr, "usage: tour BUILD_FOLDER OUTPUT_FOLDER [VISIT]\n");
        return 2;
    }
    return zol::tour::run_tour(arguments[0], fs::absolute(arguments[1]), fs::absolute(arguments[2]),
                               count == 4 ? std::vector{visits[visit - 1]} : visits);
}

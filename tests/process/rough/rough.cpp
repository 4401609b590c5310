// Line faults on the real windows and a pseudo-terminal, in every phase of the program. The cable
// is pulled between adapter and unit (each byte is lost both ways), or the adapter is (device node
// and link go, and return under another number). At the start only the behaviour is checked,
// because memory still grows. Otherwise, after each phase the values must be updated again, with
// not more descriptors and at most 2 MiB more memory; a line that is out for a minute may take 1 %
// of a processor. Another visit connects a second unit at the usual device of the port: it must not
// get a byte. Arguments: the build folder, the output folder, the minutes of the long polling, and
// optionally the number of the only visit. Ends with 1 if a check failed.
#include "tests/process/rough/faults.h"
#include "tests/process/rough/port_holder.h"
#include "tests/process/tour/stages.h"
#include "tests/process/tour/visit.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace zol::rough {
namespace {

namespace fs = std::filesystem;
using tour::Stage;
using tour::Visit;

struct RoughVisit {
    Visit visit;
    const Fault& fault;
    bool port_taken = false;
    bool has_other_car = false;
};

// The phases of two visits, one for each fault.
std::vector<Stage> all_phases() {
    return {{"First read", in_first_read},
            {"Engine, over to gas", tour::watch_the_engine},
            {"A first box", open_a_box},
            {"Polling", while_polling},
            {"Menu open", with_a_menu_open},
            {"Panels", in_the_panels},
            {"Changeover window's load", in_the_changeover_windows_load},
            {"Write", during_a_write},
            {"Acquisition", in_the_acquisition},
            {"Fault read", in_the_fault_read},
            {"Parameter file", in_the_parameter_file},
            {"Tuning", in_the_tuning},
            {"Reset, request", in_the_reset_request},
            {"Reset, writes", in_the_reset_writes},
            {"A minute", for_a_minute}};
}

std::vector<RoughVisit> visits() {
    constexpr unsigned phases_s = 1200, endurance_s = 1800;
    const std::vector<Stage> dialog = {{"Connection dialog", in_the_connection_dialog}};
    const std::vector<Stage> endurance = {
        {"Start, first read, polling", tour::start_with_answering_unit},
        {"Warm-up", warm_up},
        {"Reconnects", reconnect_often},
        {"Panels", switch_panels_often},
        {"Polling", poll_for_long}};
    const auto minutes_s = static_cast<unsigned>(polling_minutes) * 60;
    return {{{"The cable", "log on", all_phases(), false, phases_s}, dead_cable},
            {{"The adapter", "log on", all_phases(), false, phases_s}, gone_adapter},
            {{"The cable, at the start", dead_cable.begin, dialog}, dead_cable},
            {{"The adapter, at the start", gone_adapter.begin, dialog}, gone_adapter},
            {{"Another program",
              "",
              {{"Port busy at the start", with_a_busy_port},
               {"Port busy later", with_a_port_busy_later}}},
             gone_adapter,
             true},
            {{"Another car",
              "",
              {{"Start, first read, polling", tour::start_with_answering_unit},
               {"The unit is pulled", keep_off_the_other_car}}},
             gone_adapter,
             false,
             true},
            {{"For long", "", endurance, false, endurance_s + minutes_s}, gone_adapter}};
}

// With a new unit and a new application folder.
void make_visit_with_fault(const RoughVisit& rough, char* program_name, const fs::path& build,
                           const fs::path& out, tour::Tally& tally) {
    tour::make_folder(build, out / "app", "uk");
    const fs::path port = out / "app" / "ports" / "com1";
    UnitProcess unit = tour::start_unit(build, out);
    fault = &rough.fault;
    if (rough.port_taken) {
        holder.emplace(port);
        holder->holds_within(5000);
    }
    if (rough.has_other_car) start_other_car(build / "simulator" / "control-unit", out);
    tour::make_visit(rough.visit, program_name, out, tally, unit);
    holder.reset();
    stop_other_car();
}

int run_visits(char* program_name, const fs::path& build, const fs::path& out, std::size_t only) {
    fs::remove_all(out);
    fs::create_directories(out);
    tour::Tally* tally = tour::shared_tally();
    if (!tally) return EXIT_FAILURE;
    drop_exclusive_open_right();
    std::printf("| %-42s | %6s | %13s | %7s | %5s |\n", "phase", "s", "MiB before, after", "files",
                "CPU %");
    const std::vector<RoughVisit> all = visits();
    for (std::size_t number = 1; number <= all.size(); ++number)
        if (only == 0 || only == number)
            make_visit_with_fault(all[number - 1], program_name, build, out, *tally);
    return tour::report(*tally, out);
}

} // namespace
} // namespace zol::rough

int main(int count, char** arguments) {
    namespace fs = std::filesystem;
    if (count < 3 || count > 5) {
        std::fprintf(stderr, "usage: rough BUILD_FOLDER OUTPUT_FOLDER [MINUTES [VISIT]]\n");
        return 2;
    }
    if (count > 3) zol::rough::polling_minutes = std::atoi(arguments[3]);
    const std::size_t only = count > 4 ? std::strtoul(arguments[4], nullptr, 10) : 0;
    return zol::rough::run_visits(arguments[0], fs::absolute(arguments[1]),
                                  fs::absolute(arguments[2]), only);
}

// Handles the tool roughly: the real windows, a real serial device, and a line that fails in every
// phase. Says what held and prints what the process took for it. Arguments: the build folder, the
// folder for what it leaves, how many minutes the long polling is to last, and, to make only one of
// the visits, its number from 1 on. Ends with 1 if something did not hold.
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

// What two visits share: each phase, with the one fault and with the other.
std::vector<Stage> all_phases() {
    return {{"First read", in_first_read},
            {"Engine, over to gas", tour::watch_the_engine},
            {"A first box", see_a_box},
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
            {{"The cable, at the start", dead_cable.strikes, dialog}, dead_cable},
            {{"The adapter, at the start", gone_adapter.strikes, dialog}, gone_adapter},
            {{"Another program",
              "",
              {{"The port is taken", with_the_port_taken},
               {"Taken later", taken_while_the_adapter_was_out}}},
             gone_adapter,
             true},
            {{"Another car",
              "",
              {{"Start, first read, polling", tour::start_with_answering_unit},
               {"The unit goes", leave_the_other_car_alone}}},
             gone_adapter,
             false,
             true},
            {{"For long", "", endurance, false, endurance_s + minutes_s}, gone_adapter}};
}

// Each with a unit and a folder as at the very first start.
void make_rough_visit(const RoughVisit& rough, char* program_name, const fs::path& build,
                      const fs::path& out, tour::Tally& tally) {
    tour::make_folder(build, out / "app", "uk");
    const fs::path port = out / "app" / "ports" / "com1";
    UnitProcess unit(build / "simulator" / "control-unit",
                     {"--link", port.string(), "--warm", "--firmware", "2.7.71"});
    fault = &rough.fault;
    if (rough.port_taken) {
        holder.emplace(port);
        holder->holds_within(5000);
    }
    if (rough.has_other_car) bring_other_car(build / "simulator" / "control-unit", out);
    tour::make_visit(rough.visit, program_name, out, tally, unit);
    holder.reset();
    send_other_car_away();
}

int be_rough(char* program_name, const fs::path& build, const fs::path& out, std::size_t only) {
    fs::remove_all(out);
    fs::create_directories(out);
    tour::Tally* tally = tour::shared_tally();
    if (!tally) return EXIT_FAILURE;
    be_refused_like_a_fitter();
    std::printf("| %-42s | %6s | %13s | %7s | %5s |\n", "phase", "s", "MiB before, after", "files",
                "CPU %");
    const std::vector<RoughVisit> all = visits();
    for (std::size_t number = 1; number <= all.size(); ++number)
        if (only == 0 || only == number)
            make_rough_visit(all[number - 1], program_name, build, out, *tally);
    std::printf("%d things seen, %d missed, the windows compared with their data %d times\n",
                tally->seen, tally->missed, tally->compared);
    return tally->missed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
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
    return zol::rough::be_rough(arguments[0], fs::absolute(arguments[1]),
                                fs::absolute(arguments[2]), only);
}

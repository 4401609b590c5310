// Uses every control of the program in a fixed order: the real windows, a pseudo-terminal as the
// serial device, the simulated unit at its other end. Checks what the windows show and what the
// unit has got. Saves numbered screenshots and the decoded wire log. Arguments: the build folder,
// the output folder, and optionally the number of the only visit. Ends with 1 if a check failed.
#include "tests/process/tour/stages.h"
#include "tests/process/tour/touched.h"
#include "tests/process/tour/visit.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace zol::tour {
namespace {

namespace fs = std::filesystem;

const std::vector<Visit> visits = {
    {"First start: the unit answers",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Engine, changeover to gas", watch_the_engine},
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
    {"Third start: all values are found again",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"In the unit", find_values_in_unit},
      {"In the windows", find_values_in_windows},
      {"Cable pulled and put back", pull_the_cable},
      {"Boxes, windows, colours", open_boxes},
      {"Service records", reset_service_records},
      {"Parameter file", save_parameters},
      {"Languages", choose_languages},
      {"Factory reset", reset_to_factory_values}}},
    {"Fourth start: handed over to a terminal",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Terminal", hand_line_to_terminal}}},
    {"Fifth start: handed over to a download",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Download", hand_line_to_download}}},
    {"Sixth start: closed during the reset",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Factory reset, interrupted", close_during_the_reset}}},
    {"Seventh start: cancelled",
     "silence on",
     {{"Connection dialog, cancelled", cancel_at_another_port}}},
    {"Eighth start: at the port stored before",
     "silence off",
     {{"Connection dialog, back to the port", start_at_a_missing_port},
      {"Port menu", choose_ports}},
     true},
};

// The whole tour uses every control that can be reached.
void check_all_used(const fs::path& out, Tally& tally) {
    const std::vector<std::string> left = untouched(out / touched_file);
    for (const std::string& control : left)
        std::printf("FAILED: a visit uses %s\n", control.c_str());
    ++(left.empty() ? tally.passed : tally.failed);
}

std::vector<Visit> chosen_visits(std::size_t number) {
    if (number == 0) return visits;
    const auto last = visits.begin() + static_cast<std::ptrdiff_t>(number);
    return {last - (visits[number - 1].continues ? 2 : 1), last};
}

int run_tour(char* program_name, const fs::path& build, const fs::path& out,
             const std::vector<Visit>& chosen) {
    fs::remove_all(out);
    make_folder(build, out / "app", "uk");
    Tally* tally = shared_tally();
    if (!tally) return EXIT_FAILURE;
    {
        UnitProcess unit = start_unit(build, out, {"--log", (out / "wire.log").string()});
        for (const Visit& visit : chosen)
            make_visit(visit, program_name, out, *tally, unit);
    }
    if (chosen.size() == visits.size()) check_all_used(out, *tally);
    return report(*tally, out);
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
                               zol::tour::chosen_visits(visit));
}

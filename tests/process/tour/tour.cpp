// Walks through the program as an operator would: the real windows, a real serial device, the
// simulated unit at its other end. Leaves numbered pictures and the decoded wire log, and says what
// it saw. Arguments: the build folder, the folder for what it leaves, and, to make only one of the
// visits, its number from 1 on. Ends with 1 if something was not seen.
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
    {"Fourth start: the line goes to a terminal",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Terminal", hand_line_to_terminal}}},
    {"Fifth start: the line goes to a download",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Download", hand_line_to_download}}},
    {"Sixth start: closed in the middle of the reset",
     "silence off",
     {{"Start, first read, polling", start_with_answering_unit},
      {"Factory reset, not to its end", close_in_the_middle_of_the_reset}}},
    {"Seventh start: given up",
     "silence on",
     {{"Connection dialog, cancelled", give_up_at_another_port}}},
    {"Eighth start: at the port that was given up at",
     "silence off",
     {{"Connection dialog, back to the port", start_at_a_port_that_is_not_there},
      {"Port menu", choose_ports}},
     true},
};

// Of the whole tour: every control that can be reached was touched.
void say_untouched(const fs::path& out, Tally& tally) {
    const std::vector<std::string> left = untouched(out / touched_file);
    for (const std::string& control : left)
        std::printf("MISSED: no visit touches %s\n", control.c_str());
    ++(left.empty() ? tally.seen : tally.missed);
}

std::vector<Visit> chosen_visits(std::size_t number) {
    if (number == 0) return visits;
    const auto last = visits.begin() + static_cast<std::ptrdiff_t>(number);
    return {last - (visits[number - 1].goes_on ? 2 : 1), last};
}

int run_tour(char* program_name, const fs::path& build, const fs::path& out,
             const std::vector<Visit>& chosen) {
    fs::remove_all(out);
    make_folder(build, out / "app", "uk");
    Tally* tally = shared_tally();
    if (!tally) return EXIT_FAILURE;
    {
        UnitProcess unit(build / "simulator" / "control-unit",
                         {"--link", (out / "app" / "ports" / "com1").string(), "--warm",
                          "--firmware", "2.7.71", "--log", (out / "wire.log").string()});
        for (const Visit& visit : chosen)
            make_visit(visit, program_name, out, *tally, unit);
    }
    if (chosen.size() == visits.size()) say_untouched(out, *tally);
    std::printf("%d things seen, %d missed, the windows compared with their data %d times\n",
                tally->seen, tally->missed, tally->compared);
    std::printf("%d pictures and the wire log in %s\n", tally->pictures, out.c_str());
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
                               zol::tour::chosen_visits(visit));
}

// Visits: runs of the program, each in its own process, with the tour's input. What all visits of a
// run share, the counts and the values given to the unit, is in the tally.
#pragma once

#include "tests/process/tour/ui.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zol::tour {

struct Stage {
    const char* name;
    void (*walk)(Ui&);
};

// One run of the program, from its start to its EXIT button or another end.
struct Visit {
    const char* name;
    const char* unit_before; // command to the unit before the start
    std::vector<Stage> stages;
    bool continues = false; // needs the settings that the visit before has stored
    unsigned longest_s = 300;
};

// A new application folder of the tour, with the language "it", "uk", "pl", "fr" or "de".
void make_folder(const std::filesystem::path& build, const std::filesystem::path& folder,
                 const std::string& language);
// The simulated unit of version 2.7.71, warm, on the COM1 of the folder `out`/app.
UnitProcess start_unit(const std::filesystem::path& build, const std::filesystem::path& out,
                       const std::vector<std::string>& more_arguments = {});
// In memory that forked processes share; null if there is none.
Tally* shared_tally();
// Walks through one run in the folder `out`/app and saves its screenshots in `out`.
void make_visit(const Visit& visit, char* program_name, const std::filesystem::path& out,
                Tally& tally, UnitProcess& unit);
// Prints the counts. Returns the exit status.
int report(const Tally& tally, const std::filesystem::path& out);

} // namespace zol::tour

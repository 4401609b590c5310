// Runs of the program, each a process of its own, walked through by an operator's hands.
#pragma once

#include "tests/process/tour/hands.h"
#include "tests/process/tour/unit_process.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zol::tour {

struct Stage {
    const char* name;
    void (*walk)(Hands&, UnitProcess&);
};

// One run of the program, from its start to its EXIT button or to whatever else ends it.
struct Visit {
    const char* name;
    const char* unit_before; // what happens to the unit first
    std::vector<Stage> stages;
    bool goes_on = false; // from what the visit before has left in the settings
    unsigned longest_s = 300;
};

// An application folder of the tour's own, so that nobody's settings are touched. Its language is
// the one given: "it", "uk", "pl", "fr" or "de".
void make_folder(const std::filesystem::path& build, const std::filesystem::path& folder,
                 const std::string& language);
// Seen by this process and those it forks; null if there is no memory for it.
Tally* shared_tally();
// Walks through one run in the folder `out`/app; pictures go to `out`.
void make_visit(const Visit& visit, char* program_name, const std::filesystem::path& out,
                Tally& tally, UnitProcess& unit);

} // namespace zol::tour

// Checks at compile time that the rows of the catalogue are consistent.
#include "link/parameter_catalogue.h"

namespace zol::link {
namespace {

consteval bool numbers_rise() {
    int last = 0;
    for (const Parameter& row : parameter_catalogue) {
        if (row.number <= last) return false;
        last = row.number;
    }
    return true;
}

consteval bool no_cell_is_a_row() {
    for (const Parameter& row : parameter_catalogue)
        for (const CellRun& run : correction_cell_runs)
            if (row.number >= run.first && row.number <= run.last) return false;
    return true;
}

consteval bool words_that_are_read_have_mirrors() {
    for (const Parameter& row : parameter_catalogue)
        if (row.group != WordGroup::unread && !row.mirror) return false;
    return true;
}

// Callers that take one of these groups give no layout.
consteval bool common_words_have_one_position() {
    for (const Parameter& row : parameter_catalogue) {
        const bool common = row.group == WordGroup::base || row.group == WordGroup::activation ||
                            row.group == WordGroup::cut_off;
        const auto& [eobd, family_1, families_2_to_4] = row.positions;
        if (common && (eobd == 0 || eobd != family_1 || eobd != families_2_to_4)) return false;
    }
    return true;
}

static_assert(numbers_rise());
static_assert(no_cell_is_a_row());
static_assert(words_that_are_read_have_mirrors());
static_assert(common_words_have_one_position());

} // namespace
} // namespace zol::link

// The catalogue against what the tests know of the image, and against the manual's table.
#include "link/parameter_catalogue.h"

#include "tests/unit/link/image_words.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <sstream>

namespace zol::tests {
namespace {

using link::Parameter;
using link::parameter_catalogue;
using testing::ContainerEq;

// In the order of the words, from byte 6 on.
const std::vector<int> eobd_layout = {
    1,   3,   4,   5,   6,   10,  15,  30,  31,  32,  33,  34,  35,  50,  51,  52,  60,
    61,  101, 102, 103, 104, 105, 106, 107, 110, 120, 121, 122, 123, 124, 125, 126, 127,
    128, 129, 130, 140, 141, 142, 143, 144, 145, 146, 147, 148, 149, 150, 151, 152, 153};

std::size_t position_in(const Words& words, const Parameter& row) {
    const auto found = std::find_if(words.begin(), words.end(), [&row](const Word& word) {
        return row.mirror && word.mirror == row.mirror;
    });
    return found == words.end() ? 0 : static_cast<std::size_t>(found->position);
}

const Words common = joined({words_on_both_roads, cut_off_words, latency_word, activation_words});

TEST(ParameterCatalogue, HasTheWordsOfTheEobdLayout) {
    for (const Parameter& row : parameter_catalogue) {
        const auto at = std::find(eobd_layout.begin(), eobd_layout.end(), row.number);
        const auto index = static_cast<std::size_t>(at - eobd_layout.begin());
        EXPECT_EQ(row.positions.eobd, at == eobd_layout.end() ? 0 : 6 + 2 * index)
            << row.identifier;
    }
}

TEST(ParameterCatalogue, HasTheWordsOfFamily1) {
    const Words words = joined({common, lambda_words_1, kind_word, extended_words_1});
    for (const Parameter& row : parameter_catalogue)
        EXPECT_EQ(row.positions.family_1, position_in(words, row)) << row.identifier;
}

TEST(ParameterCatalogue, HasTheWordsOfFamilies2To4) {
    const Words words = joined({common, eobd_words, lambda_words_2_to_4, extended_words_2_to_4});
    for (const Parameter& row : parameter_catalogue)
        EXPECT_EQ(row.positions.families_2_to_4, position_in(words, row)) << row.identifier;
}

TEST(ParameterCatalogue, GivesEachMirrorOneParameter) {
    std::vector<double Mirrors::*> seen;
    for (const Parameter& row : parameter_catalogue) {
        if (!row.mirror) continue;
        EXPECT_EQ(std::count(seen.begin(), seen.end(), row.mirror), 0) << row.identifier;
        seen.push_back(row.mirror);
    }
    for (const Word& word : every_word)
        EXPECT_EQ(std::count(seen.begin(), seen.end(), word.mirror), 1) << word.position;
}

// What a row of the manual's table says of one parameter: unit, factory value, English meaning.
struct Told {
    std::string unit, factory_value, meaning;
    bool operator==(const Told&) const = default;
    friend void PrintTo(const Told& told, std::ostream* out) {
        *out << told.unit << " | " << told.factory_value << " | " << told.meaning;
    }
};
using Table = std::map<int, Told>;

std::vector<std::string> cells_of(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream in(line);
    for (std::string cell; std::getline(in, cell, '|');) {
        const auto first = cell.find_first_not_of(' '), last = cell.find_last_not_of(' ');
        cells.push_back(cell.substr(first, last + 1 - first));
    }
    return cells;
}

// A row may speak of several runs of numbers: "74-98, 108-109".
Table table_of_the_manual() {
    Table table;
    std::ifstream in(std::filesystem::path(ZOL_SOURCE_DIR) / "tools/manual/parameters.txt");
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with('#')) continue;
        const auto cells = cells_of(line);
        std::istringstream runs(cells.at(0));
        for (std::string run; std::getline(runs, run, ',');) {
            const auto dash = run.find('-');
            const int first = std::stoi(run);
            const int last = dash == std::string::npos ? first : std::stoi(run.substr(dash + 1));
            for (int number = first; number <= last; ++number)
                table[number] = {cells.at(1), cells.at(2), cells.at(5)};
        }
    }
    return table;
}

TEST(ParameterCatalogue, IsTheManualsTable) {
    Table table;
    for (const Parameter& row : parameter_catalogue)
        table[row.number] = {row.unit, row.factory_value ? std::to_string(*row.factory_value) : "-",
                             row.meaning};
    for (const auto& [first, last] : link::correction_cell_runs)
        for (int number = first; number <= last; ++number)
            table[number] = {"-", std::to_string(link::correction_cell_factory_value),
                             "48 correction cells"};
    EXPECT_THAT(table, ContainerEq(table_of_the_manual()));
}

} // namespace
} // namespace zol::tests

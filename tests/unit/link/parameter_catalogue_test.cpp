// The parameter catalogue against the tests' oracle and against the manual's table.
#include "link/parameter_catalogue.h"

#include "tests/support/image_oracle.h"
#include "tests/support/mirror_oracle.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <sstream>

namespace zol::tests {
namespace {

using link::Parameter;
using link::parameter_catalogue;
using link::Positions;
using testing::ContainerEq;

// Each row has its position in this column, and 0 if `words` does not hold it.
void expect_positions(std::size_t Positions::*column, const std::vector<oracle::ImageWord>& words) {
    std::map<int, std::size_t> expected, actual;
    for (const Parameter& row : parameter_catalogue)
        if (row.positions.*column != 0) actual[row.number] = row.positions.*column;
    for (const oracle::ImageWord& word : words)
        expected[word.parameter] = static_cast<std::size_t>(word.position);
    EXPECT_THAT(actual, ContainerEq(expected));
}

TEST(ParameterCatalogue, HasTheWordsOfTheEobdLayout) {
    expect_positions(&Positions::eobd, oracle::layout_of_family(0));
}

TEST(ParameterCatalogue, HasTheWordsReadFromFamily1) {
    expect_positions(&Positions::family_1, oracle::read_words_of_family(1));
}

TEST(ParameterCatalogue, HasTheWordsReadFromFamilies2To4) {
    expect_positions(&Positions::families_2_to_4, oracle::read_words_of_family(4));
}

TEST(ParameterCatalogue, GivesEachMirrorItsParameter) {
    for (const Parameter& row : parameter_catalogue)
        EXPECT_TRUE(row.mirror == oracle::mirror_of(row.number)) << row.identifier;
}

TEST(ParameterCatalogue, HasTheFactoryValues) {
    std::map<int, int> expected, actual;
    for (const Parameter& row : parameter_catalogue)
        if (row.factory_value) actual[row.number] = *row.factory_value;
    for (const oracle::FactoryValue& row : oracle::factory_values)
        expected[row.parameter] = row.value;
    EXPECT_THAT(actual, ContainerEq(expected));
}

TEST(ParameterCatalogue, HasTheCorrectionCells) {
    std::vector<int> cells;
    for (const auto& [first, last] : link::correction_cell_runs)
        for (int number = first; number <= last; ++number)
            cells.push_back(number);
    EXPECT_EQ(cells, oracle::correction_cells());
    EXPECT_EQ(link::correction_cell_factory_value, oracle::correction_cell_value);
}

// Unit, factory value and English meaning of each parameter.
using Table = std::map<int, std::vector<std::string>>;

std::vector<std::string> cells_of(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream in(line);
    for (std::string cell; std::getline(in, cell, '|');) {
        const auto first = cell.find_first_not_of(' '), last = cell.find_last_not_of(' ');
        cells.push_back(cell.substr(first, last + 1 - first));
    }
    return cells;
}

// A row of the manual's table may be for several ranges of numbers: "74-98, 108-109".
Table table_of_the_manual() {
    Table table;
    std::ifstream in(std::filesystem::path(ZOL_SOURCE_DIR) / "tools/manual/parameters.txt");
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with('#')) continue;
        const auto cells = cells_of(line);
        std::istringstream ranges(cells.at(0));
        for (std::string range; std::getline(ranges, range, ',');) {
            const auto dash = range.find('-');
            const int first = std::stoi(range);
            const int last = dash == std::string::npos ? first : std::stoi(range.substr(dash + 1));
            for (int number = first; number <= last; ++number)
                table[number] = {cells.at(1), cells.at(2), cells.at(5)};
        }
    }
    return table;
}

TEST(ParameterCatalogue, EqualsTheTableOfTheManual) {
    Table table;
    for (const Parameter& row : parameter_catalogue)
        table[row.number] = {row.unit, row.factory_value ? std::to_string(*row.factory_value) : "-",
                             row.meaning};
    for (const int cell : oracle::correction_cells())
        table[cell] = {"-", std::to_string(oracle::correction_cell_value), "48 correction cells"};
    EXPECT_THAT(table, ContainerEq(table_of_the_manual()));
}

} // namespace
} // namespace zol::tests

// The manual's list of what to note by hand: the parameters that the tool writes and the parameter
// file does not hold.
#include "app/helper_texts.h"
#include "maintenance/factory_reset.h"
#include "maintenance/parameter_dump.h"
#include "tests/support/image_oracle.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>

namespace zol::tests {
namespace {

using testing::ContainerEq;

using Numbers = std::set<int>;

Numbers numbers_in(const std::string& text, const std::string& before) {
    Numbers numbers;
    const std::regex pattern(before + "(\\d+)");
    for (std::sregex_iterator it(text.begin(), text.end(), pattern), end; it != end; ++it)
        numbers.insert(std::stoi((*it)[1]));
    return numbers;
}

// The last line repeats the number of the line before it, although it holds the next parameter.
Numbers in_the_file() {
    Numbers numbers = numbers_in(maintenance::dump_text(link::Reply(link::Bytes(120, 0))), "Par ");
    numbers.insert(153);
    return numbers;
}

Numbers without(Numbers numbers, const Numbers& others) {
    std::erase_if(numbers, [&](int number) { return others.contains(number); });
    return numbers;
}

// The section on what the file lacks, which names no other parameter.
std::string section_of_the_manual() {
    std::ifstream in(std::filesystem::path(ZOL_SOURCE_DIR) / "manual/uk/service.htm");
    const std::string page(std::istreambuf_iterator<char>(in), {});
    const auto heading = page.find("<h2>What the parameter file lacks</h2>");
    EXPECT_NE(heading, std::string::npos);
    return page.substr(heading, page.find("<h2>", heading + 1) - heading);
}

class ParameterFileGaps : public LogicTest {
  protected:
    // Another test compares what a control names with what it writes.
    static Numbers written_by_controls() {
        Numbers numbers;
        for (const view::Widget* window : view::all_windows())
            for (auto* list : {&window->controls, &window->menus})
                for (const view::Widget* w : *list)
                    for (const int number : app::parameters_of(*w))
                        numbers.insert(number);
        return numbers;
    }
    Numbers written_by_the_reset() {
        start_connected();
        screen.answer_message("", view::Answer::yes);
        screen.answer_message("FINE RESET ECU", view::Answer::ok);
        inside_program(maintenance::reset_control_unit);
        run_for(60'000);
        Numbers numbers;
        for (const Frame& frame : writes())
            numbers.insert(frame.number);
        return numbers;
    }
};

TEST_F(ParameterFileGaps, FileHolds51Parameters) { EXPECT_EQ(in_the_file().size(), 51u); }

TEST_F(ParameterFileGaps, ManualListsWhatTheFileLacks) {
    const std::vector<int> cell_list = oracle::correction_cells();
    const Numbers cells(cell_list.begin(), cell_list.end());
    const Numbers reset = written_by_the_reset();
    Numbers written = written_by_controls();
    written.insert(reset.begin(), reset.end());
    EXPECT_EQ(without(cells, reset), Numbers{}) << "the reset writes each cell";
    EXPECT_THAT(numbers_in(section_of_the_manual(), "PAR_"),
                ContainerEq(without(without(written, in_the_file()), cells)));
}

} // namespace
} // namespace zol::tests

#include "tests/process/tour/touched.h"

#include "view/widget.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <set>

namespace zol::tour {
namespace {

// Never visible, or only there to have the keyboard focus.
constexpr std::array<std::string_view, 5> out_of_reach = {
    "Form1 com3", "Form1 Command1", "Form1 Command2", "Form1 Text2", "Form1 cmd_focus"};
constexpr std::string_view never_opened = "Form_power";

bool takes_acts(view::Kind kind) {
    using enum view::Kind;
    return kind == command_button || kind == option_button || kind == check_box || kind == slider ||
           kind == combo_box || kind == text_box || kind == menu_item;
}

bool reachable(const std::string& act) {
    return !act.starts_with(never_opened) &&
           std::find(out_of_reach.begin(), out_of_reach.end(), act) == out_of_reach.end();
}

} // namespace

void note_touched(const std::filesystem::path& notes, const std::string& window,
                  const std::string& name) {
    std::ofstream(notes, std::ios::app) << window << " " << name << "\n";
}

std::vector<std::string> untouched(const std::filesystem::path& notes) {
    std::set<std::string> touched;
    std::ifstream in(notes);
    for (std::string line; std::getline(in, line);)
        touched.insert(line);
    std::vector<std::string> left;
    for (const view::Widget* window : view::all_windows())
        for (const auto* table : {&window->controls, &window->menus})
            for (const view::Widget* widget : *table) {
                const std::string act = window->name + " " + full_name(*widget);
                if (takes_acts(widget->kind) && reachable(act) && !touched.contains(act))
                    left.push_back(act);
            }
    return left;
}

} // namespace zol::tour

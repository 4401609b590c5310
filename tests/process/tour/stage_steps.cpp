#include "tests/process/tour/stages.h"

#include "app/application_folder.h"

#include <fstream>
#include <iterator>

namespace zol::tour {

std::string whole_file(const char* name) {
    std::ifstream in(app::application_file(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void given(Hands& hands, UnitProcess& unit, const std::string& act, int number, int value) {
    int held = -1;
    const bool came = hands.until([&] { return (held = unit.parameter(number)) == value; }, 6000);
    hands.tally().given[static_cast<std::size_t>(number)] = value;
    hands.see(act + ": PAR_" + std::to_string(number) + " is " + std::to_string(held) +
                  ", wanted " + std::to_string(value),
              came);
}

void go_home(Hands& hands) { go_to(hands, "Command_engine", "frame_engine"); }

void go_to(Hands& hands, const QString& button, const QString& panel) {
    hands.click(button);
    hands.see(panel.toStdString() + " comes on view",
              hands.until([&] { return hands.visible(panel); }));
    // The delayed stop of the polling, and what starts it again, have come by then.
    Hands::rest(700);
}

void answer_box(Hands& hands, const QString& text, const QString& button, const QString& entry,
                int most_ms) {
    const bool came = hands.until([&] { return hands.box_on_view(); }, most_ms);
    const QString said = came ? hands.box_text() : QString("no box");
    hands.see("a box says \"" + text.toStdString() + "\", not \"" + said.toStdString() + "\"",
              said.contains(text));
    if (!came) return;
    hands.answer(button, entry);
    Hands::rest(150);
}

bool values_flow(Hands& hands, UnitProcess& unit, int most_ms) {
    // No car idles at this tank reading unless it was just set.
    const auto shown = [&] { return hands.text("label_liv2"); };
    const QString before = shown();
    unit.type("tank 90");
    Hands::rest(100);
    const bool flowed = hands.until([&] { return shown() != before; }, most_ms);
    unit.type("tank 60");
    return flowed;
}

} // namespace zol::tour

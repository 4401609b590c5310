#include "tests/process/tour/other_program.h"
#include "tests/process/tour/stages.h"

#include "app/application_folder.h"

namespace zol::tour {
namespace {

std::string unit_is(UnitProcess& unit) { return unit.answer("state", "unit "); }

bool unit_becomes(Hands& hands, UnitProcess& unit, const std::string& words) {
    return hands.until([&] { return unit_is(unit).find(words) != std::string::npos; });
}

std::string line_of(UnitProcess& unit, int number) {
    return "PAR_" + std::to_string(number) + " = " + std::to_string(unit.parameter(number)) +
           "\r\n";
}

std::filesystem::path port() { return app::application_file("\\ports\\com1"); }

void bring_out_service_buttons(Hands& hands) {
    hands.see("the service buttons are hidden at first", !hands.visible("Command_scarico"));
    hands.double_click("Label18");
    hands.see("a double click brings them out", hands.until([&] {
        return hands.visible("Command_hyperterminal") && hands.visible("Command_scarico");
    }));
    hands.picture("service-buttons");
}

void hand_over(Hands& hands, UnitProcess& unit, const char* button, const std::string& becomes) {
    hands.see("the tool holds the port", held_by_the_tool(port()));
    hands.click(button);
    hands.see("the unit becomes " + becomes, unit_becomes(hands, unit, becomes));
    hands.see("the tool lets go of the port",
              hands.until([&] { return !held_by_the_tool(port()); }));
    hands.see("values stand still", !values_flow(hands, unit, 1500));
    hands.click(button);
    Hands::rest(2000);
    hands.see("a second press finds the port closed", !held_by_the_tool(port()));
    hands.see("and changes nothing", unit_is(unit).find(becomes) != std::string::npos);
    hands.picture(std::string(button) + "-pressed");
}

void hide_service_buttons(Hands& hands) {
    hands.double_click("Label12");
    hands.see("the other double click hides them", hands.until([&] {
        return !hands.visible("Command_hyperterminal") && !hands.visible("Command_scarico");
    }));
}

} // namespace

void hand_line_to_terminal(Hands& hands, UnitProcess& unit) {
    bring_out_service_buttons(hands);
    hand_over(hands, unit, "Command_hyperterminal", "a terminal");
    {
        OtherProgram terminal(port());
        terminal.ask("\r", "> ", 3000); // what the hand-over left on the line
        const std::string said = terminal.ask("par 3\r", "> ", 3000);
        hands.see("a terminal program reads the gain",
                  said.find(line_of(unit, 3)) != std::string::npos);
        terminal.ask("par 102 44\r", "> ", 3000);
        given(hands, unit, "and sets a parameter", 102, 44);
        terminal.ask("restart\r", "> ", 500);
    }
    hands.see("its restart brings the unit back on the line",
              unit_becomes(hands, unit, "on the line"));
    hands.see("where the tool stays silent", !held_by_the_tool(port()));
    hide_service_buttons(hands);
}

void hand_line_to_download(Hands& hands, UnitProcess& unit) {
    bring_out_service_buttons(hands);
    hand_over(hands, unit, "Command_scarico", "sending its memory");
    constexpr int whole_memory_ms = 15000;
    OtherProgram download(port());
    // The rest of what still streams, or all of it once more: then from the beginning.
    const std::string rest = download.ask("\r", "END\r\n", whole_memory_ms);
    hands.see("the unit streams its memory as text", rest.ends_with("END\r\n"));
    const std::string memory = download.ask("\r", "END\r\n", whole_memory_ms);
    hands.see("and once more, from its head", memory.starts_with("\r\nMEMORY\r\nPAR_0 = "));
    int missing = 0;
    std::size_t from = 0;
    for (int number = 0; number < parameter_count; ++number) {
        // The time on gas goes on meanwhile.
        if (number == 27 || number == 28) continue;
        const std::size_t found = memory.find("\n" + line_of(unit, number), from);
        if (found == std::string::npos)
            ++missing;
        else
            from = found + 1;
    }
    hands.see("with every parameter in its line", missing == 0);
    hide_service_buttons(hands);
    unit.type("restart");
    hands.see("a restart brings the unit back on the line",
              unit_becomes(hands, unit, "on the line"));
}

} // namespace zol::tour

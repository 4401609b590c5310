#include "tests/process/tour/other_program.h"
#include "tests/process/tour/stages.h"

#include "app/application_folder.h"

namespace zol::tour {
namespace {

bool unit_is(Ui& ui, const std::string& state) {
    return ui.unit.answer("state", "unit ").find(state) != std::string::npos;
}

std::string line_of(Ui& ui, int number) {
    return "PAR_" + std::to_string(number) + " = " + std::to_string(ui.unit.parameter(number)) +
           "\r\n";
}

std::filesystem::path port() { return app::application_file("\\ports\\com1"); }

void show_service_buttons(Ui& ui) {
    ui.check("the service buttons are hidden at first", !ui.visible("Command_scarico"));
    ui.double_click("Label18");
    ui.expect("a double click shows them",
              [&] { return ui.visible("Command_hyperterminal") && ui.visible("Command_scarico"); });
    ui.screenshot("service-buttons");
}

void hand_over(Ui& ui, const char* button, const std::string& state) {
    ui.check("the tool has the port open", held_by_the_tool(port()));
    ui.click(button);
    ui.expect("the unit is " + state, [&] { return unit_is(ui, state); });
    ui.expect("the tool closes the port", [&] { return !held_by_the_tool(port()); });
    ui.check("values are not updated", !ui.values_flow(1500));
    ui.click(button);
    rest(2000);
    ui.check("a second press does not open the port", !held_by_the_tool(port()));
    ui.check("a second press does not change the unit", unit_is(ui, state));
    ui.screenshot(std::string(button) + "-pressed");
}

void hide_service_buttons(Ui& ui) {
    ui.double_click("Label12");
    ui.expect("another double click hides them", [&] {
        return !ui.visible("Command_hyperterminal") && !ui.visible("Command_scarico");
    });
}

} // namespace

void hand_line_to_terminal(Ui& ui) {
    show_service_buttons(ui);
    hand_over(ui, "Command_hyperterminal", "in terminal mode");
    {
        OtherProgram terminal(port());
        terminal.ask("\r", "> ", 3000); // skips what the hand-over has left on the line
        const std::string reply = terminal.ask("par 3\r", "> ", 3000);
        ui.check("a terminal program reads the gain",
                 reply.find(line_of(ui, 3)) != std::string::npos);
        terminal.ask("par 102 44\r", "> ", 3000);
        ui.given("a terminal program sets a parameter", 102, 44);
        terminal.ask("restart\r", "> ", 500);
    }
    ui.expect("a restart brings the unit back on the line",
              [&] { return unit_is(ui, "on the line"); });
    ui.check("the tool does not open the port again", !held_by_the_tool(port()));
    hide_service_buttons(ui);
}

void hand_line_to_download(Ui& ui) {
    show_service_buttons(ui);
    hand_over(ui, "Command_scarico", "sending its memory");
    constexpr int whole_memory_ms = 15000;
    OtherProgram download(port());
    // The rest of the output, or all of it again. The second reading begins at its start.
    const std::string rest = download.ask("\r", "END\r\n", whole_memory_ms);
    ui.check("the unit sends its memory as text", rest.ends_with("END\r\n"));
    const std::string memory = download.ask("\r", "END\r\n", whole_memory_ms);
    ui.check("the unit sends it again from the start",
             memory.starts_with("\r\nMEMORY\r\nPAR_0 = "));
    int missing = 0;
    std::size_t from = 0;
    for (int number = 0; number < parameter_count; ++number) {
        // The time on gas changes meanwhile.
        if (number == 27 || number == 28) continue;
        const std::size_t found = memory.find("\n" + line_of(ui, number), from);
        if (found == std::string::npos)
            ++missing;
        else
            from = found + 1;
    }
    ui.check("the memory has a line for each parameter", missing == 0);
    hide_service_buttons(ui);
    ui.unit.type("restart");
    ui.expect("a restart brings the unit back on the line",
              [&] { return unit_is(ui, "on the line"); });
}

} // namespace zol::tour

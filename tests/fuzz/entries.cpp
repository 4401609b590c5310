// Random text in every entry field, in the parameter boxes, tank gauge, acquisition, colour and
// port. Holds that a shown number reads as itself.
#include "app/app_state.h"
#include "app/numbers.h"
#include "app/settings_file.h"
#include "calibration/parameter_edit.h"
#include "maintenance/parameter_dump.h"
#include "monitor/tank_level.h"
#include "tests/fuzz/program.h"
#include "view/operator.h"
#include "view/view.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace zol::fuzz {
namespace {

namespace acts = view::operator_acts;

view::Widget* const fields[] = {
    &form1::Text_min_tank,
    &form1::Text_max_tank,
    &form1::text_temp_comm,
    &form1::Text_time_comm,
    &form1::Text_lambda_closed_loop,
    &form1::Text_lambda_open_loop,
    &form3::Text_rpm,
    &form3::Text_press_comm,
    &form3::Text_123,
    &form3::Text_124,
    &form3::Text1,
    &form3::Text2,
    &form3::Slider2,
};

// Types into a text box and presses Enter, whatever has the focus.
void enter(view::Widget& field, const std::string& text) {
    if (field.kind == view::Kind::text_box) {
        if (field.on.click) field.on.click();
        view::set_text(field, text);
    }
    if (field.on.key) field.on.key(acts::enter, 0);
}

void check_number_rules(const std::string& text) {
    const double number = app::val(text);
    require(std::isfinite(number), "whatever is typed is a number");
    const std::string shown = app::number_text(number);
    require(!shown.empty() && shown.size() < 400, "a number has a text");
    require(std::all_of(shown.begin(), shown.end(),
                        [](char c) { return (c >= '0' && c <= '9') || c == '.' || c == '-'; }),
            "a number is shown in digits");
    require(app::number_text(app::val(shown)) == shown, "a number that is shown reads as itself");
    app::round_half_even(number, 2);
}

void parameter_boxes(const std::string& number, const std::string& value) {
    Program& program = Program::instance();
    program.entries = {number, value, number, value};
    calibration::edit_parameter_by_number();
    maintenance::edit_parameter();
}

void tank(const std::string& lowest, const std::string& highest, int row) {
    enter(form1::Text_min_tank, lowest);
    enter(form1::Text_max_tank, highest);
    acts::drag_to(form1::Slider1[row % 5], app::val(lowest));
    monitor::percent_to_mv(app::val(highest));
}

void labels_with_numbers(const std::string& shown, const std::string& other) {
    view::set_text(acquisizione::Label1, shown);
    view::set_text(acquisizione::Label_max, other);
    acquisizione::Timer_ricerca_max.tick();
    acquisizione::Command_salva.on.click();
    view::set_text(form1::Label_rpm, shown);
    acts::key(form1::Form1, 71, acts::ctrl_key); // uses the shown speed
    form1::Timer_rpm.tick();
    view::set_text(form1::Label35, other);
    form1::Command_piu.on.click();
    form1::Command_meno.on.click();
}

void colour_and_port(const std::string& colour, const std::string& port, bool rarely) {
    app::state.text_colour = colour;
    form1::Timer4.tick();
    app::state.com_port_number = app::val(port);
    if (rarely) app::write_port(app::val(port)); // a file is written
    app::load_port();
}

void act(int which, const std::string& text, const std::string& other, bool rarely) {
    constexpr int others = 4;
    const int all = static_cast<int>(std::size(fields)) + others;
    which %= all;
    switch (which) {
    case 0: return parameter_boxes(text, other);
    case 1: return tank(text, other, static_cast<int>(text.size()));
    case 2: return labels_with_numbers(text, other);
    case 3: return colour_and_port(text, other, rarely);
    default: return enter(*fields[which - others], text);
    }
}

} // namespace

void run_input(Input input) {
    Program& program = Program::instance();
    const bool rarely = input.one_in(16);
    const int switches = input.byte();
    program.run([&] {
        app::state.ui_loading = switches & 1;
        app::state.on_gas = switches & 2;
        program.says_yes = !(switches & 4);
        program.port_faults = switches & 8;
        app::state.poll_enabled = switches & 16;
        for (int i = 0; i < 4 && !input.empty(); ++i) {
            const int which = input.byte();
            const std::string text = input.text_piece();
            const std::string other = input.text_piece();
            check_number_rules(text);
            act(which, text, other, rarely);
        }
    });
}

} // namespace zol::fuzz

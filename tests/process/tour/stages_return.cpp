#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

// A field, slider or option, and its parameter.
struct Shown {
    const char* name;
    int number;
    int value = 1; // at which the option is on
};

constexpr Shown engine_sliders[] = {
    {"Slider_ktar", 3}, {"Slider_power", 4}, {"Slider_attenuazione", 101}, {"Slider3", 52}};
constexpr Shown settings_fields[] = {
    {"text_temp_comm", 15}, {"Text_time_comm", 110}, {"Text_min_tank", 30}, {"Text_max_tank", 31}};
constexpr Shown lambda_fields[] = {{"Text_lambda_closed_loop", 36}, {"Text_lambda_open_loop", 16}};
constexpr Shown options[] = {{"Option_gpl", 10, 1},      {"Option_press_yes", 50, 1},
                             {"Opt_modulare_no", 23, 0}, {"Option_abi_controllo_lambda", 11, 1},
                             {"lambda_dir", 12, 1},      {"Option_tens", 21, 0},
                             {"Check1", 130, 99}};
constexpr Shown changeover_options[] = {
    {"opt_perm", 122, 1}, {"Option2", 41, 5}, {"Option_comm_auto_yes", 105, 1}};
constexpr Shown changeover_fields[] = {
    {"Text_rpm", 121}, {"Text_press_comm", 22}, {"Text_123", 123}, {"Text_124", 124}};

int given_value(Ui& ui, int number) { return ui.tally.given[static_cast<std::size_t>(number)]; }

void find_number(Ui& ui, const Shown& shown, const QString& text) {
    const int value = given_value(ui, shown.number);
    ui.check(std::string(shown.name) + " shows " + text.toStdString() + ", wanted " +
                 std::to_string(value),
             text == QString::number(value));
}

void find_option(Ui& ui, const Shown& shown, const QString& window = "Form1") {
    ui.check(std::string(shown.name) + " is on",
             ui.ticked(shown.name, window) && given_value(ui, shown.number) == shown.value);
}

} // namespace

void find_values_in_unit(Ui& ui) {
    for (int number = 0; number < parameter_count; ++number)
        if (const int value = given_value(ui, number); value != never_set)
            ui.given("found again", number, value);
}

void find_values_in_windows(Ui& ui) {
    for (const Shown& slider : engine_sliders)
        find_number(ui, slider, QString::number(ui.value(slider.name)));
    for (const Shown& option : options)
        find_option(ui, option);
    ui.go_to("Command_impostazioni", "Frame_impostazioni");
    for (const Shown& field : settings_fields)
        find_number(ui, field, ui.text(field.name));
    for (int row = 0; row < 4; ++row) {
        const std::string name = "Slider1(" + std::to_string(row) + ")";
        const QString slider = QString::fromStdString(name);
        find_number(ui, {name.c_str(), 32 + row}, QString::number(ui.value(slider)));
    }
    ui.screenshot("settings-found-again");
    ui.click("Command303");
    ui.wait_shown("Form3");
    rest(300);
    for (const Shown& option : changeover_options)
        find_option(ui, option, "Form3");
    for (const Shown& field : changeover_fields)
        find_number(ui, field, ui.text(field.name, "Form3"));
    ui.check("the petrol cut-off is shown in rpm", ui.text("Text1", "Form3") == "6780");
    ui.check("the time of the petrol cut-off is shown in milliseconds",
             ui.text("Text2", "Form3") == "200");
    ui.screenshot("changeover-found-again");
    ui.click("Command1", "Form3");
    ui.wait_gone("Form3");
    rest(500);
    ui.go_to("Command_lambda", "Frame_Lambda");
    for (const Shown& field : lambda_fields)
        find_number(ui, field, ui.text(field.name));
    ui.check("the chosen injector is ticked", ui.ticked("mnu_matrix_3_ohm"));
    ui.go_home();
}

} // namespace zol::tour

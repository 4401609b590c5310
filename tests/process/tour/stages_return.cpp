#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

// A value field, a slider or an option of the windows, and the parameter it stands for.
struct Shown {
    const char* name;
    int number;
    int value = 1; // at which an option is on
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

int given_value(Hands& hands, int number) {
    return hands.tally().given[static_cast<std::size_t>(number)];
}

void find_number(Hands& hands, const Shown& shown, const QString& text) {
    const int value = given_value(hands, shown.number);
    hands.see(std::string(shown.name) + " shows " + text.toStdString() + ", wanted " +
                  std::to_string(value),
              text == QString::number(value));
}

void find_option(Hands& hands, const Shown& shown, const QString& window = "Form1") {
    hands.see(std::string(shown.name) + " is on",
              hands.ticked(shown.name, window) && given_value(hands, shown.number) == shown.value);
}

} // namespace

void find_all_in_unit(Hands& hands, UnitProcess& unit) {
    for (int number = 0; number < parameter_count; ++number)
        if (const int value = given_value(hands, number); value != never_set)
            given(hands, unit, "found again", number, value);
}

void find_all_in_windows(Hands& hands, UnitProcess&) {
    for (const Shown& slider : engine_sliders)
        find_number(hands, slider, QString::number(hands.value(slider.name)));
    for (const Shown& option : options)
        find_option(hands, option);
    go_to(hands, "Command_impostazioni", "Frame_impostazioni");
    for (const Shown& field : settings_fields)
        find_number(hands, field, hands.text(field.name));
    for (int row = 0; row < 4; ++row) {
        const std::string name = "Slider1(" + std::to_string(row) + ")";
        const QString slider = QString::fromStdString(name);
        find_number(hands, {name.c_str(), 32 + row}, QString::number(hands.value(slider)));
    }
    hands.picture("settings-found-again");
    hands.click("Command303");
    hands.until([&] { return hands.shown("Form3"); });
    Hands::rest(300);
    for (const Shown& option : changeover_options)
        find_option(hands, option, "Form3");
    for (const Shown& field : changeover_fields)
        find_number(hands, field, hands.text(field.name, "Form3"));
    hands.see("the petrol cut-off is shown in rpm", hands.text("Text1", "Form3") == "6780");
    hands.see("and its time in milliseconds", hands.text("Text2", "Form3") == "200");
    hands.picture("changeover-found-again");
    hands.click("Command1", "Form3");
    hands.until([&] { return !hands.shown("Form3"); });
    Hands::rest(500);
    go_to(hands, "Command_lambda", "Frame_Lambda");
    for (const Shown& field : lambda_fields)
        find_number(hands, field, hands.text(field.name));
    hands.see("the injector chosen before is ticked", hands.ticked("mnu_matrix_3_ohm"));
    go_home(hands);
}

} // namespace zol::tour

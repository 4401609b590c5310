// The filling of the main window, once, three seconds after the connection dialog.
#include "monitor/polling.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;

class AfterDialog : public LogicTest {};

// The slider of the temperature correction writes in the middle, and waits.
TEST_F(AfterDialog, WindowIsFilledAfterThreeSeconds) {
    for (const auto& [number, value] :
         {std::pair{3, 1333}, {4, 1444}, {15, 41}, {52, 15}, {101, 30}, {110, 7}})
        set_parameter(number, value);
    port->silent = true;
    start_program();
    run_for(5000);
    ASSERT_TRUE(centralina_attiva::Centralina_Attiva.shown);
    port->silent = false;
    operator_clicks(centralina_attiva::Command_test, 2000ms);
    operator_clicks(centralina_attiva::Command_ok);
    while (centralina_attiva::Centralina_Attiva.loaded)
        run_for(10);
    run_for(2980);
    EXPECT_EQ(text(Text_time_comm), Text_time_comm.design.text);
    EXPECT_FALSE(view::enabled(Form1));
    run_for(240);
    EXPECT_EQ(view::value(Slider_ktar), 1333);
    EXPECT_EQ(Slider_ktar.look.selection_length, 332);
    EXPECT_EQ(view::value(Slider_power), 1444);
    EXPECT_EQ(Slider_power.look.selection_length, 443);
    EXPECT_EQ(text(text_temp_comm), "41");
    EXPECT_EQ(view::value(Slider3), 15);
    EXPECT_EQ(view::value(Slider_attenuazione), 30);
    EXPECT_EQ(text(Label_attenuazione), "30") << "no dash on the dialog path";
    EXPECT_EQ(text(Text_time_comm), "7");
    EXPECT_TRUE(view::enabled(Form1));
    EXPECT_EQ(Form1.look.state, view::WindowState::maximised);
    EXPECT_EQ(Form1.look.pointer, view::Pointer::normal);
    EXPECT_TRUE(focused(Text2));
    EXPECT_FALSE(state.ui_loading);
    EXPECT_FALSE(Timer1.is_on());
    EXPECT_THAT(writes(), ElementsAre(Write(52, 15)));
}

// The filling alone, from mirrors that the test sets.
class Filling : public LogicTest {
  protected:
    void SetUp() override { start_quietly(); }
    void fill() {
        inside_program([] { Timer1.on(); });
        run_for(3500);
    }
};

TEST_F(Filling, SetsTheWidgetsInTheirOrder) {
    mirrors.ktar_low = 1301;
    mirrors.ktar_high = 1302;
    mirrors.fuel_type = 0; // the unit's values are 1 here
    mirrors.changeover_temperature = 55;
    mirrors.tank_min_mv = 111;
    mirrors.tank_max_mv = 999;
    mirrors.pressure_sensor = 0;
    mirrors.attenuation = 70;
    mirrors.temperature_correction = 9;
    mirrors.changeover_time = 99;
    inside_program([] { view::set_text(Label_carburante, "?"); });
    std::vector<std::string> order;
    screen.on_changed = [&](view::Widget& widget, view::Aspect aspect) {
        const std::string name = view::full_name(widget);
        const bool blinks = name == "lbl_ore" || name == "Command5" || name == "led_rpm";
        // Some options change their own pointer and the window's before they write nothing.
        if (aspect == view::Aspect::pointer) return;
        if (blinks || widget.parent == &Frame_tank || !Timer1.is_on()) return;
        if (order.empty() || order.back() != name) order.push_back(name);
    };
    fill();
    EXPECT_THAT(order, ElementsAre("Slider_ktar", "Slider_power", "Option_gpl", "Option_metano",
                                   "Label_carburante", "text_temp_comm", "Option_press_yes",
                                   "Option_press_no", "Slider_attenuazione", "Label_attenuazione",
                                   "Slider3", "Text_time_comm"));
    EXPECT_THAT(frames(), ElementsAre(Write(52, 9))) << "all other handlers write nothing";
}

TEST_F(Filling, SelectsTheFuelOfTheUnit) {
    for (const int fuel : {0, 1, 0}) {
        mirrors.fuel_type = fuel;
        fill();
        EXPECT_EQ(view::selected(Option_gpl), fuel == 1);
        EXPECT_EQ(view::selected(Option_metano), fuel == 0);
    }
}

TEST_F(Filling, OtherFuelLeavesOptionsAndText) {
    const bool gpl = view::selected(Option_gpl);
    inside_program([] { view::set_text(Label_carburante, "as it was"); });
    mirrors.fuel_type = 2;
    fill();
    EXPECT_EQ(view::selected(Option_gpl), gpl);
    EXPECT_EQ(text(Label_carburante), "as it was");
}

TEST_F(Filling, ShowsACorrectionAbove20As10) {
    for (const auto& [correction, shown] :
         {std::pair{0, 0}, {10, 10}, {11, 11}, {15, 15}, {20, 20}, {21, 10}, {65535, 10}}) {
        mirrors.temperature_correction = correction;
        fill();
        EXPECT_EQ(view::value(Slider3), shown) << correction;
        EXPECT_EQ(Slider3.look.max, std::max(10, shown));
    }
}

TEST_F(Filling, GainsBeyondTheScaleLeaveTheSliders) {
    mirrors.ktar_low = 1500;
    fill();
    mirrors.ktar_low = 1801;
    mirrors.ktar_high = 1000;
    const double power = view::value(Slider_power);
    fill();
    EXPECT_EQ(view::value(Slider_ktar), 1500);
    EXPECT_EQ(view::value(Slider_power), power);
}

TEST_F(Filling, SelectsTheSenderOfTheTank) {
    state.tank_type = 3;
    inside_program([] { view::set_items(Combo_tank_level, {}); });
    fill();
    EXPECT_EQ(Combo_tank_level.look.items.size(), 6u);
    EXPECT_EQ(Combo_tank_level.look.list_index, 3);
    EXPECT_FALSE(view::selected(Check1));
    state.tank_type = 99;
    fill();
    EXPECT_EQ(Combo_tank_level.look.list_index, -1);
    EXPECT_TRUE(view::selected(Check1));
}

} // namespace
} // namespace zol::tests

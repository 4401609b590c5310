// What the window shows of one status telegram.
#include "monitor/status_telegram.h"

#include "tests/support/replies.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

class TelegramShown : public ReplyTest {
  protected:
    void SetUp() override {
        start_scripted();
        link::mirrors.fuel_type = 1;
        link::mirrors.pressure_sensor = 1;
    }
    static void unit_is(int version, double revision) {
        app::state.ecu_version = version;
        app::state.ecu_revision = revision;
    }
    static const std::string& battery() { return text(form1::Label20); }
    static const std::string& fuel() { return text(form1::Label_carburante); }
};

TEST_F(TelegramShown, EachFieldHasItsLabel) {
    show({.rpm = 851,
          .injection_time = 3102,
          .pressure = 1013,
          .lambda = 454,
          .ktar = 1235,
          .temperature = 86,
          .state_number = 7,
          .tank = 2048});
    const std::pair<view::Widget&, const char*> labels[] = {{form1::Label_rpm, "851"},
                                                            {form1::Label_tinj, "3102"},
                                                            {form1::LabeL_pressure, "1013"},
                                                            {form1::Label_lambda, "454"},
                                                            {form1::label_lambda_2, "454"},
                                                            {form1::Label_ktar, "1235"},
                                                            {form1::Label_temp, "86"},
                                                            {form1::Label_ct, "7"},
                                                            {form1::Label_level_attuale, "2048"},
                                                            {form1::label_liv2, "2048"}};
    for (const auto& [label, shown] : labels)
        EXPECT_EQ(text(label), shown) << label.name;
    EXPECT_EQ(app::state.engine_rpm, 851);
    EXPECT_EQ(app::state.gas_pressure, 1013);
    EXPECT_EQ(app::state.water_temperature, 86);
    EXPECT_EQ(app::state.lambda_sample, 454);
}

TEST_F(TelegramShown, WordsAreUnsignedWithTheHighByteFirst) {
    show({.rpm = 256, .injection_time = 65535, .temperature = 32768});
    EXPECT_EQ(text(form1::Label_rpm), "256");
    EXPECT_EQ(text(form1::Label_tinj), "65535");
    EXPECT_EQ(text(form1::Label_temp), "32768");
}

TEST_F(TelegramShown, PressureIsDashesWithoutASensor) {
    for (const int sensor : {0, 2}) {
        link::mirrors.pressure_sensor = sensor;
        show({.pressure = 1013 + sensor});
        EXPECT_EQ(text(form1::LabeL_pressure), "---   ");
        EXPECT_EQ(app::state.gas_pressure, 1013 + sensor) << "the number is kept";
    }
}

TEST_F(TelegramShown, HeartbeatFlipsWithEachGoodTelegram) {
    std::vector<view::Colour> colours;
    screen.on_changed = [&](view::Widget& widget, view::Aspect) {
        if (&widget == &form1::Shape2) colours.push_back(widget.look.back);
    };
    run_for(1400);
    ASSERT_EQ(colours.size(), 4u);
    EXPECT_EQ(colours[0] + colours[1], app::state.panel_colour + view::dark_red);
    EXPECT_NE(colours[0], colours[1]);
    EXPECT_EQ(colours[0], colours[2]);
    EXPECT_EQ(colours[1], colours[3]);
    telegram.echo = 9;
    run_for(400);
    colours.clear();
    run_for(5000);
    EXPECT_TRUE(colours.empty());
}

TEST_F(TelegramShown, HeartbeatOfAnyOtherColourTakesThePanels) {
    forget_wire();
    run_until_sent(1);
    inside_program([] { view::set_back(form1::Shape2, view::yellow); });
    run_until_sent(2);
    EXPECT_EQ(form1::Shape2.look.back, app::state.panel_colour);
}

TEST_F(TelegramShown, LambdaUpTo20IsShownAs0) {
    for (const auto& [sent, shown] : {std::pair{20, "0"}, {21, "21"}, {0, "0"}}) {
        show({.lambda = sent});
        EXPECT_EQ(text(form1::Label_lambda), shown);
        EXPECT_EQ(text(form1::label_lambda_2), shown);
        EXPECT_EQ(app::state.lambda_sample, sent);
    }
}

TEST_F(TelegramShown, BatteryIsShownFromVersion7Revision71On) {
    for (const auto& [version, revision] : {std::pair{7, 71}, {8, 71}}) {
        unit_is(version, revision);
        for (const auto& [sent, shown] :
             {std::pair{2373, "12.5"}, {2306, "12.15"}, {0, "0"}, {65535, "345.26"}}) {
            show({.battery = sent});
            EXPECT_EQ(battery(), std::string("Batt. ") + shown + "  Volts");
            EXPECT_TRUE(view::visible(form1::Label20));
        }
    }
}

TEST_F(TelegramShown, OlderUnitShowsNoBattery) {
    for (const auto& [version, revision] : {std::pair{7, 70}, {6, 71}, {6, 200}, {0, 0}}) {
        unit_is(version, revision);
        show({.battery = 2373});
        EXPECT_FALSE(view::visible(form1::Label20)) << version << "." << revision;
        EXPECT_EQ(battery(), "");
    }
}

TEST_F(TelegramShown, OlderUnitKeepsAShownBattery) {
    unit_is(7, 71);
    show({.battery = 2373});
    unit_is(7, 70);
    show({.battery = 2000});
    EXPECT_TRUE(view::visible(form1::Label20));
    EXPECT_EQ(battery(), "Batt. 12.5  Volts");
}

TEST_F(TelegramShown, ShortTelegramKeepsTheBatterysText) {
    show({.battery = std::nullopt});
    unit_is(7, 71);
    show({.battery = std::nullopt});
    EXPECT_TRUE(view::visible(form1::Label20));
    EXPECT_EQ(battery(), "");
    show({.battery = 2373});
    next_telegrams = {reply_of_length(Telegram{.rpm = 901}, 28)};
    telegram.battery.reset();
    run_for(1000);
    EXPECT_EQ(battery(), "Batt. 12.5  Volts");
}

struct FuelCase {
    int state = 0;
    const char* text = "";
    bool on_gas = false, gas_requested = false, no_press = false;
};
const FuelCase fuel_cases[] = {{.state = 0, .text = "PETROL"},
                               {.state = 1, .text = "LPG", .on_gas = true},
                               {.state = 2, .text = "CHANGEOVER", .gas_requested = true},
                               {.state = 3, .text = "CHANGEOVER"},
                               {.state = 4, .text = "CHANGEOVER"},
                               {.state = 5, .text = "NO PRESS", .no_press = true},
                               {.state = 6, .text = "CHANGEOVER"},
                               {.state = 65535, .text = "CHANGEOVER"}};

// Each state arrives with all flags off and with all on: those that it does not name keep theirs.
TEST_F(TelegramShown, EachFuelStateHasItsTextAndFlags) {
    for (const FuelCase& each : fuel_cases)
        for (const bool before : {false, true}) {
            SCOPED_TRACE(each.state);
            telegram.fuel_state = each.state;
            forget_wire();
            run_until_sent(1); // it has been read, and is shown when the wait is over
            app::state.on_gas = app::state.gas_requested = app::state.no_press = before;
            inside_program([] { view::set_text(form1::Label_carburante, "?"); });
            run_until_sent(2);
            const bool kept = before && each.state != 0;
            EXPECT_EQ(fuel(), each.text);
            EXPECT_EQ(app::state.on_gas, each.on_gas || kept);
            EXPECT_EQ(app::state.gas_requested, each.gas_requested);
            EXPECT_EQ(app::state.no_press, each.no_press || kept);
        }
}

TEST_F(TelegramShown, AnyGasButLpgIsCng) {
    for (const int fuel_type : {0, 2}) {
        link::mirrors.fuel_type = fuel_type;
        show({.fuel_state = 0});
        show({.fuel_state = 1});
        EXPECT_EQ(fuel(), "CNG");
    }
}

TEST_F(TelegramShown, FuelKeepsItsTextWithoutALanguageFile) {
    app::state.current_language = "xx";
    inside_program([] { view::set_text(form1::Label_carburante, "as it was"); });
    show({.fuel_state = 1});
    EXPECT_EQ(fuel(), "as it was");
    EXPECT_TRUE(app::state.on_gas);
    show({.fuel_state = 5});
    EXPECT_EQ(fuel(), "NO PRESS");
}

TEST_F(TelegramShown, FuelIsPaintedWhenItChangesOnly) {
    show({.fuel_state = 1});
    follow({&form1::Label_carburante});
    run_for(3500);
    EXPECT_EQ(changes.size(), 0u);
    show({.fuel_state = 0});
    EXPECT_EQ(changes.size(), 1u);
}

TEST_F(TelegramShown, CalibrationPressureIsUpdated) {
    link::mirrors.calibration_pressure = 1987;
    show({});
    EXPECT_EQ(text(form1::Label_pressione_taratura), "1987");
}

TEST_F(TelegramShown, GainsAreUpdatedFromTheirSliders) {
    inside_program([] {
        view::place_value(form1::Slider_ktar, 1313);
        view::place_value(form1::Slider_power, 1414);
    });
    show({});
    EXPECT_EQ(text(form1::Label27), "1313");
    EXPECT_EQ(text(form1::Label44), "1414");
}

TEST_F(TelegramShown, FieldsAreSetInTheirOrder) {
    unit_is(7, 71);
    show({.fuel_state = 1});
    std::vector<std::string> order;
    screen.on_changed = [&](view::Widget& widget, view::Aspect aspect) {
        if (aspect == view::Aspect::text || &widget == &form1::Shape2)
            order.push_back(view::full_name(widget));
    };
    telegram = {.rpm = 1,
                .injection_time = 1,
                .pressure = 1,
                .lambda = 99,
                .ktar = 1,
                .temperature = 1,
                .state_number = 1,
                .tank = 1,
                .fuel_state = 0,
                .battery = 1};
    forget_wire();
    run_until_sent(1);
    link::mirrors.calibration_pressure = 1;
    inside_program([] {
        view::place_value(form1::Slider_ktar, 1500);
        view::place_value(form1::Slider_power, 1501);
    });
    order.clear();
    run_until_sent(2);
    EXPECT_THAT(order, testing::ElementsAre("Shape2", "Label_rpm", "Label_tinj", "Label_lambda",
                                            "label_lambda_2", "Label_temp", "Label_level_attuale",
                                            "label_liv2", "Label20", "Label_ktar", "Label_ct",
                                            "LabeL_pressure", "Label_carburante",
                                            "Label_pressione_taratura", "Label27", "Label44"));
}

} // namespace
} // namespace zol::tests

// The settings panel: fuel, pressure sensor and modular changeover. Its number fields are in
// entry_fields_test.cpp.
#include "app/message_catalogue.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using link::mirrors;
using view::Pointer;

class FuelPanel : public LogicTest {
  protected:
    // Family 4 has the modular pair.
    FuelPanel() : LogicTest({.family = 4, .version = 7, .revision = 71}) {}

    // Also the temperature correction is written, which ignores the filling mark.
    std::vector<Frame> writes_while_reading_the_unit() {
        start_program();
        run_for(15'000);
        std::vector<Frame> all = writes();
        std::erase_if(all, [](const Frame& frame) { return frame.number == 52; });
        return all;
    }
};

struct FuelOption {
    view::Widget& option;
    std::vector<Timed> sent;
    std::int64_t end_ms;
};
void PrintTo(const FuelOption& it, std::ostream* out) { *out << it.option.name; }

const FuelOption fuel_options[] = {
    {Option_metano,
     {At(0, Write(10, 0)), At(300, Write(51, 60)), At(900, Write(129, 1001)),
      At(1400, Write(144, 92)), At(1900, Write(104, 1200))},
     2200},
    {Option_gpl,
     {At(0, Write(10, 1)), At(500, Write(104, 1600)), At(700, Write(144, 100)),
      At(1400, Write(128, 0))},
     2200},
    {Option_press_no, {At(0, Write(50, 0))}, 200},
    {Option_press_yes, {At(0, Write(50, 1))}, 200},
    {Opt_modulare_yes, {At(0, Write(23, 1))}, 300},
};

class FuelOptions : public FuelPanel, public testing::WithParamInterface<FuelOption> {
  protected:
    view::Widget& option = GetParam().option;

    void expect_busy_until_end() {
        EXPECT_TRUE(busy(Form1));
        EXPECT_TRUE(busy(option));
        EXPECT_EQ(ms_until([this] { return !busy(option); }), GetParam().end_ms);
        EXPECT_EQ(option.look.pointer, Pointer::custom);
        EXPECT_EQ(Form1.look.pointer,
                  &option == &Opt_modulare_yes ? Pointer::custom : Pointer::normal);
    }
};

TEST_P(FuelOptions, WritesItsParameters) {
    open_settings();
    operator_clicks(option);
    expect_busy_until_end();
    run_for(3000);
    EXPECT_EQ(timed(), GetParam().sent);
    for (const Timed& each : GetParam().sent)
        EXPECT_EQ(unit->parameter(each.frame.number), each.frame.value);
}

TEST_P(FuelOptions, PulledCableLeavesItsTimes) {
    open_settings();
    operator_clicks(option);
    port->unplugged = true;
    expect_busy_until_end();
    EXPECT_EQ(frames().size(), 1u);
}

TEST_P(FuelOptions, WritesNothingDuringTheFilling) {
    open_settings();
    app::state.ui_loading = true;
    operator_clicks(option, 100ms);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_EQ(option.look.pointer, Pointer::custom);
    run_for(3000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(mirrors.fuel_type, 1);
    EXPECT_EQ(mirrors.pressure_sensor, 1);
    EXPECT_EQ(mirrors.modular_changeover, 0);
}

INSTANTIATE_TEST_SUITE_P(Each, FuelOptions, testing::ValuesIn(fuel_options),
                         [](const auto& tested) { return tested.param.option.name; });

// The reference time of LPG keeps its value.
TEST_F(FuelPanel, MethaneSetsItsGroupOfValues) {
    set_parameter(128, 777);
    open_settings();
    operator_clicks(Option_metano);
    EXPECT_EQ(text(Label_carburante), *app::message(1172));
    run_for(2200);
    EXPECT_EQ(mirrors.fuel_type, 0);
    EXPECT_EQ(mirrors.calibration_temperature, 60);
    EXPECT_EQ(mirrors.reference_ktar, 1001);
    EXPECT_EQ(mirrors.fuel_offset, 92);
    EXPECT_EQ(mirrors.calibration_pressure, 1200);
    EXPECT_EQ(unit->parameter(128), 777);
    EXPECT_EQ(mirrors.reference_inj_threshold, 777);
    EXPECT_TRUE(focused(cmd_focus));
}

TEST_F(FuelPanel, FillingDuringMethanesWaitsChangesNothing) {
    open_settings();
    operator_clicks(Option_metano, 1000ms);
    app::state.ui_loading = true;
    run_for(1200);
    EXPECT_EQ(frames().size(), 5u);
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_EQ(Option_metano.look.pointer, Pointer::custom);
}

// Temperature and reference gain keep what methane has set.
TEST_F(FuelPanel, LpgSetsItsGroupOfValues) {
    set_parameter(10, 0);
    set_parameter(51, 60);
    set_parameter(128, 777);
    open_settings();
    operator_clicks(Option_gpl);
    EXPECT_EQ(text(Label_carburante), *app::message(1171));
    const view::Widget* before = view::focus();
    run_for(2200);
    EXPECT_EQ(view::focus(), before) << "unlike methane it leaves the focus";
    EXPECT_EQ(mirrors.fuel_type, 1);
    EXPECT_EQ(mirrors.fuel_offset, 100);
    EXPECT_EQ(mirrors.reference_inj_threshold, 0);
    EXPECT_EQ(unit->parameter(51), 60);
    EXPECT_EQ(unit->parameter(129), 1001);
}

TEST_F(FuelPanel, LpgShowsAnotherPressureThanItSends) {
    open_settings();
    operator_clicks(Option_gpl, 2200ms);
    EXPECT_EQ(mirrors.calibration_pressure, 1200);
    EXPECT_EQ(unit->parameter(104), 1600);
}

TEST_F(FuelPanel, ReadingAnLpgUnitSelectsLpg) {
    EXPECT_THAT(writes_while_reading_the_unit(), IsEmpty());
    EXPECT_TRUE(view::selected(Option_gpl));
}

TEST_F(FuelPanel, ReadingAMethaneUnitSelectsMethane) {
    set_parameter(10, 0);
    EXPECT_THAT(writes_while_reading_the_unit(), IsEmpty());
    EXPECT_TRUE(view::selected(Option_metano));
    EXPECT_EQ(Option_metano.look.pointer, Pointer::custom);
}

// The option, which writes nothing here, restores the pointer that the reading has changed.
TEST_F(FuelPanel, MethaneUnitEndsTheHourglassOfItsReading) {
    set_parameter(10, 0);
    bool busy_before = false;
    std::vector<Pointer> seen;
    screen.on_changed = [&](view::Widget& widget, view::Aspect aspect) {
        if (&widget == &Option_metano && aspect == view::Aspect::value) busy_before = busy(Form1);
        if (&widget == &text_temp_comm) seen.push_back(Form1.look.pointer);
    };
    start_program();
    run_for(15'000);
    EXPECT_TRUE(busy_before);
    EXPECT_EQ(seen.at(0), Pointer::normal);
}

TEST_F(FuelPanel, OnlyTheAbsenceOfTheSensorMovesTheFocus) {
    open_settings();
    operator_clicks(Option_press_no, 200ms);
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_EQ(mirrors.pressure_sensor, 0);
    operator_clicks(Option_press_yes, 200ms);
    EXPECT_TRUE(focused(Option_press_yes));
    EXPECT_EQ(mirrors.pressure_sensor, 1);
}

TEST_F(FuelPanel, ModularChangeoverIsWrittenWhenItChangesOnly) {
    open_settings();
    ASSERT_TRUE(view::visible(Frame2));
    const auto writes_of = [this](view::Widget& option) {
        mark();
        operator_clicks(option, 1000ms);
        EXPECT_EQ(option.look.pointer, Pointer::custom);
        return frames();
    };
    EXPECT_THAT(writes_of(Opt_modulare_yes), ElementsAre(Write(23, 1)));
    EXPECT_THAT(writes_of(Opt_modulare_yes), IsEmpty());
    EXPECT_EQ(mirrors.modular_changeover, 1);
    EXPECT_THAT(writes_of(Opt_modulare_no), ElementsAre(Write(23, 0)));
    EXPECT_THAT(writes_of(Opt_modulare_no), IsEmpty());
    EXPECT_EQ(mirrors.modular_changeover, 0);
    EXPECT_EQ(Form1.look.pointer, Pointer::custom);
}

TEST_F(FuelPanel, ModularMirrorIsSetAfterTheWrite) {
    open_settings();
    operator_clicks(Opt_modulare_yes);
    EXPECT_EQ(ms_until([] { return mirrors.modular_changeover == 1; }), 300);
}

TEST_F(FuelPanel, ModularOptionsLoadTheirCaptionsWhenClicked) {
    open_settings();
    for (const auto& [option, caption] :
         {std::pair{&Opt_modulare_yes, "yes"}, {&Opt_modulare_no, "no"}}) {
        view::set_text(*option, "?");
        operator_clicks(*option);
        EXPECT_EQ(text(*option), caption);
        run_for(1000);
    }
}

TEST_F(FuelPanel, OtherModularValuesAreLeftAlone) {
    open_settings();
    mirrors.modular_changeover = 2;
    for (auto* option : {&Opt_modulare_yes, &Opt_modulare_no}) {
        operator_clicks(*option, 1000ms);
    }
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(mirrors.modular_changeover, 2);
}

TEST_F(FuelPanel, FieldLeavesAClosedPortClosed) {
    open_settings();
    port->close();
    operator_enters(text_temp_comm, "45", 1000ms);
    EXPECT_FALSE(port->is_open());
    EXPECT_TRUE(view::enabled(text_temp_comm));
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(FuelPanel, FieldMovesTheFocusAtItsEnd) {
    open_settings();
    for (view::Widget* field : {&text_temp_comm, &Text_time_comm, &Text_max_tank, &Text_min_tank}) {
        operator_enters(*field, "45", 2000ms);
        EXPECT_TRUE(focused(cmd_focus)) << field->name;
    }
}

} // namespace
} // namespace zol::tests

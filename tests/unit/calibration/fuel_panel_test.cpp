// Fuel, pressure sensor, and the conditions of the changeover on the settings panel.
#include "app/message_catalogue.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using link::mirrors;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class FuelPanel : public LogicTest {
  protected:
    // Family 4 has the modular pair on view.
    FuelPanel() : LogicTest(sim::Options{.family = 4, .version = 7, .revision = 71}) {}

    // But for the temperature correction, which heeds no filling.
    std::vector<Frame> other_writes() const {
        std::vector<Frame> all = writes();
        std::erase_if(all, [](const Frame& frame) { return frame.number == 52; });
        return all;
    }

    // The pointers of form and option until `total_ms` after the click, and behind it.
    void expect_busy_for(view::Widget& option, int total_ms) {
        EXPECT_TRUE(busy(Form1));
        EXPECT_TRUE(busy(option));
        run_for(total_ms - 1);
        EXPECT_TRUE(busy(Form1));
        EXPECT_TRUE(busy(option));
        run_for(1);
        EXPECT_EQ(option.look.pointer, Pointer::custom);
    }
};

TEST_F(FuelPanel, MethaneBringsItsGroupOfParametersAlong) {
    unit->set_parameter(128, 777);
    open_settings();
    operator_clicks(Option_metano);
    EXPECT_EQ(text(Label_carburante), *app::message(1172));
    expect_busy_for(Option_metano, 2200);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_THAT(timed(),
                ElementsAre(At(0, Write(10, 0)), At(300, Write(51, 60)), At(900, Write(129, 1001)),
                            At(1400, Write(144, 92)), At(1900, Write(104, 1200))));
    EXPECT_EQ(mirrors.fuel_type, 0);
    EXPECT_EQ(mirrors.calibration_temperature, 60);
    EXPECT_EQ(mirrors.reference_ktar, 1001);
    EXPECT_EQ(mirrors.fuel_offset, 92);
    EXPECT_EQ(mirrors.calibration_pressure, 1200);
    EXPECT_EQ(unit->parameter(128), 777); // stays as it was
    EXPECT_EQ(mirrors.reference_inj_threshold, 777);
}

TEST_F(FuelPanel, AFillingThatBeginsInMethanesWaitsTakesNothingFromItsEnd) {
    open_settings();
    operator_clicks(Option_metano);
    run_for(1000);
    app::state.ui_loading = true;
    run_for(1200);
    EXPECT_EQ(frames().size(), 5u);
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_EQ(Option_metano.look.pointer, Pointer::custom);
}

TEST_F(FuelPanel, LpgBringsItsOwnAndAnotherPressureThanTheScreenShows) {
    unit->set_parameter(10, 0);
    unit->set_parameter(51, 60);
    unit->set_parameter(128, 777);
    open_settings();
    operator_clicks(Option_gpl);
    EXPECT_EQ(text(Label_carburante), *app::message(1171));
    const view::Widget* before = view::focus();
    expect_busy_for(Option_gpl, 2200);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_EQ(view::focus(), before); // unlike methane it leaves the focus
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(10, 1)), At(500, Write(104, 1600)),
                                     At(700, Write(144, 100)), At(1400, Write(128, 0))));
    EXPECT_EQ(mirrors.fuel_type, 1);
    EXPECT_EQ(mirrors.calibration_pressure, 1200);
    EXPECT_EQ(unit->parameter(104), 1600);
    EXPECT_EQ(mirrors.fuel_offset, 100);
    EXPECT_EQ(mirrors.reference_inj_threshold, 0);
    EXPECT_EQ(unit->parameter(51), 60); // nothing goes back to what it was before methane
    EXPECT_EQ(unit->parameter(129), 1001);
}

TEST_F(FuelPanel, NothingGoesOutWhileTheProgramFillsItsWindow) {
    open_settings();
    app::state.ui_loading = true;
    for (auto* option : {&Option_metano, &Option_gpl, &Option_press_no, &Option_press_yes,
                         &Opt_modulare_yes, &Opt_modulare_no}) {
        operator_clicks(*option);
        run_for(100);
        EXPECT_EQ(Form1.look.pointer, Pointer::normal) << option->name;
        EXPECT_EQ(option->look.pointer, Pointer::custom) << option->name;
    }
    run_for(3000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(mirrors.fuel_type, 1);
    EXPECT_EQ(mirrors.pressure_sensor, 1);
}

TEST_F(FuelPanel, ReadingAnLpgUnitSelectsLpgAndWritesNothing) {
    start_program();
    run_for(15000);
    EXPECT_TRUE(view::selected(Option_gpl));
    EXPECT_THAT(other_writes(), IsEmpty());
}

TEST_F(FuelPanel, ReadingAMethaneUnitSelectsMethaneAndWritesNothing) {
    unit->set_parameter(10, 0);
    start_program();
    run_for(15000);
    EXPECT_TRUE(view::selected(Option_metano));
    EXPECT_EQ(Option_metano.look.pointer, Pointer::custom);
    EXPECT_THAT(other_writes(), IsEmpty());
}

// The option, silenced, gives the pointer back that the reading has taken.
TEST_F(FuelPanel, AMethaneUnitEndsTheHourglassInTheMiddleOfItsReading) {
    unit->set_parameter(10, 0);
    bool busy_before = false;
    std::vector<Pointer> seen;
    screen.on_changed = [&](view::Widget& widget, view::Aspect aspect) {
        if (&widget == &Option_metano && aspect == view::Aspect::value) busy_before = busy(Form1);
        if (&widget == &text_temp_comm) seen.push_back(Form1.look.pointer);
    };
    start_program();
    run_for(15000);
    EXPECT_TRUE(busy_before);
    EXPECT_EQ(seen.at(0), Pointer::normal);
}

TEST_F(FuelPanel, ThePressureSensorIsWrittenAndOnlyItsAbsenceMovesTheFocus) {
    open_settings();
    operator_clicks(Option_press_no);
    expect_busy_for(Option_press_no, 200);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(50, 0))));
    EXPECT_EQ(mirrors.pressure_sensor, 0);
    mark();
    operator_clicks(Option_press_yes);
    expect_busy_for(Option_press_yes, 200);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(focused(Option_press_yes));
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(50, 1))));
    EXPECT_EQ(mirrors.pressure_sensor, 1);
}

TEST_F(FuelPanel, TheModularChangeoverIsWrittenOnlyWhenItReallyChanges) {
    open_settings();
    ASSERT_TRUE(view::visible(Frame2));
    view::set_text(Opt_modulare_yes, "?");
    view::set_text(Opt_modulare_no, "?");
    operator_clicks(Opt_modulare_yes);
    EXPECT_EQ(mirrors.modular_changeover, 0); // only behind the write
    EXPECT_EQ(text(Opt_modulare_yes), "yes"); // before it
    expect_busy_for(Opt_modulare_yes, 300);
    EXPECT_EQ(Form1.look.pointer, Pointer::custom);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(23, 1))));
    EXPECT_EQ(mirrors.modular_changeover, 1);
    EXPECT_EQ(text(Opt_modulare_yes), "yes");
    mark();
    operator_clicks(Opt_modulare_yes);
    run_for(1000);
    EXPECT_THAT(frames(), IsEmpty());
    operator_clicks(Opt_modulare_no);
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(23, 0)));
    EXPECT_EQ(mirrors.modular_changeover, 0);
    EXPECT_EQ(text(Opt_modulare_no), "no");
    mark();
    operator_clicks(Opt_modulare_no);
    run_for(1000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(Form1.look.pointer, Pointer::custom);
    EXPECT_EQ(Opt_modulare_no.look.pointer, Pointer::custom);
}

TEST_F(FuelPanel, AModularValueThatIsNeitherYesNorNoIsLeftAlone) {
    open_settings();
    mirrors.modular_changeover = 2;
    for (auto* option : {&Opt_modulare_yes, &Opt_modulare_no}) {
        operator_clicks(*option);
        run_for(1000);
    }
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(mirrors.modular_changeover, 2);
}

TEST_F(FuelPanel, TemperatureAndTimeAreMarkedByAClickAndWrittenByEnter) {
    open_settings();
    const std::tuple<view::Widget*, int, double*> fields[] = {
        {&text_temp_comm, 15, &mirrors.changeover_temperature},
        {&Text_time_comm, 110, &mirrors.changeover_time}};
    for (const auto& [field, parameter, mirror] : fields) {
        SCOPED_TRACE(field->name);
        operator_clicks(*field);
        EXPECT_EQ(text(*field), "");
        EXPECT_EQ(field->look.back, 8421631);
        operator_types(*field, "45x");
        operator_presses(Form1, '5');
        run_for(1000);
        mark();
        operator_presses(Form1, 13);
        EXPECT_FALSE(view::enabled(*field));
        EXPECT_TRUE(busy(Form1));
        EXPECT_EQ(field->look.back, 16777215);
        EXPECT_FALSE(field->look.edit_marker);
        run_for(199);
        EXPECT_FALSE(view::enabled(*field));
        run_for(1);
        EXPECT_TRUE(view::enabled(*field));
        EXPECT_EQ(Form1.look.pointer, Pointer::normal);
        EXPECT_TRUE(focused(cmd_focus));
        EXPECT_THAT(timed(), ElementsAre(At(0, Write(parameter, 45))));
        EXPECT_EQ(*mirror, 45);
    }
}

TEST_F(FuelPanel, AClosedPortStaysClosed) {
    open_settings();
    port->close();
    operator_enters(text_temp_comm, "45");
    run_for(1000);
    EXPECT_FALSE(port->is_open());
    EXPECT_TRUE(view::enabled(text_temp_comm));
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(FuelPanel, ACablePulledInTheMiddleLetsEachSequenceRunThroughItsWaits) {
    open_settings();
    const std::pair<view::Widget*, int> options[] = {{&Option_metano, 2200},
                                                     {&Option_gpl, 2200},
                                                     {&Option_press_no, 200},
                                                     {&Option_press_yes, 200},
                                                     {&Opt_modulare_yes, 300}};
    for (const auto& [option, total_ms] : options) {
        SCOPED_TRACE(option->name);
        port->unplugged = false;
        mark();
        operator_clicks(*option);
        port->unplugged = true;
        expect_busy_for(*option, total_ms);
        EXPECT_FALSE(busy(Form1));
        EXPECT_EQ(frames().size(), 1u);
    }
    operator_enters(Text_time_comm, "30");
    run_for(200);
    EXPECT_TRUE(view::enabled(Text_time_comm));
    EXPECT_TRUE(focused(cmd_focus));
}

} // namespace
} // namespace zol::tests

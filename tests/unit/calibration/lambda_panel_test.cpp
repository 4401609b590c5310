// The settings of the lambda panel, beside its own read of the line.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using link::mirrors;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class LambdaPanel : public LogicTest {
  protected:
    // Family 3 shows both kinds of sensor, and has no second telegram that this panel's read cuts
    // into.
    LambdaPanel() : LogicTest(sim::Options{.family = 3, .version = 7, .revision = 71}) {}

    void open_lambda() {
        start_connected();
        operator_clicks(Command_lambda);
        run_for(2000);
        mark();
    }
    // The frames of the panel's own read stop for as long as a write holds them off.
    void expect_reads_again() {
        mark();
        run_for(1000);
        EXPECT_GE(frames().size(), 9u);
        EXPECT_THAT(frames(), testing::Each(Send(3)));
    }
};

TEST_F(LambdaPanel, DirectionAndControlHoldTheReadsOffAndWriteOnce) {
    open_lambda();
    struct Case {
        view::Widget& option;
        int parameter, value;
        double& mirror;
        bool hourglass_at_once;
    };
    const Case cases[] = {
        {lambda_inv, 12, 0, mirrors.lambda_direction, true},
        {lambda_dir, 12, 1, mirrors.lambda_direction, true},
        {Option_abi_controllo_lambda, 11, 1, mirrors.lambda_control, false},
        {Option_disa_controllo_lambda, 11, 0, mirrors.lambda_control, false},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.option.name);
        mark();
        operator_clicks(each.option);
        EXPECT_FALSE(Timer3.is_on());
        EXPECT_EQ(busy(Form1), each.hourglass_at_once);
        run_for(199);
        EXPECT_NE(each.mirror, each.value);
        run_for(1);
        EXPECT_EQ(each.mirror, each.value);
        run_for(199);
        EXPECT_TRUE(busy(Form1));
        EXPECT_FALSE(Timer3.is_on());
        run_for(1);
        EXPECT_TRUE(Timer3.is_on());
        EXPECT_EQ(Form1.look.pointer, Pointer::normal);
        EXPECT_TRUE(focused(cmd_focus));
        EXPECT_THAT(timed(), ElementsAre(At(200, Write(each.parameter, each.value))));
        EXPECT_EQ(unit->parameter(each.parameter), each.value);
        expect_reads_again();
    }
}

TEST_F(LambdaPanel, AVoltageSensorBringsBothLimitsTo400) {
    unit->set_parameter(21, 1);
    open_lambda();
    operator_clicks(Option_tens);
    EXPECT_FALSE(busy(Form1));
    EXPECT_FALSE(Timer3.is_on());
    run_for(200);
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(text(Text_lambda_closed_loop), "400");
    EXPECT_EQ(mirrors.lambda_open_loop_max, 400);
    EXPECT_EQ(mirrors.lambda_input_kind, 1);
    run_for(599);
    EXPECT_TRUE(busy(Form1));
    EXPECT_FALSE(Timer3.is_on());
    run_for(1);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(Timer3.is_on());
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_EQ(text(Text_lambda_open_loop), "400");
    EXPECT_EQ(mirrors.lambda_input_kind, 0);
    EXPECT_THAT(timed(), ElementsAre(At(200, Write(36, 400)), At(400, Write(16, 400)),
                                     At(600, Write(21, 0))));
    expect_reads_again();
}

TEST_F(LambdaPanel, ACurrentSensorBringsBothTo1000SlowerAndWithALateHourglass) {
    open_lambda();
    operator_clicks(Option_corr);
    EXPECT_FALSE(Timer3.is_on());
    run_for(500);
    EXPECT_EQ(text(Text_lambda_closed_loop), "1000");
    EXPECT_NE(text(Text_lambda_open_loop), "1000");
    EXPECT_EQ(mirrors.lambda_closed_loop_max, 1000);
    run_for(500);
    EXPECT_EQ(text(Text_lambda_open_loop), "1000");
    EXPECT_EQ(mirrors.lambda_open_loop_max, 1000);
    run_for(499);
    EXPECT_FALSE(busy(Form1));
    run_for(1);
    EXPECT_TRUE(busy(Form1));
    EXPECT_EQ(mirrors.lambda_input_kind, 1);
    run_for(499);
    EXPECT_TRUE(busy(Form1));
    EXPECT_FALSE(Timer3.is_on());
    run_for(1);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_TRUE(focused(cmd_focus));
    EXPECT_THAT(timed(), ElementsAre(At(500, Write(36, 1000)), At(1000, Write(16, 1000)),
                                     At(1500, Write(21, 1))));
    expect_reads_again();
}

TEST_F(LambdaPanel, NoOptionWritesWhileTheProgramFillsItsWindow) {
    open_lambda();
    app::state.ui_loading = true;
    for (auto* option : {&lambda_inv, &lambda_dir, &Option_abi_controllo_lambda,
                         &Option_disa_controllo_lambda, &Option_corr, &Option_tens}) {
        operator_clicks(*option);
        EXPECT_TRUE(Timer3.is_on());
        EXPECT_EQ(Form1.look.pointer, Pointer::normal);
        run_for(2500);
    }
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_NE(text(Text_lambda_closed_loop), "1000");
    operator_enters(Text_lambda_open_loop, "333"); // the fields write all the same
    run_for(1000);
    EXPECT_THAT(writes(), ElementsAre(Write(16, 333)));
}

TEST_F(LambdaPanel, EachLimitIsMarkedByAClickAndWrittenByEnter) {
    open_lambda();
    const std::tuple<view::Widget*, int, double*> fields[] = {
        {&Text_lambda_closed_loop, 36, &mirrors.lambda_closed_loop_max},
        {&Text_lambda_open_loop, 16, &mirrors.lambda_open_loop_max}};
    for (const auto& [field, parameter, mirror] : fields) {
        SCOPED_TRACE(field->name);
        operator_clicks(*field);
        EXPECT_EQ(text(*field), "");
        EXPECT_EQ(field->look.back, 8421631);
        EXPECT_TRUE(field->look.edit_marker);
        operator_types(*field, "450");
        operator_presses(Form1, '0');
        run_for(500);
        EXPECT_TRUE(Timer3.is_on());
        mark();
        operator_presses(Form1, 13);
        EXPECT_FALSE(Timer3.is_on());
        EXPECT_TRUE(view::enabled(*field)); // locked only behind the first wait
        EXPECT_FALSE(busy(Form1));
        EXPECT_EQ(field->look.back, 8421631);
        run_for(200);
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
        EXPECT_TRUE(Timer3.is_on());
        EXPECT_THAT(timed(), ElementsAre(At(200, Write(parameter, 450))));
        EXPECT_EQ(*mirror, 450);
        expect_reads_again();
    }
}

TEST_F(LambdaPanel, ALimitEnteredDuringALongWaitEndsThatWaitWithItsOwn) {
    open_lambda();
    for (auto* field : {&Text_lambda_closed_loop, &Text_lambda_open_loop}) {
        bool over = false;
        inside_program([&over] {
            view::wait_on(Timer2, 60000);
            over = true;
        });
        operator_enters(*field, "500");
        run_for(399);
        EXPECT_FALSE(over);
        run_for(1);
        EXPECT_TRUE(over) << field->name;
    }
}

TEST_F(LambdaPanel, ACablePulledInTheMiddleLetsEachSequenceRunThroughItsWaits) {
    open_lambda();
    const std::pair<view::Widget*, int> options[] = {{&lambda_inv, 400},
                                                     {&Option_abi_controllo_lambda, 400},
                                                     {&Option_corr, 2000},
                                                     {&Option_tens, 800}};
    for (const auto& [option, total_ms] : options) {
        SCOPED_TRACE(option->name);
        port->unplugged = false;
        mark();
        operator_clicks(*option);
        port->unplugged = true;
        run_for(total_ms - 1);
        EXPECT_TRUE(busy(Form1));
        EXPECT_FALSE(Timer3.is_on());
        run_for(1);
        EXPECT_EQ(Form1.look.pointer, Pointer::normal);
        EXPECT_TRUE(Timer3.is_on());
        EXPECT_TRUE(focused(cmd_focus));
        EXPECT_THAT(writes(), IsEmpty());
    }
    for (auto* field : {&Text_lambda_closed_loop, &Text_lambda_open_loop}) {
        operator_enters(*field, "500");
        run_for(399);
        EXPECT_FALSE(view::enabled(*field));
        run_for(1);
        EXPECT_TRUE(view::enabled(*field));
        EXPECT_TRUE(Timer3.is_on());
    }
    port->unplugged = false;
    expect_reads_again();
}

} // namespace
} // namespace zol::tests

// The settings of the lambda panel. Each stops the panel's own read of the line while it writes.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using link::mirrors;

class LambdaPanel : public LogicTest {
  protected:
    // Family 3 has both kinds of sensor, and no live data, whose reads delay those of the panel.
    LambdaPanel() : LogicTest({.family = 3, .version = 7, .revision = 71}) {}

    void open_panel() {
        start_connected();
        operator_clicks(Command_lambda, 2000ms);
        mark();
    }
    // The reads go on at this time, and everything is as before.
    void expect_end_at(std::int64_t end_ms) {
        EXPECT_FALSE(Timer3.is_on());
        run_for(end_ms - 1 - (now_ms() - marked_ms()));
        EXPECT_TRUE(busy(Form1));
        EXPECT_EQ(ms_until([] { return Timer3.is_on(); }), end_ms);
        EXPECT_EQ(Form1.look.pointer, view::Pointer::normal);
        EXPECT_TRUE(focused(cmd_focus));
    }
    void expect_reads_again() {
        const auto read = frames_in(1000);
        EXPECT_GE(read.size(), 9u);
        EXPECT_THAT(read, testing::Each(Send(3)));
    }
};

struct LambdaOption {
    view::Widget& option;
    std::vector<Timed> sent;
    std::int64_t hourglass_ms, end_ms;
    double& mirror;
};
void PrintTo(const LambdaOption& it, std::ostream* out) { *out << it.option.name; }

const LambdaOption lambda_options[] = {
    {lambda_inv, {At(200, Write(12, 0))}, 0, 400, mirrors.lambda_direction},
    {lambda_dir, {At(200, Write(12, 1))}, 0, 400, mirrors.lambda_direction},
    {Option_abi_controllo_lambda, {At(200, Write(11, 1))}, 200, 400, mirrors.lambda_control},
    {Option_disa_controllo_lambda, {At(200, Write(11, 0))}, 200, 400, mirrors.lambda_control},
    {Option_tens,
     {At(200, Write(36, 400)), At(400, Write(16, 400)), At(600, Write(21, 0))},
     200,
     800,
     mirrors.lambda_input_kind},
    {Option_corr,
     {At(500, Write(36, 1000)), At(1000, Write(16, 1000)), At(1500, Write(21, 1))},
     1500,
     2000,
     mirrors.lambda_input_kind},
};

class LambdaOptions : public LambdaPanel, public testing::WithParamInterface<LambdaOption> {
  protected:
    const LambdaOption& tested = GetParam();
};

TEST_P(LambdaOptions, WritesWithTheReadsStopped) {
    open_panel();
    tested.mirror = -1;
    operator_clicks(tested.option);
    EXPECT_FALSE(Timer3.is_on());
    EXPECT_EQ(ms_until([] { return busy(Form1); }), tested.hourglass_ms);
    expect_end_at(tested.end_ms);
    EXPECT_EQ(timed(), tested.sent);
    for (const Timed& each : tested.sent)
        EXPECT_EQ(unit->parameter(each.frame.number), each.frame.value);
    expect_reads_again();
}

TEST_P(LambdaOptions, SetsItsMirrorWithItsLastWrite) {
    open_panel();
    tested.mirror = -1;
    operator_clicks(tested.option);
    EXPECT_EQ(ms_until([&] { return tested.mirror != -1; }), tested.sent.back().ms);
    EXPECT_EQ(tested.mirror, tested.sent.back().frame.value);
}

TEST_P(LambdaOptions, PulledCableLeavesItsTimes) {
    open_panel();
    operator_clicks(tested.option);
    port->unplugged = true;
    expect_end_at(tested.end_ms);
    EXPECT_THAT(writes(), IsEmpty());
    port->unplugged = false;
    expect_reads_again();
}

TEST_P(LambdaOptions, WritesNothingDuringTheFilling) {
    open_panel();
    app::state.ui_loading = true;
    operator_clicks(tested.option);
    EXPECT_TRUE(Timer3.is_on());
    EXPECT_EQ(Form1.look.pointer, view::Pointer::normal);
    run_for(2500);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_NE(text(Text_lambda_closed_loop), "1000");
}

INSTANTIATE_TEST_SUITE_P(Each, LambdaOptions, testing::ValuesIn(lambda_options),
                         [](const auto& each) { return each.param.option.name; });

TEST_F(LambdaPanel, KindOfSensorSetsBothLimits) {
    open_panel();
    const std::tuple<view::Widget*, int, int, const char*> kinds[] = {
        {&Option_corr, 500, 1000, "1000"}, {&Option_tens, 200, 400, "400"}};
    for (const auto& [option, closed_loop_ms, open_loop_ms, limit] : kinds) {
        SCOPED_TRACE(option->name);
        const auto shows = [limit](const view::Widget& field) {
            return [&field, limit] { return text(field) == limit; };
        };
        mark();
        operator_clicks(*option);
        EXPECT_EQ(ms_until(shows(Text_lambda_closed_loop)), closed_loop_ms);
        EXPECT_EQ(ms_until(shows(Text_lambda_open_loop)), open_loop_ms);
        EXPECT_EQ(mirrors.lambda_closed_loop_max, std::stod(limit));
        EXPECT_EQ(mirrors.lambda_open_loop_max, std::stod(limit));
        run_for(3000);
    }
}

TEST_F(LambdaPanel, LimitIsWrittenWithTheReadsStopped) {
    open_panel();
    for (auto* field : {&Text_lambda_closed_loop, &Text_lambda_open_loop}) {
        mark();
        operator_enters(*field, "450");
        EXPECT_FALSE(busy(Form1)) << "only after the first wait";
        expect_end_at(400);
        EXPECT_EQ(writes().size(), frames().size());
        expect_reads_again();
    }
}

TEST_F(LambdaPanel, LimitIsWrittenDuringTheFilling) {
    open_panel();
    app::state.ui_loading = true;
    operator_enters(Text_lambda_open_loop, "333", 1000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(16, 333)));
}

TEST_F(LambdaPanel, LimitEndsALongerWaitWithItsOwn) {
    open_panel();
    for (auto* field : {&Text_lambda_closed_loop, &Text_lambda_open_loop}) {
        bool over = false;
        inside_program([&over] {
            view::wait_on(Timer2, 60'000);
            over = true;
        });
        mark();
        operator_enters(*field, "500");
        EXPECT_EQ(ms_until([&over] { return over; }), 400) << field->name;
    }
}

} // namespace
} // namespace zol::tests

// Reads that repeat until their answer comes, and what else would read beside them: they have the
// line to themselves, whatever is switched on meanwhile.
#include "monitor/polling.h"
#include "tests/support/panel_bench.h"
#include "view/windows/acquisizione.h"

namespace zol::tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using view::Answer;

class Asking : public PanelBench, public testing::WithParamInterface<int> {
  protected:
    Asking() { use_unit({.family = GetParam(), .warm = true}); }

    std::size_t asked(int command) const {
        const auto all = frames();
        return static_cast<std::size_t>(std::count(all.begin(), all.end(), Send(command)));
    }
    std::string dump() { return read_text("log/setting.txt"); }
    // From the line, as a fitter would hear it: how long until `seen`, at most `most_ms`.
    bool within(std::int64_t most_ms, const std::function<bool()>& seen) {
        for (std::int64_t ms = 0; ms < most_ms && !seen(); ms += 100)
            run_for(100);
        return seen();
    }
};

// The engine button is within reach while the program reads the unit, and starts the polling.
TEST_P(Asking, ThePollingStartedInTheMiddleOfTheFirstReadWaitsForItsEnd) {
    start_program();
    run_for(2000);
    operator_clicks(form1::Command_engine);
    EXPECT_TRUE(within(10'000, [] { return view::focus() == &form1::Text2; }));
    // One poll may stand in the button's own wait and take the version.
    EXPECT_LE(asked(7), 2u);
    EXPECT_EQ(asked(1), 1u) << "one image";
    EXPECT_EQ(link::mirrors.ktar_low, unit->parameter(3));
    run_for(3000);
    EXPECT_GT(asked(3), 3u) << "then it polls";
}

TEST_P(Asking, AButtonPressedInTheMiddleOfTheFirstReadLetsItWriteNothing) {
    unit->set_parameter(52, 7);
    unit->set_parameter(130, 99);
    start_program();
    for (int ms = 0; ms < 10'000; ms += 100) {
        operator_clicks(form1::Command7);
        run_for(100);
    }
    // Those two write whoever places them; the button itself comes later.
    std::vector<Frame> read_writes;
    for (const Frame& write : writes())
        if (write.number != 52 && write.number != 130 && write.number != 3 && write.number != 4)
            read_writes.push_back(write);
    EXPECT_THAT(read_writes, IsEmpty());
}

TEST_P(Asking, TheFactoryResetEndsBesideAWatchdogThatStartsThePolling) {
    start_connected();
    app::state.no_reread = true;
    inside_program([] { form1::Timer6.on(); });
    screen.answer_message("Reset the control unit to factory values?", Answer::yes);
    screen.answer_message("FINE RESET ECU", Answer::ok);
    operator_clicks(form1::mnu_reset_centralina);
    EXPECT_TRUE(within(60'000, [this] { return screen.message_boxes.size() == 2; }));
    EXPECT_LE(asked(5), 4u) << "the unit is not reset over and over";
}

TEST_P(Asking, TheDumpEndsBesideTheLambdaPanelsRead) {
    start_connected();
    app::state.no_reread = true;
    inside_program(monitor::stop_polling);
    run_for(1000);
    inside_program([] { form1::Timer3.on(); });
    run_for(500);
    operator_clicks(form1::mnu_dump_parametri);
    EXPECT_TRUE(within(10'000, [this] { return !dump().empty(); }));
    run_for(500);
    EXPECT_TRUE(form1::Timer3.is_on());
    forget_wire();
    run_for(1000);
    EXPECT_GT(asked(3), 5u) << "the panel reads on";
}

TEST_P(Asking, TheDumpEndsBesideTheAcquisition) {
    start_connected();
    app::state.no_reread = true;
    inside_program(monitor::stop_polling);
    run_for(1000);
    operator_clicks(form1::mnu_dump_parametri);
    operator_clicks(form1::Command5);
    EXPECT_TRUE(within(20'000, [this] { return !dump().empty(); }));
    run_for(2000);
    EXPECT_NE(view::text(acquisizione::Label1), "0") << "then the acquisition reads";
}

TEST_P(Asking, ThePortTestHearsTheUnitBesideTheLambdaPanelsRead) {
    port->silent = true;
    start_program();
    run_for(5000);
    port->silent = false;
    inside_program([] { form1::Timer3.on(); });
    operator_clicks(centralina_attiva::Command_test);
    run_for(3000);
    EXPECT_EQ(view::text(centralina_attiva::Label2), "- OK TEST ESEGUITO -");
}

INSTANTIATE_TEST_SUITE_P(Families, Asking, testing::Values(0, 1, 2, 4));

class FaultRead : public PanelBench {
  protected:
    // The unit is silent, so that the read closes and opens the port again and again.
    void start_fault_read() {
        start_connected();
        app::state.no_reread = true;
        operator_clicks(form1::Command_diagnosi);
        run_for(1000);
        port->silent = true;
        operator_clicks(form1::cmd_richiesta_par_diagnosi);
        run_for(100);
        ASSERT_FALSE(port->is_open());
        port->silent = false;
    }
};

TEST_F(FaultRead, ADumpAskedForWhileItHasThePortClosedOpensItAndBothEnd) {
    start_fault_read();
    operator_clicks(form1::mnu_dump_parametri);
    run_for(5000);
    EXPECT_THAT(read_text("log/setting.txt"), HasSubstr("Par 152"));
    run_for(3000);
    EXPECT_TRUE(view::enabled(form1::cmd_richiesta_par_diagnosi));
    EXPECT_EQ(text(form1::lbl_par_1), "NO ERROR");
    EXPECT_TRUE(port->is_open());
}

TEST_F(FaultRead, ADumpBehindAnOpeningThatFailedOpensItToo) {
    start_fault_read();
    port->open_error = "Permission denied";
    run_for(500);
    ASSERT_FALSE(port->is_open());
    operator_clicks(form1::mnu_dump_parametri);
    run_for(5000);
    port->open_error.reset();
    run_for(5000);
    EXPECT_THAT(read_text("log/setting.txt"), HasSubstr("Par 152"));
}

TEST_F(FaultRead, AFactoryResetAskedForThenEndsToo) {
    start_fault_read();
    screen.answer_message("Reset the control unit to factory values?", Answer::yes);
    screen.answer_message("FINE RESET ECU", Answer::ok);
    operator_clicks(form1::mnu_reset_centralina);
    run_for(60'000);
    EXPECT_EQ(screen.message_boxes.size(), 2u);
}

// Handed over to a terminal, the port belongs to somebody else.
TEST_F(FaultRead, APortThatIsClosedForGoodIsNotOpenedByADump) {
    start_connected();
    operator_double_clicks(form1::Label18);
    operator_clicks(form1::Command_hyperterminal);
    run_for(3000);
    ASSERT_FALSE(port->is_open());
    operator_clicks(form1::mnu_dump_parametri);
    run_for(5000);
    EXPECT_FALSE(port->is_open());
}

} // namespace
} // namespace zol::tests

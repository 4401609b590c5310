// The information window with six parameters.
#include "tests/support/bench.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"

namespace zol::tests {
namespace {

class ParameterWindow : public Bench {
  protected:
    ParameterWindow() : Bench({.family = 2}) {}
    void fitter_opens() {
        operator_clicks(form1::barra1);
        run_for(10);
    }
    void expect_polling_goes_on_after(const std::function<void()>& leave);
};

TEST_F(ParameterWindow, ShowsSixParametersOnDarkRed) {
    start_connected();
    link::mirrors.injector_latency = 800;
    link::mirrors.injector_opening = 2100;
    link::mirrors.injector_constant = 27;
    link::mirrors.changeover_rpm = 1400;
    link::mirrors.cut_off_rpm = 1500;
    link::mirrors.cut_off_inj_time = 500;
    fitter_opens();
    EXPECT_EQ(view::text(form2::Label1), "PAR_107 = 800");
    EXPECT_EQ(view::text(form2::Label2), "PAR_202 = 2100");
    EXPECT_EQ(view::text(form2::Label3), "PAR_200 = 27");
    EXPECT_EQ(view::text(form2::Label4), "PAR_121 = 1400");
    EXPECT_EQ(view::text(form2::Label5), "PAR_124 = 1500");
    EXPECT_EQ(view::text(form2::Label6), "PAR_123 = 500");
    for (const view::Widget* w : {&form2::Form2, &form2::Label1, &form2::Label2, &form2::Label3,
                                  &form2::Label4, &form2::Label5, &form2::Label6})
        EXPECT_EQ(w->look.back, view::rgb(154, 0, 0)) << w->name;
}

// Halves go to the even ten: 805 down, 815 up.
TEST_F(ParameterWindow, RoundsLatencyAndCutOffTimeToTensAndNothingElse) {
    start_connected();
    link::mirrors.injector_latency = 805;
    link::mirrors.cut_off_inj_time = 815;
    link::mirrors.injector_opening = 2105;
    link::mirrors.injector_constant = 25;
    link::mirrors.changeover_rpm = 1405;
    link::mirrors.cut_off_rpm = 1505;
    fitter_opens();
    EXPECT_EQ(view::text(form2::Label1), "PAR_107 = 800");
    EXPECT_EQ(view::text(form2::Label6), "PAR_123 = 820");
    EXPECT_EQ(view::text(form2::Label2), "PAR_202 = 2105");
    EXPECT_EQ(view::text(form2::Label3), "PAR_200 = 25");
    EXPECT_EQ(view::text(form2::Label4), "PAR_121 = 1405");
    EXPECT_EQ(view::text(form2::Label5), "PAR_124 = 1505");
}

TEST_F(ParameterWindow, StopsThePollingWhileItIsOpen) {
    start_connected();
    form1::Timer3.on();
    fitter_opens();
    run_for(1000);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), testing::IsEmpty());
    EXPECT_FALSE(form1::Timer3.is_on());
    EXPECT_TRUE(view::enabled(form1::Form1));
}

void ParameterWindow::expect_polling_goes_on_after(const std::function<void()>& leave) {
    start_connected();
    app::state.no_reread = true; // the window came up by the connection dialog
    fitter_opens();
    run_for(1000);
    forget_wire();
    app::state.ui_loading = true;
    const auto clicked = now_ms();
    leave();
    EXPECT_FALSE(form2::Form2.shown);
    run_for(99);
    EXPECT_TRUE(app::state.ui_loading);
    EXPECT_FALSE(app::state.poll_enabled);
    run_for(1);
    EXPECT_FALSE(app::state.ui_loading);
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    EXPECT_NE(view::focus(), &form1::Text2);
    run_for(1000);
    EXPECT_EQ(view::focus(), &form1::Text2);
    ASSERT_FALSE(port->sent.empty());
    EXPECT_EQ(port->sent[0].frame, Send(3));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 100 + 50);
}

TEST_F(ParameterWindow, ExitClosesItAndThePollingGoesOn) {
    expect_polling_goes_on_after([this] { operator_clicks(form2::cmd_exit); });
}

TEST_F(ParameterWindow, ClosedByItsFrameDoesWhatExitDoes) {
    expect_polling_goes_on_after([this] {
        inside_program([] { view::set_focus(form2::cmd_exit); }); // as Tab does
        operator_closes(form2::Form2);
    });
}

// On a closed port no poll comes between.
TEST_F(ParameterWindow, TheKeyboardGoesToText2AHundredMillisecondsBehindThePolling) {
    start_connected();
    app::state.no_reread = true;
    fitter_opens();
    run_for(1000);
    inside_program([this] { port->close(); });
    operator_clicks(form2::cmd_exit);
    run_for(100 + 99);
    EXPECT_NE(view::focus(), &form1::Text2);
    run_for(1);
    EXPECT_EQ(view::focus(), &form1::Text2);
}

} // namespace
} // namespace zol::tests

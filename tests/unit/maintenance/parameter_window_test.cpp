// The information window with six parameters.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"

namespace zol::tests {
namespace {

class ParameterWindow : public LogicTest {
  protected:
    ParameterWindow() : LogicTest({.family = 2}) {}
    void open_window() { operator_clicks(form1::barra1, 1000ms); }
    // As after the connection dialog: the main window does not read the unit again.
    void open_window_without_reread() {
        start_connected();
        app::state.no_reread = true;
        open_window();
        mark();
    }
    void expect_polling_goes_on_after(const std::function<void()>& leave);
};

TEST_F(ParameterWindow, HasADarkRedBackground) {
    start_connected();
    open_window();
    for (const view::Widget* w : {&form2::Form2, &form2::Label1, &form2::Label2, &form2::Label3,
                                  &form2::Label4, &form2::Label5, &form2::Label6})
        EXPECT_EQ(w->look.back, view::rgb(154, 0, 0)) << w->name;
}

// 805 goes down to the even ten, 815 up.
TEST_F(ParameterWindow, RoundsLatencyAndCutOffTimeToTens) {
    start_connected();
    link::mirrors.injector_latency = 805;
    link::mirrors.cut_off_inj_time = 815;
    link::mirrors.injector_opening = 2105;
    link::mirrors.injector_constant = 25;
    link::mirrors.changeover_rpm = 1405;
    link::mirrors.cut_off_rpm = 1505;
    open_window();
    EXPECT_THAT((std::vector{text(form2::Label1), text(form2::Label2), text(form2::Label3),
                             text(form2::Label4), text(form2::Label5), text(form2::Label6)}),
                ElementsAre("PAR_107 = 800", "PAR_202 = 2105", "PAR_200 = 25", "PAR_121 = 1405",
                            "PAR_124 = 1505", "PAR_123 = 820"));
}

TEST_F(ParameterWindow, StopsThePolling) {
    start_connected();
    form1::Timer3.on();
    open_window();
    EXPECT_THAT(frames_in(5000), testing::IsEmpty());
    EXPECT_FALSE(form1::Timer3.is_on());
    EXPECT_TRUE(view::enabled(form1::Form1));
}

void ParameterWindow::expect_polling_goes_on_after(const std::function<void()>& leave) {
    open_window_without_reread();
    app::state.ui_loading = true;
    leave();
    EXPECT_FALSE(form2::Form2.shown);
    EXPECT_EQ(ms_until([] { return app::state.poll_enabled || !app::state.ui_loading; }), 100);
    EXPECT_FALSE(app::state.ui_loading);
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(focused(form1::Text2));
    run_for(1000);
    EXPECT_TRUE(focused(form1::Text2));
    EXPECT_EQ(timed().at(0), At(100 + 50, Send(3)));
}

TEST_F(ParameterWindow, PollingGoesOnAfterExit) {
    expect_polling_goes_on_after([this] { operator_clicks(form2::cmd_exit); });
}

TEST_F(ParameterWindow, PollingGoesOnAfterItsCloseButton) {
    expect_polling_goes_on_after([this] {
        inside_program([] { view::set_focus(form2::cmd_exit); }); // as Tab does
        operator_closes(form2::Form2);
    });
}

// On a closed port no poll delays it.
TEST_F(ParameterWindow, FocusMoves100MillisecondsAfterThePolling) {
    open_window_without_reread();
    inside_program([this] { port->close(); });
    operator_clicks(form2::cmd_exit);
    EXPECT_EQ(ms_until([] { return focused(form1::Text2); }), 100 + 100);
}

} // namespace
} // namespace zol::tests

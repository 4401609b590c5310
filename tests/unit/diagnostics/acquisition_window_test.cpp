// The acquisition of the injection time: opening, and the values that the window shows.
#include "tests/unit/diagnostics/acquisition_fixture.h"

namespace zol::tests {
namespace {

// --- Opening

TEST_F(Acquisition, OpeningStopsThePolling) {
    start_connected();
    app::state.text_colour = "4660";
    operator_clicks(form1::Command5);
    EXPECT_TRUE(acq::acquisizione.shown);
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_TRUE(acq::Timer1.is_on());
    EXPECT_EQ(text(acq::Command_salva), "SAVE");
    EXPECT_EQ(text(acq::Command_chiudi), "CLOSE");
    EXPECT_EQ(acq::Label1.look.fore, 4660);
    EXPECT_EQ(acq::Label_max.look.fore, 4660);
}

TEST_F(Acquisition, ShowsTheSavedValue) {
    open_window();
    EXPECT_EQ(text(acq::Label2), "saved:  8004");
    EXPECT_EQ(acq::Label3.look.back, acq::acquisizione.look.back);
    EXPECT_EQ(acq::Label4.look.back, acq::acquisizione.look.back);
    EXPECT_EQ(app::state.panel_colour, acq::acquisizione.look.back);
}

// The saved value is taken then, too.
TEST_F(Acquisition, BackgroundIsTakenOnTheFirstActivationOnly) {
    start_quietly();
    inside_program([] {
        view::load(acq::acquisizione);
        view::set_back(acq::acquisizione, view::light_red);
        view::set_enabled(form1::Form1, true); // as the changeover window leaves it
    });
    operator_clicks(form1::Command5, 10ms);
    EXPECT_EQ(acq::Label3.look.back, view::light_red);
    EXPECT_EQ(acq::Label4.look.back, view::light_red);
    inside_program([] {
        link::mirrors.tinj_upper = 1;
        view::hide(acq::acquisizione);
        view::show(acq::acquisizione);
    });
    run_for(10);
    EXPECT_EQ(text(acq::Label2), "saved:  8004");
}

// The changeover window loads it unseen, long before the operator opens it.
TEST_F(Acquisition, OpeningAfterTheChangeoverWindowStopsThePolling) {
    start_connected();
    app::state.no_reread = true;
    inside_program([] { view::load(acq::acquisizione); });
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    inside_program([] {
        view::set_enabled(form1::Form1, true);
        monitor::start_polling();
    });
    run_for(1000);
    operator_clicks(form1::Command5, 2000ms);
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_TRUE(acq::Timer_tinj.is_on());
    EXPECT_EQ(text(acq::Label2), "saved:  8004");
}

TEST_F(Acquisition, LoadedUnseenAfterAnEarlyCloseItDoesNotBegin) {
    open_window();
    run_for(200);
    operator_closes(acq::acquisizione);
    inside_program([] { view::load(acq::acquisizione); });
    run_for(3000);
    EXPECT_FALSE(acq::Timer_tinj.is_on());
}

TEST_F(Acquisition, IsScaledToTheScreen) {
    screen.screen = {1366 * 15, 768 * 15};
    open_window();
    EXPECT_GT(acq::Label1.look.place.width, acq::Label1.design.place.width * 1.9);
}

// --- Reading

TEST_F(Acquisition, AsksEvery400MillisecondsFrom900On) {
    open_window();
    EXPECT_EQ(ms_until([] { return acq::Timer_tinj.is_on(); }), 400);
    run_for(1400);
    EXPECT_THAT(timed(), ElementsAre(At(900, Send(3)), At(1300, Send(3)), At(1700, Send(3))));
}

// The guard looks once only. After that the tick of the acquisition stops the timer.
TEST_F(Acquisition, LatePollingIsStoppedAgain) {
    open_window();
    form1::Timer_stato_sistema.on();
    run_for(50);
    monitor::start_polling();
    port->silent = true;
    form1::Timer_stato_sistema.set_interval(60'000);
    run_for(50);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(acq::Timer1.is_on());
    mark();
    form1::Timer_stato_sistema.on();
    const auto stopped_ms = ms_until([] { return !form1::Timer_stato_sistema.is_on(); });
    EXPECT_GT(stopped_ms, 500);
    EXPECT_LE(stopped_ms, 601);
}

TEST_F(Acquisition, ShowsTheTimeAndKeepsTheHighest) {
    open_window();
    run_for(300);
    for (const auto& [injected, maximum] :
         {std::pair{5000, "5000"}, {4000, "5000"}, {12345, "12345"}}) {
        engine_injects(injected);
        run_for(1000);
        EXPECT_EQ(text(acq::Label1), std::to_string(injected));
        EXPECT_EQ(text(acq::Label_max), maximum);
    }
}

TEST_F(Acquisition, MaximumIsComparedAsANumber) {
    open_window();
    engine_injects(999);
    view::set_text(acq::Label_max, "5000");
    run_for(2000);
    EXPECT_EQ(text(acq::Label_max), "5000");
    engine_injects(5000);
    view::set_text(acq::Label_max, "5000.0");
    run_for(2000);
    EXPECT_EQ(text(acq::Label1), "5000");
    EXPECT_EQ(text(acq::Label_max), "5000.0") << "an equal one is not copied";
}

TEST_F(Acquisition, ReplyFrom27BytesOnIsShown) {
    open_window();
    run_for(700);
    for (std::size_t length = 0; length <= 40; ++length) {
        view::set_text(acq::Label1, "old");
        engine_injects(5000, length);
        run_for(800);
        EXPECT_EQ(text(acq::Label1), length >= 27 ? "5000" : "old") << length;
    }
}

TEST_F(Acquisition, ReplyWithAnotherEchoIsNotShown) {
    open_window();
    engine_injects(5000);
    run_for(1300);
    engine_injects(6000, 29, 16);
    run_for(1000);
    EXPECT_EQ(text(acq::Label1), "5000");
}

TEST_F(Acquisition, ClosedPortIsTestedAgainByTheNextTick) {
    open_window();
    run_for(2000);
    inside_program([this] { port->close(); });
    mark();
    run_for(400);
    bool at_rest = false; // the second wait of a tick would last until the next tick
    for (int i = 0; i < 60; ++i) {
        run_for(10);
        at_rest = at_rest || !form1::Timer2.is_on();
    }
    EXPECT_TRUE(at_rest);
    run_for(3000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_TRUE(acq::Timer_tinj.is_on());
    inside_program([this] { port->open(); });
    EXPECT_THAT(frames_in(1000), testing::Contains(Send(3)));
}

TEST_F(Acquisition, ResetTouchesTheMaximumOnly) {
    open_window();
    run_for(1300);
    port->silent = true;
    view::set_text(acq::Label1, "0");
    view::set_text(acq::Label_max, "5000");
    operator_clicks(acq::Command_reset);
    EXPECT_EQ(text(acq::Label_max), "0");
    EXPECT_EQ(text(acq::Label2), "saved:  8004");
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty());
}

} // namespace
} // namespace zol::tests

// The acquisition of the injection time: the window and its timers.
#include "tests/unit/diagnostics/acquisition_bench.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(Acquisition, OpeningTakesTheMainWindowAndThePolling) {
    start_connected();
    app::state.text_colour = "4660";
    operator_clicks(form1::Command5);
    EXPECT_TRUE(acq::acquisizione.shown);
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_TRUE(acq::Timer1.is_on());
    EXPECT_EQ(view::text(acq::Command_salva), "SAVE");
    EXPECT_EQ(view::text(acq::Command_chiudi), "CLOSE");
    EXPECT_EQ(acq::Label1.look.fore, 4660);
    EXPECT_EQ(acq::Label_max.look.fore, 4660);
}

TEST_F(Acquisition, ItShowsTheSavedValueAndTakesTheWindowsGround) {
    open_window();
    EXPECT_EQ(view::text(acq::Label2), "saved:  8004");
    EXPECT_EQ(acq::Label3.look.back, acq::acquisizione.look.back);
    EXPECT_EQ(acq::Label4.look.back, acq::acquisizione.look.back);
    EXPECT_EQ(app::state.panel_colour, acq::acquisizione.look.back);
}

// Both ground and saved value are taken once, when the window first gets its word.
TEST_F(Acquisition, ItTakesTheWindowsGroundOnItsFirstActivationOnly) {
    start_and_stop_polling();
    inside_program([] {
        view::load(acq::acquisizione);
        view::set_back(acq::acquisizione, view::light_red);
        view::set_enabled(form1::Form1, true); // as the changeover window leaves it
    });
    operator_clicks(form1::Command5);
    run_for(10);
    EXPECT_EQ(acq::Label3.look.back, view::light_red);
    EXPECT_EQ(acq::Label4.look.back, view::light_red);
    inside_program([] {
        link::mirrors.tinj_upper = 1;
        view::hide(acq::acquisizione);
        view::show(acq::acquisizione);
    });
    run_for(10);
    EXPECT_EQ(view::text(acq::Label2), "saved:  8004");
}

TEST_F(Acquisition, ItIsScaledToTheScreen) {
    screen.screen = {1366 * 15, 768 * 15};
    open_window();
    EXPECT_GT(acq::Label1.look.place.width, acq::Label1.design.place.width * 1.9);
}

TEST_F(Acquisition, ItAsksEvery400MillisecondsFrom900On) {
    open_window();
    run_for(399);
    EXPECT_FALSE(acq::Timer_tinj.is_on());
    run_for(1);
    EXPECT_TRUE(acq::Timer_tinj.is_on());
    run_for(1400);
    ASSERT_THAT(frames(), ElementsAre(Send(3), Send(3), Send(3)));
    EXPECT_EQ(port->sent[0].at_ms - opened_ms, 400 + 300 + 200);
    EXPECT_EQ(port->sent[1].at_ms - port->sent[0].at_ms, 400);
    EXPECT_EQ(port->sent[2].at_ms - port->sent[1].at_ms, 400);
}

TEST_F(Acquisition, APollThatComesBackLateIsStoppedOnceMore) {
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
    // It looks once only; the next to stop a timer is the acquisition's own tick.
    form1::Timer_stato_sistema.on();
    run_for(500);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    run_for(101);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Acquisition, TheTimeIsShownAndTheHighestKept) {
    open_window();
    engine_injects(5000);
    run_for(1300);
    EXPECT_EQ(view::text(acq::Label1), "5000");
    EXPECT_EQ(view::text(acq::Label_max), "5000");
    engine_injects(4000);
    run_for(1000);
    EXPECT_EQ(view::text(acq::Label1), "4000");
    EXPECT_EQ(view::text(acq::Label_max), "5000");
    engine_injects(12'345);
    run_for(1000);
    EXPECT_EQ(view::text(acq::Label_max), "12345");
}

// As numbers: 999 is not above 5000, and what is equal is not copied.
TEST_F(Acquisition, TheMaximumComparesNumbersAndLeavesEqualOnes) {
    open_window();
    engine_injects(999);
    view::set_text(acq::Label_max, "5000");
    run_for(2000);
    EXPECT_EQ(view::text(acq::Label_max), "5000");
    engine_injects(5000);
    view::set_text(acq::Label_max, "5000.0");
    run_for(2000);
    EXPECT_EQ(view::text(acq::Label1), "5000");
    EXPECT_EQ(view::text(acq::Label_max), "5000.0");
}

TEST_F(Acquisition, AShortOrForeignReplyKeepsTheLabel) {
    open_window();
    engine_injects(5000);
    run_for(1300);
    engine_injects(6000, 26);
    run_for(1000);
    EXPECT_EQ(view::text(acq::Label1), "5000");
    engine_injects(6000, 29, 16);
    run_for(1000);
    EXPECT_EQ(view::text(acq::Label1), "5000");
    engine_injects(6000, 27);
    run_for(1000);
    EXPECT_EQ(view::text(acq::Label1), "6000");
}

TEST_F(Acquisition, RepliesOfEveryLengthDoNoHarm) {
    open_window();
    run_for(700);
    for (std::size_t length = 0; length <= 40; ++length) {
        view::set_text(acq::Label1, "old");
        engine_injects(5000, length);
        run_for(800);
        EXPECT_EQ(view::text(acq::Label1), length >= 27 ? "5000" : "old") << length;
    }
}

TEST_F(Acquisition, AClosedPortEndsTheTickQuietlyAndTheNextOneLooksAgain) {
    open_window();
    run_for(2000);
    inside_program([this] { port->close(); });
    forget_wire();
    run_for(400);
    bool at_rest = false; // the second wait of a tick leaves no room between two of them
    for (int i = 0; i < 60; ++i) {
        run_for(10);
        at_rest = at_rest || !form1::Timer2.is_on();
    }
    EXPECT_TRUE(at_rest);
    run_for(3000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_TRUE(acq::Timer_tinj.is_on());
    inside_program([this] { port->open(); });
    run_for(1000);
    EXPECT_THAT(frames(), testing::Contains(Send(3)));
}

// The changeover window loads this one unseen.
TEST_F(Acquisition, ClosedBeforeItBeganAndLoadedUnseenItDoesNotBegin) {
    open_window();
    run_for(200);
    operator_closes(acq::acquisizione);
    inside_program([] { view::load(acq::acquisizione); });
    run_for(3000);
    EXPECT_FALSE(acq::Timer_tinj.is_on());
}

TEST_F(Acquisition, ResetTouchesTheMaximumOnly) {
    open_window();
    run_for(1300);
    port->silent = true;
    view::set_text(acq::Label1, "0");
    view::set_text(acq::Label_max, "5000");
    operator_clicks(acq::Command_reset);
    EXPECT_EQ(view::text(acq::Label_max), "0");
    EXPECT_EQ(view::text(acq::Label2), "saved:  8004");
    run_for(1000);
    EXPECT_THAT(writes(), IsEmpty());
}

} // namespace
} // namespace zol::tests

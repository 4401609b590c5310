// The acquisition of the injection time: the save, and the ways of closing.
#include "tests/unit/diagnostics/acquisition_bench.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

TEST_F(Acquisition, SavingMakesThreePointsOfTheMaximumInFourFrames) {
    open_with_maximum("5000");
    operator_clicks(acq::Command_salva);
    run_for(10'000);
    EXPECT_THAT(writes(),
                ElementsAre(Write(6, 7000), Write(7, 2900), Write(7, 2900), Write(5, 2000)));
    EXPECT_THAT(write_times(), ElementsAre(800, 1000, 1200, 1400));
    EXPECT_EQ(link::mirrors.tinj_upper, 7000);
    EXPECT_EQ(link::mirrors.tinj_lower, 2000);
}

TEST_F(Acquisition, SavingShowsTheHourglassAndLetsNoButtonBePressed) {
    open_with_maximum("5000");
    operator_clicks(acq::Command_salva);
    EXPECT_EQ(acq::acquisizione.look.pointer, Pointer::hourglass);
    EXPECT_FALSE(acq::Timer_tinj.is_on());
    EXPECT_FALSE(acq::Timer_ricerca_max.is_on());
    for (const view::Widget* button :
         {&acq::Command_salva, &acq::Command_reset, &acq::Command_chiudi})
        EXPECT_FALSE(view::enabled(*button)) << button->name;
    run_for(1799);
    EXPECT_FALSE(view::enabled(acq::Command_salva));
    EXPECT_FALSE(view::enabled(form1::Form1));
    run_for(1);
    for (const view::Widget* button :
         {&acq::Command_salva, &acq::Command_reset, &acq::Command_chiudi})
        EXPECT_TRUE(view::enabled(*button)) << button->name;
    EXPECT_TRUE(acq::Timer_tinj.is_on());
    EXPECT_TRUE(acq::Timer_ricerca_max.is_on());
    EXPECT_FALSE(view::enabled(form1::Form1));
    run_for(200);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_FALSE(any_timer_on());
    EXPECT_TRUE(acq::acquisizione.loaded);
    EXPECT_EQ(acq::acquisizione.look.pointer, Pointer::hourglass);
    run_for(200);
    EXPECT_FALSE(acq::acquisizione.loaded);
    EXPECT_EQ(acq::acquisizione.look.pointer, Pointer::normal);
}

TEST_F(Acquisition, BehindASaveThePollingComesBackAndTheKeyboardGoesToText2) {
    open_with_maximum("5000");
    app::state.ui_loading = true;
    operator_clicks(acq::Command_salva);
    run_for(2200);
    ASSERT_FALSE(acq::acquisizione.loaded);
    EXPECT_FALSE(app::state.poll_enabled);
    run_for(399);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_TRUE(app::state.ui_loading);
    run_for(1);
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(app::state.ui_loading);
    port->silent = false;
    run_for(3000);
    EXPECT_EQ(view::focus(), &form1::Text2);
    EXPECT_EQ(port->sent.back().frame, Send(3));
    EXPECT_EQ(unit->parameter(5), 2502); // it was silent: nothing reached it
}

// On a closed port no poll comes between.
TEST_F(Acquisition, TheKeyboardGoesToText2EightHundredMillisecondsBehindThePolling) {
    open_with_maximum("5000");
    operator_clicks(acq::Command_salva);
    run_for(2000);
    inside_program([this] { port->close(); });
    run_for(200 + 400 + 799);
    EXPECT_NE(view::focus(), &form1::Text2);
    run_for(1);
    EXPECT_EQ(view::focus(), &form1::Text2);
}

TEST_F(Acquisition, TheUnitGetsThePoints) {
    open_with_maximum("12345");
    port->silent = false;
    operator_clicks(acq::Command_salva);
    run_for(10'000);
    EXPECT_EQ(unit->parameter(6), 14'345);
    EXPECT_EQ(unit->parameter(5), 5672); // 5672.5, halves to the even side
    EXPECT_EQ(unit->parameter(7), 8042); // 8041.5, to the even side
    EXPECT_EQ(link::mirrors.tinj_lower, 5672);
}

struct SmallMaximum {
    const char* maximum;
    std::vector<Frame> frames;
};

class AcquisitionOf : public Acquisition, public testing::WithParamInterface<SmallMaximum> {};

// What is negative cannot be sent; the waits stay, so the window closes at the same moment.
TEST_P(AcquisitionOf, SendsWhatHasAFrame) {
    open_with_maximum(GetParam().maximum);
    operator_clicks(acq::Command_salva);
    run_for(2199);
    EXPECT_TRUE(acq::acquisizione.loaded);
    run_for(1);
    EXPECT_FALSE(acq::acquisizione.loaded);
    ASSERT_EQ(writes(), GetParam().frames);
    EXPECT_EQ(write_times().front(), writes().front().number == 6 ? 800 : 1000);
    if (writes().back().number == 5) {
        EXPECT_EQ(write_times().back(), 1400);
    }
}

INSTANTIATE_TEST_SUITE_P(
    ASmallMaximum, AcquisitionOf,
    testing::Values(SmallMaximum{"0", {Write(6, 2000)}}, SmallMaximum{"", {Write(6, 2000)}},
                    SmallMaximum{"857", {Write(6, 2857)}},
                    SmallMaximum{"858", {Write(6, 2858), Write(7, 1), Write(7, 1)}},
                    SmallMaximum{"999", {Write(6, 2999), Write(7, 99), Write(7, 99)}},
                    SmallMaximum{"1000",
                                 {Write(6, 3000), Write(7, 100), Write(7, 100), Write(5, 0)}},
                    SmallMaximum{"65535", {Write(7, 45'274), Write(7, 45'274), Write(5, 32'268)}}));

TEST_F(Acquisition, ClosingHandsThePanelsBack) {
    open_with_maximum("5000");
    port->silent = false;
    form1::Timer6.on(); // no_reread comes with the watchdog
    form1::Timer3.on();
    view::set_visible(form1::frame_engine, false);
    view::set_visible(form1::Frame_impostazioni, true);
    view::set_visible(form1::Frame_Lambda, true);
    view::set_visible(form1::Command_exit, false);
    view::set_enabled(form1::Command5, false);
    app::state.settings_panel_open = true;
    app::state.ui_loading = true;
    operator_clicks(acq::Command_chiudi);
    EXPECT_EQ(acq::Command_chiudi.look.pointer, Pointer::hourglass);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_TRUE(acq::Timerx.is_on());
    EXPECT_FALSE(acq::Timer_tinj.is_on());
    EXPECT_FALSE(acq::Timer_ricerca_max.is_on());
    EXPECT_FALSE(acq::Timer1.is_on());
    run_for(199);
    EXPECT_TRUE(acq::acquisizione.loaded);
    run_for(1);
    EXPECT_FALSE(acq::acquisizione.loaded);
    EXPECT_EQ(view::focus(), &form1::Text2);
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer3.is_on());
    EXPECT_TRUE(view::enabled(form1::Command5));
    EXPECT_FALSE(view::visible(form1::frame_engine)); // only behind the wait
    EXPECT_TRUE(app::state.ui_loading);
    run_for(2000);
    EXPECT_TRUE(view::visible(form1::frame_engine));
    EXPECT_TRUE(view::visible(form1::Command_exit));
    EXPECT_FALSE(view::visible(form1::Frame_impostazioni));
    EXPECT_FALSE(view::visible(form1::Frame_Lambda));
    EXPECT_FALSE(app::state.settings_panel_open);
    EXPECT_FALSE(app::state.ui_loading);
    EXPECT_THAT(writes(), IsEmpty());
    forget_wire();
    run_for(1050);
    EXPECT_THAT(frames(), ElementsAre(Send(3), Send(3), Send(3)));
}

// On a run whose first read came at once the main window reads the unit anew when it gets its word
// back with the polling allowed.
TEST_F(Acquisition, ClosingOnTheDirectRoadReadsTheUnitAgain) {
    open_window();
    run_for(2000);
    forget_wire();
    operator_clicks(acq::Command_chiudi);
    run_for(15'000);
    auto sent = frames();
    ASSERT_GE(sent.size(), 4u);
    sent.erase(sent.begin() + 4, sent.end());
    EXPECT_THAT(sent, ElementsAre(Send(6), Send(7), Send(1), Send(3)));
    EXPECT_TRUE(app::state.poll_enabled);
}

TEST_F(Acquisition, ClosedAtOnceItStopsItsGuard) {
    start_and_stop_polling();
    operator_clicks(form1::Command5);
    run_for(50);
    ASSERT_TRUE(acq::Timer1.is_on());
    operator_clicks(acq::Command_chiudi);
    EXPECT_FALSE(acq::Timer1.is_on());
}

TEST_F(Acquisition, ClosedByItsFrameItLetsTheFitterBackToTheMainWindow) {
    open_with_maximum("5000");
    app::state.settings_panel_open = true;
    operator_closes(acq::acquisizione);
    run_for(1000);
    EXPECT_FALSE(acq::acquisizione.loaded);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_FALSE(app::state.settings_panel_open);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(any_timer_on());
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    port->silent = false;
    operator_clicks(form1::Command_engine);
    run_for(2000);
    EXPECT_THAT(frames(), testing::Contains(Send(3)));
}

class AcquisitionClosedAt : public Acquisition, public testing::WithParamInterface<int> {};

TEST_P(AcquisitionClosedAt, LeavesNoTimerAndNoFrameBehind) {
    open_window();
    app::state.no_reread = true;
    run_for(GetParam());
    operator_closes(acq::acquisizione);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(any_timer_on());
}

// In the wait of the activation, before the first tick, in both waits of a tick, and later.
INSTANTIATE_TEST_SUITE_P(Ms, AcquisitionClosedAt,
                         testing::Values(0, 200, 399, 500, 750, 950, 1250, 3000));

TEST_F(Acquisition, ClosedByItsFrameInTheMiddleOfASaveItStillSendsThePoints) {
    open_with_maximum("5000");
    operator_clicks(acq::Command_salva);
    run_for(900);
    operator_closes(acq::acquisizione);
    run_for(10'000);
    EXPECT_THAT(writes(),
                ElementsAre(Write(6, 7000), Write(7, 2900), Write(7, 2900), Write(5, 2000)));
    EXPECT_FALSE(any_timer_on());
    EXPECT_TRUE(view::enabled(form1::Form1));
}

TEST_F(Acquisition, OpenedAgainItStartsAnew) {
    open_with_maximum("5000");
    operator_clicks(acq::Command_salva);
    run_for(6000);
    port->silent = false;
    operator_clicks(form1::Command5);
    run_for(10);
    EXPECT_EQ(view::text(acq::Label2), "saved:  7000");
    EXPECT_EQ(view::text(acq::Label_max), "0");
    EXPECT_TRUE(view::enabled(acq::Command_salva));
    EXPECT_FALSE(view::enabled(form1::Form1));
}

// The changeover window loads this one unseen, long before the fitter opens it.
TEST_F(Acquisition, OpenedBehindTheChangeoverWindowItTakesMainWindowAndPollingAllTheSame) {
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
    operator_clicks(form1::Command5);
    run_for(2000);
    EXPECT_FALSE(view::enabled(form1::Form1));
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_TRUE(acq::Timer_tinj.is_on());
    EXPECT_EQ(view::text(acq::Label2), "saved:  8004");
}

TEST_F(Acquisition, ACablePulledWhileItSavesLosesFramesUnnoticed) {
    open_with_maximum("5000");
    operator_clicks(acq::Command_salva);
    run_for(900);
    port->unplugged = true;
    run_for(10'000);
    EXPECT_THAT(writes(), ElementsAre(Write(6, 7000)));
    EXPECT_FALSE(acq::acquisizione.loaded);
    EXPECT_EQ(link::mirrors.tinj_lower, 2000);
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

// The run flag is off in a save: a reading that somebody starts beside it would spoil the maximum.
TEST_F(Acquisition, AReadingStartedBesideASaveEndsWithItsFirstTickAndAsksNothing) {
    open_with_maximum("5000");
    app::state.eobd_read_under_way = true; // so that no tick is under way at the click
    run_for(600);
    operator_clicks(acq::Command_salva);
    app::state.eobd_read_under_way = false;
    forget_wire();
    inside_program([] { acq::Timer_tinj.on(); });
    run_for(299);
    EXPECT_TRUE(acq::Timer_tinj.is_on());
    run_for(1);
    EXPECT_FALSE(acq::Timer_tinj.is_on());
    run_for(300);
    EXPECT_THAT(frames(), IsEmpty());
}

} // namespace
} // namespace zol::tests

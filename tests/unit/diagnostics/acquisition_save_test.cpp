// The acquisition of the injection time: saving and closing.
#include "tests/unit/diagnostics/acquisition_fixture.h"

namespace zol::tests {
namespace {

using testing::Contains;
using view::Pointer;

// --- Saving

TEST_F(Acquisition, SaveMakesThreePointsOfTheMaximum) {
    save_with_maximum("5000");
    run_for(10'000);
    std::vector<Timed> writes = timed();
    std::erase_if(writes, [](const Timed& each) { return each.frame.command != 2; });
    EXPECT_THAT(writes, ElementsAre(At(800, Write(6, 7000)), At(1000, Write(7, 2900)),
                                    At(1200, Write(7, 2900)), At(1400, Write(5, 2000))));
    EXPECT_EQ(link::mirrors.tinj_upper, 7000);
    EXPECT_EQ(link::mirrors.tinj_lower, 2000);
}

TEST_F(Acquisition, SaveDisablesTheButtonsFor1800Milliseconds) {
    open_with_maximum("5000");
    follow({&acq::Command_salva, &acq::Command_reset, &acq::Command_chiudi});
    operator_clicks(acq::Command_salva);
    EXPECT_FALSE(acq::Timer_tinj.is_on());
    EXPECT_FALSE(acq::Timer_ricerca_max.is_on());
    run_for(1800);
    EXPECT_TRUE(acq::Timer_tinj.is_on());
    EXPECT_TRUE(acq::Timer_ricerca_max.is_on());
    EXPECT_THAT(changes, testing::UnorderedElementsAre(
                             "0 Command_salva disabled", "0 Command_reset disabled",
                             "0 Command_chiudi disabled", "1800 Command_salva enabled",
                             "1800 Command_reset enabled", "1800 Command_chiudi enabled"));
}

TEST_F(Acquisition, SaveUnloadsTheWindowAfter2200Milliseconds) {
    open_with_maximum("5000");
    follow({&acq::acquisizione, &form1::Form1});
    operator_clicks(acq::Command_salva, 2000ms);
    EXPECT_FALSE(any_timer_on());
    EXPECT_EQ(ms_until([] { return !acq::acquisizione.loaded; }), 2200);
    EXPECT_THAT(changes, ElementsAre("0 acquisizione hourglass", "2000 Form1 enabled",
                                     "2200 acquisizione normal pointer"));
}

TEST_F(Acquisition, PollingComesBack400MillisecondsAfterASave) {
    open_with_maximum("5000");
    app::state.ui_loading = true;
    operator_clicks(acq::Command_salva);
    EXPECT_EQ(ms_until([] { return app::state.poll_enabled || !app::state.ui_loading; }), 2600);
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_TRUE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(app::state.ui_loading);
    port->silent = false;
    run_for(3000);
    EXPECT_TRUE(focused(form1::Text2));
    EXPECT_EQ(frames().back(), Send(3));
}

// On a closed port no poll delays it.
TEST_F(Acquisition, FocusMoves800MillisecondsAfterThePolling) {
    save_with_maximum("5000");
    run_for(2000);
    inside_program([this] { port->close(); });
    EXPECT_EQ(ms_until([] { return focused(form1::Text2); }), 2200 + 400 + 800);
}

TEST_F(Acquisition, UnitGetsThePointsRoundedToEven) {
    open_with_maximum("12345");
    port->silent = false;
    operator_clicks(acq::Command_salva, 10'000ms);
    EXPECT_EQ(unit->parameter(6), 14'345);
    EXPECT_EQ(unit->parameter(5), 5672); // 5672.5
    EXPECT_EQ(unit->parameter(7), 8042); // 8041.5
    EXPECT_EQ(link::mirrors.tinj_lower, 5672);
}

struct Maximum {
    const char* maximum;
    std::vector<Frame> frames;
};

class AcquisitionOf : public Acquisition, public testing::WithParamInterface<Maximum> {};

// What is negative is not sent. The waits stay, so the window closes at the same moment.
TEST_P(AcquisitionOf, SendsWhatHasAFrame) {
    save_with_maximum(GetParam().maximum);
    EXPECT_EQ(ms_until([] { return !acq::acquisizione.loaded; }), 2200);
    ASSERT_EQ(writes(), GetParam().frames);
    for (const Timed& each : timed()) {
        if (each.frame.number == 6) {
            EXPECT_EQ(each.ms, 800);
        }
        if (each.frame.number == 5) {
            EXPECT_EQ(each.ms, 1400);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    ASmallMaximum, AcquisitionOf,
    testing::Values(Maximum{"0", {Write(6, 2000)}}, Maximum{"", {Write(6, 2000)}},
                    Maximum{"857", {Write(6, 2857)}},
                    Maximum{"858", {Write(6, 2858), Write(7, 1), Write(7, 1)}},
                    Maximum{"999", {Write(6, 2999), Write(7, 99), Write(7, 99)}},
                    Maximum{"1000", {Write(6, 3000), Write(7, 100), Write(7, 100), Write(5, 0)}},
                    Maximum{"65535", {Write(7, 45'274), Write(7, 45'274), Write(5, 32'268)}}));

TEST_F(Acquisition, SaveGoesOnWithAPulledCable) {
    save_with_maximum("5000");
    run_for(900);
    port->unplugged = true;
    run_for(10'000);
    EXPECT_THAT(writes(), ElementsAre(Write(6, 7000)));
    EXPECT_FALSE(acq::acquisizione.loaded);
    EXPECT_EQ(link::mirrors.tinj_lower, 2000);
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

// The run flag is off during a save, because a reading would change the maximum.
TEST_F(Acquisition, ReadingDuringASaveEndsWithItsFirstTick) {
    open_with_maximum("5000");
    app::state.eobd_read_under_way = true; // so that no tick is running at the click
    run_for(600);
    operator_clicks(acq::Command_salva);
    app::state.eobd_read_under_way = false;
    mark();
    inside_program([] { acq::Timer_tinj.on(); });
    EXPECT_EQ(ms_until([] { return !acq::Timer_tinj.is_on(); }), 300);
    run_for(300);
    EXPECT_THAT(frames(), IsEmpty());
}

// --- Closing

TEST_F(Acquisition, CloseUnloadsItAfter200Milliseconds) {
    open_with_maximum("5000");
    operator_clicks(acq::Command_chiudi);
    EXPECT_TRUE(busy(acq::Command_chiudi));
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_TRUE(acq::Timerx.is_on());
    EXPECT_FALSE(acq::Timer_tinj.is_on());
    EXPECT_FALSE(acq::Timer_ricerca_max.is_on());
    EXPECT_FALSE(acq::Timer1.is_on());
    EXPECT_EQ(ms_until([] { return !acq::acquisizione.loaded; }), 200);
    EXPECT_TRUE(focused(form1::Text2));
    EXPECT_TRUE(app::state.poll_enabled);
}

TEST_F(Acquisition, CloseShowsTheEnginePanel) {
    open_with_maximum("5000");
    port->silent = false;
    form1::Timer6.on(); // the watchdog comes with no_reread
    form1::Timer3.on();
    view::set_visible(form1::frame_engine, false);
    view::set_visible(form1::Frame_impostazioni, true);
    view::set_visible(form1::Frame_Lambda, true);
    view::set_visible(form1::Command_exit, false);
    view::set_enabled(form1::Command5, false);
    app::state.settings_panel_open = true;
    app::state.ui_loading = true;
    operator_clicks(acq::Command_chiudi, 200ms);
    EXPECT_FALSE(form1::Timer3.is_on());
    EXPECT_TRUE(view::enabled(form1::Command5));
    EXPECT_FALSE(view::visible(form1::frame_engine)) << "only after the wait";
    EXPECT_TRUE(app::state.ui_loading);
    run_for(2000);
    EXPECT_TRUE(view::visible(form1::frame_engine));
    EXPECT_TRUE(view::visible(form1::Command_exit));
    EXPECT_FALSE(view::visible(form1::Frame_impostazioni));
    EXPECT_FALSE(view::visible(form1::Frame_Lambda));
    EXPECT_FALSE(app::state.settings_panel_open);
    EXPECT_FALSE(app::state.ui_loading);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_THAT(frames_in(1050), ElementsAre(Send(3), Send(3), Send(3)));
}

// Without the connection dialog the main window reads the unit when it is enabled again.
TEST_F(Acquisition, CloseReadsTheUnitAgainOnTheActivationPath) {
    open_window();
    run_for(2000);
    mark();
    operator_clicks(acq::Command_chiudi, 15'000ms);
    auto sent = frames();
    sent.resize(4);
    EXPECT_THAT(sent, ElementsAre(Send(6), Send(7), Send(1), Send(3)));
    EXPECT_TRUE(app::state.poll_enabled);
}

TEST_F(Acquisition, CloseStopsTheGuard) {
    open_window();
    run_for(50);
    ASSERT_TRUE(acq::Timer1.is_on());
    operator_clicks(acq::Command_chiudi);
    EXPECT_FALSE(acq::Timer1.is_on());
}

TEST_F(Acquisition, CloseButtonLeavesThePollingStopped) {
    open_with_maximum("5000");
    app::state.settings_panel_open = true;
    operator_closes(acq::acquisizione, 1000ms);
    EXPECT_FALSE(acq::acquisizione.loaded);
    EXPECT_TRUE(view::enabled(form1::Form1));
    EXPECT_FALSE(app::state.settings_panel_open);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_FALSE(any_timer_on());
    EXPECT_THAT(frames_in(5000), IsEmpty());
    port->silent = false;
    operator_clicks(form1::Command_engine);
    EXPECT_THAT(frames_in(2000), Contains(Send(3)));
}

class AcquisitionClosedAt : public Acquisition, public testing::WithParamInterface<int> {};

TEST_P(AcquisitionClosedAt, LeavesNoTimerOn) {
    open_window();
    app::state.no_reread = true;
    run_for(GetParam());
    operator_closes(acq::acquisizione);
    EXPECT_THAT(frames_in(5000), IsEmpty());
    EXPECT_FALSE(any_timer_on());
}

// In the wait of the activation, before the first tick, in both waits of a tick, and later.
INSTANTIATE_TEST_SUITE_P(Ms, AcquisitionClosedAt,
                         testing::Values(0, 200, 399, 500, 750, 950, 1250, 3000));

TEST_F(Acquisition, CloseButtonDuringASaveStillSendsThePoints) {
    save_with_maximum("5000");
    run_for(900);
    operator_closes(acq::acquisizione, 10'000ms);
    EXPECT_THAT(writes(),
                ElementsAre(Write(6, 7000), Write(7, 2900), Write(7, 2900), Write(5, 2000)));
    EXPECT_FALSE(any_timer_on());
    EXPECT_TRUE(view::enabled(form1::Form1));
}

TEST_F(Acquisition, OpenedAgainItBeginsAtZero) {
    save_with_maximum("5000");
    run_for(6000);
    port->silent = false;
    operator_clicks(form1::Command5, 10ms);
    EXPECT_EQ(text(acq::Label2), "saved:  7000");
    EXPECT_EQ(text(acq::Label_max), "0");
    EXPECT_TRUE(view::enabled(acq::Command_salva));
    EXPECT_FALSE(view::enabled(form1::Form1));
}

} // namespace
} // namespace zol::tests

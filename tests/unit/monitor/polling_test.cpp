// The polling loop: which requests it sends and when, and what it does when the unit is silent,
// when a reply is wrong and when the polling is stopped.
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "monitor/polling.h"
#include "tests/support/replies.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::Each;

class Polling : public ReplyTest {
  protected:
    static const std::string& rpm() { return text(form1::Label_rpm); }
    void set_tab_stops(bool on) {
        for (view::Widget* slider : {&form1::Slider_ktar, &form1::Slider_attenuazione})
            view::set_tab_stop(*slider, on);
    }
    static bool tab_stops() {
        return form1::Slider_ktar.look.tab_stop && form1::Slider_attenuazione.look.tab_stop;
    }
    struct Taken {
        bool shown; // the heartbeat flips with each telegram that is shown
        std::int64_t next_request_ms;
    };
    Taken take(const link::Bytes& reply) {
        next_telegrams = {reply};
        forget_wire();
        run_until_sent(1); // the reply has been read
        const auto before = form1::Shape2.look.back;
        run_until_sent(2);
        return {form1::Shape2.look.back != before, gap_after(0)};
    }
};

TEST_F(Polling, AsksEvery350Milliseconds) {
    start_connected();
    run_for(1050);
    ASSERT_THAT(frames(), ElementsAre(Send(3), Send(3), Send(3)));
    EXPECT_EQ(gap_after(0), 350);
    EXPECT_EQ(gap_after(1), 350);
    EXPECT_GT(app::val(rpm()), 0);
}

TEST_F(Polling, RequestHasFiveBytes) {
    start_connected();
    run_until_sent(1);
    EXPECT_EQ(port->sent[0].bytes, frame_bytes(3));
}

// The poll reads the reply to the request before. After a pause there is none, so it asks again.
TEST_F(Polling, FirstTickAfterAPauseAsksTwice) {
    start_scripted();
    operator_clicks(form1::Command_impostazioni, 3000ms);
    telegram.rpm = 2222;
    next_telegrams = {{}};
    mark();
    operator_clicks(form1::Command_engine, 649ms);
    EXPECT_NE(rpm(), "2222");
    EXPECT_THAT(timed(), ElementsAre(At(50, Send(3)), At(350, Send(3))));
    run_for(2);
    EXPECT_EQ(rpm(), "2222");
}

TEST_F(Polling, TelegramIsShownOneWaitAfterItWasRead) {
    start_scripted();
    telegram.rpm = 3333;
    forget_wire();
    run_until_sent(1);
    run_for(290);
    EXPECT_NE(rpm(), "3333");
    run_for(10);
    EXPECT_EQ(rpm(), "3333");
}

TEST_F(Polling, StopDuringAPassLeavesNoTimerOn) {
    start_during_a_poll();
    inside_program(monitor::stop_polling);
    run_for(310);
    EXPECT_FALSE(form1::Timer2.is_on());
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Polling, SilentUnitIsAskedEvery300Milliseconds) {
    start_scripted();
    show({.rpm = 1111});
    telegram = {};
    port->alter = [](const link::Bytes&) { return link::Bytes{}; };
    run_for(1000);
    EXPECT_EQ(frames_in(60'000), std::vector(200, Send(3)));
    EXPECT_EQ(rpm(), "1111") << "the values do not change";
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

// Until the next telegram, the loop checks neither `poll_enabled` nor which panel is open.
TEST_F(Polling, SilentUnitIsStillAskedAfterTheStop) {
    start_scripted();
    port->silent = true;
    port->alter = nullptr;
    run_for(1000);
    operator_clicks(form1::Command_impostazioni, 3000ms);
    EXPECT_EQ(frames_in(3000).size(), 10u);
    port->silent = false;
    run_for(1000);
    EXPECT_THAT(frames_in(5000), IsEmpty());
}

TEST_F(Polling, ResumesWhenThePulledCableIsBack) {
    start_scripted();
    show({.rpm = 1111});
    port->unplugged = true;
    EXPECT_THAT(frames_in(30'000), IsEmpty());
    EXPECT_EQ(rpm(), "1111");
    port->unplugged = false;
    show({.rpm = 1222});
    EXPECT_EQ(rpm(), "1222");
    forget_wire();
    run_until_sent(2);
    EXPECT_EQ(gap_after(0), 350);
}

TEST_F(Polling, ReadsAFloodedLineOncePerRequest) {
    start_scripted();
    port->alter = [this](const link::Bytes&) {
        ++reads;
        return link::Bytes(5000, 255);
    };
    run_for(1000);
    reads = 0;
    run_for(30'000);
    EXPECT_EQ(reads, 100);
}

// An empty reply repeats the request. A reply of 1 to 26 bytes is dropped and ends the pass.
TEST_F(Polling, ReplyIsShownFrom27BytesOn) {
    start_scripted();
    for (std::size_t length = 0; length <= 300; ++length) {
        SCOPED_TRACE(length);
        const Taken taken = take(reply_of_length(telegram, length));
        EXPECT_EQ(taken.next_request_ms, length == 0 ? 300 : 350);
        EXPECT_EQ(taken.shown, length >= 27);
    }
}

// From 27 bytes on the echo is checked. If it is wrong, the request is repeated.
TEST_F(Polling, ReplyWithAWrongEchoIsNeverShown) {
    start_scripted();
    for (std::size_t length = 0; length <= 300; ++length) {
        SCOPED_TRACE(length);
        const Taken taken = take(reply_of_length(Telegram{.echo = 16}, length));
        EXPECT_EQ(taken.next_request_ms, length >= 1 && length < 27 ? 350 : 300);
        EXPECT_FALSE(taken.shown);
    }
}

TEST_F(Polling, WrongEchoIsAskedAgainWithoutLimit) {
    start_scripted();
    show({.rpm = 1111});
    telegram = {.rpm = 4444, .echo = 1};
    EXPECT_GE(frames_in(30'000).size(), 99u);
    EXPECT_EQ(rpm(), "1111");
    show({.rpm = 1333});
    EXPECT_EQ(rpm(), "1333");
}

TEST_F(Polling, TickOnAClosedPortStopsItsTimer) {
    start_scripted();
    show({.rpm = 1111});
    stop_polling();
    telegram.rpm = 5555;
    inside_program([this] {
        link::close_port();
        set_tab_stops(false);
        monitor::start_polling();
    });
    run_for(60);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_TRUE(tab_stops());
    inside_program([] { link::open_port(1); });
    EXPECT_THAT(frames_in(5000), IsEmpty()) << "opening the port does not restart the polling";
    EXPECT_EQ(rpm(), "1111");
}

TEST_F(Polling, StopLetsThePendingTelegramBeShown) {
    start_scripted();
    forget_wire();
    telegram.rpm = 6666;
    run_until_sent(1);
    run_for(100);
    inside_program(monitor::stop_polling);
    EXPECT_NE(rpm(), "6666");
    run_for(5000);
    EXPECT_EQ(rpm(), "6666");
    EXPECT_EQ(port->sent.size(), 1u);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Polling, StoppedTickSendsNothing) {
    start_scripted();
    stop_polling();
    inside_program([this] {
        set_tab_stops(false);
        form1::Timer_stato_sistema.on();
    });
    mark();
    run_for(50);
    EXPECT_TRUE(tab_stops());
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(Polling, SlidersGetTheirTabStopAfterTheFirstTick) {
    start_program();
    ms_until([] { return form1::Timer_stato_sistema.is_on(); });
    EXPECT_FALSE(form1::Slider_attenuazione.look.tab_stop);
    EXPECT_FALSE(form1::Slider_ktar.look.tab_stop);
    run_for(2000);
    EXPECT_TRUE(tab_stops());
}

TEST_F(Polling, TickUnloadsTheConnectionDialog) {
    start_scripted();
    stop_polling();
    inside_program([] {
        view::show(centralina_attiva::Centralina_Attiva);
        form1::Timer_stato_sistema.on();
    });
    EXPECT_TRUE(centralina_attiva::Centralina_Attiva.loaded);
    run_for(400);
    EXPECT_FALSE(centralina_attiva::Centralina_Attiva.loaded);
}

TEST_F(Polling, DelayedStopRunsOnceAfter200Milliseconds) {
    start_scripted();
    mark();
    inside_program([] { form1::Timer_chiusura_stato.on(); });
    EXPECT_EQ(ms_until([] { return !app::state.poll_enabled; }), 200);
    EXPECT_FALSE(form1::Timer_chiusura_stato.is_on());
    run_for(1000);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Polling, StartReadingButtonStartsPolling) {
    start_scripted();
    stop_polling();
    mark();
    operator_clicks(form1::Command31);
    run_until_sent(1);
    EXPECT_EQ(timed().at(0), At(50, Send(3)));
    EXPECT_TRUE(app::state.poll_enabled);
}

} // namespace
} // namespace zol::tests

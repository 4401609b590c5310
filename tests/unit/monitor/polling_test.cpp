// The polling loop: what goes out, when, and how it takes silence, wrong answers and stops.
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "monitor/polling.h"
#include "tests/support/replies.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::Each;
using testing::ElementsAre;

class Polling : public ReplyBench {
  protected:
    // The heartbeat flips on each telegram that is shown.
    static bool beaten_since(view::Colour before) { return form1::Shape2.look.back != before; }
};

TEST_F(Polling, AUnitThatAnswersIsAskedEvery350Milliseconds) {
    start_connected();
    run_for(1050);
    ASSERT_THAT(frames(), ElementsAre(Send(3), Send(3), Send(3)));
    EXPECT_EQ(gap_behind(0), 350);
    EXPECT_EQ(gap_behind(1), 350);
    EXPECT_GT(app::val(view::text(form1::Label_rpm)), 0);
}

TEST_F(Polling, TheRequestIsFiveBytesLong) {
    start_connected();
    run_for(350);
    ASSERT_FALSE(port->sent.empty());
    EXPECT_THAT(port->sent[0].bytes, ElementsAre(80, 67, 0, 5, 3));
}

TEST_F(Polling, TheFirstTickAfterAPauseFindsNothingAndAsksAgain) {
    start_scripted();
    operator_clicks(form1::Command_impostazioni);
    run_for(3000);
    forget_wire();
    telegram.rpm = 2222;
    next_telegrams = {{}};
    const auto start = now_ms();
    operator_clicks(form1::Command_engine);
    run_for(649);
    EXPECT_NE(view::text(form1::Label_rpm), "2222");
    ASSERT_THAT(frames(), ElementsAre(Send(3), Send(3)));
    EXPECT_EQ(port->sent[0].at_ms - start, 50);
    EXPECT_EQ(port->sent[1].at_ms - start, 350);
    run_for(2);
    EXPECT_EQ(view::text(form1::Label_rpm), "2222");
}

TEST_F(Polling, AWholeTelegramIsShownOneWaitAfterItWasRead) {
    start_scripted();
    telegram.rpm = 3333;
    forget_wire();
    run_until_sent(1);
    run_for(290);
    EXPECT_NE(view::text(form1::Label_rpm), "3333");
    run_for(10);
    EXPECT_EQ(view::text(form1::Label_rpm), "3333");
}

TEST_F(Polling, StoppedInTheMiddleOfAPassItLeavesNoTimerRunningBehindIt) {
    start_connected();
    while (form1::Timer_stato_sistema.is_on())
        run_for(1);
    inside_program(monitor::stop_polling);
    run_for(310);
    EXPECT_FALSE(form1::Timer2.is_on()); // the pass is over
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Polling, ASilentUnitIsAskedEvery300MillisecondsForEverAndTheValuesStandStill) {
    start_scripted();
    show({.rpm = 1111});
    telegram = {};
    port->alter = [](const link::Bytes&) { return link::Bytes{}; };
    run_for(1000);
    forget_wire();
    run_for(60'000);
    EXPECT_EQ(port->sent.size(), 200u);
    EXPECT_THAT(frames(), Each(Send(3)));
    EXPECT_EQ(view::text(form1::Label_rpm), "1111");
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Polling, ASilentUnitIsAskedOnAfterTheStopAndThePollingEndsWithItsNextTelegram) {
    start_scripted();
    port->silent = true;
    port->alter = nullptr;
    run_for(1000);
    operator_clicks(form1::Command_impostazioni);
    run_for(3000);
    forget_wire();
    run_for(3000);
    EXPECT_EQ(port->sent.size(), 10u) << "the loop looks at neither flag nor panel";
    port->silent = false;
    run_for(1000);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre());
}

TEST_F(Polling, APulledPlugEndsNothingAndTheUnitIsHeardAgainWhenItIsBack) {
    start_scripted();
    show({.rpm = 1111});
    port->unplugged = true;
    forget_wire();
    run_for(30'000);
    EXPECT_THAT(frames(), ElementsAre());
    EXPECT_EQ(view::text(form1::Label_rpm), "1111");
    port->unplugged = false;
    show({.rpm = 1222});
    EXPECT_EQ(view::text(form1::Label_rpm), "1222");
    forget_wire();
    run_until_sent(2);
    EXPECT_EQ(gap_behind(0), 350);
}

TEST_F(Polling, ALineThatFloodsIsReadNoMoreOftenThanItIsAsked) {
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

// 0 asks again; 1 to 26 is dropped and ends the pass; from 27 on the echo decides.
TEST_F(Polling, EveryLengthOfAReplyWithTheRightEchoIsTakenForWhatItIs) {
    start_scripted();
    for (std::size_t length = 0; length <= 300; ++length) {
        next_telegrams = {reply_of_length(telegram, length)};
        forget_wire();
        run_until_sent(1); // the reply has been read
        const auto before = form1::Shape2.look.back;
        run_until_sent(2);
        const bool shown = length >= 27;
        EXPECT_EQ(gap_behind(0), length == 0 ? 300 : 350) << length << " bytes";
        EXPECT_EQ(beaten_since(before), shown) << length << " bytes";
    }
}

TEST_F(Polling, EveryLengthOfAReplyWithAWrongEchoIsTakenForWhatItIs) {
    start_scripted();
    Telegram wrong;
    wrong.echo = 16;
    for (std::size_t length = 0; length <= 300; ++length) {
        next_telegrams = {reply_of_length(wrong, length)};
        forget_wire();
        run_until_sent(1);
        const auto before = form1::Shape2.look.back;
        run_until_sent(2);
        const bool dropped = length >= 1 && length < 27;
        EXPECT_EQ(gap_behind(0), dropped ? 350 : 300) << length << " bytes";
        EXPECT_FALSE(beaten_since(before)) << length << " bytes";
    }
}

TEST_F(Polling, AWrongEchoIsAskedAgainWithoutLimit) {
    start_scripted();
    show({.rpm = 1111});
    telegram = {.rpm = 4444, .echo = 1};
    forget_wire();
    run_for(30'000);
    EXPECT_GE(port->sent.size(), 99u);
    EXPECT_EQ(view::text(form1::Label_rpm), "1111");
    show({.rpm = 1333});
    EXPECT_EQ(view::text(form1::Label_rpm), "1333");
}

TEST_F(Polling, TheTickOnAClosedPortSwitchesItselfOffAndShowsNothing) {
    start_scripted();
    show({.rpm = 1111});
    inside_program([] { monitor::stop_polling(); });
    run_for(1000);
    telegram.rpm = 5555;
    inside_program([] {
        link::close_port();
        view::set_tab_stop(form1::Slider_ktar, false);
        monitor::start_polling();
    });
    forget_wire();
    run_for(60);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_TRUE(form1::Slider_ktar.look.tab_stop);
    inside_program([] { link::open_port(1); });
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre()) << "the open port alone brings no polling back";
    EXPECT_EQ(view::text(form1::Label_rpm), "1111");
}

TEST_F(Polling, AStopDuringTheWaitLetsTheTelegramUnderWayBeShownAndNothingFollows) {
    start_scripted();
    forget_wire();
    telegram.rpm = 6666;
    run_until_sent(1);
    run_for(100);
    inside_program([] { monitor::stop_polling(); });
    EXPECT_NE(view::text(form1::Label_rpm), "6666");
    run_for(5000);
    EXPECT_EQ(view::text(form1::Label_rpm), "6666");
    EXPECT_EQ(port->sent.size(), 1u);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Polling, AStoppedTickSendsNothingAndGivesTheSlidersTheirTabStop) {
    start_scripted();
    inside_program([] { monitor::stop_polling(); });
    run_for(1000);
    forget_wire();
    inside_program([] {
        view::set_tab_stop(form1::Slider_attenuazione, false);
        view::set_tab_stop(form1::Slider_ktar, false);
        form1::Timer_stato_sistema.on();
    });
    run_for(50);
    EXPECT_TRUE(form1::Slider_attenuazione.look.tab_stop);
    EXPECT_TRUE(form1::Slider_ktar.look.tab_stop);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre());
}

TEST_F(Polling, TheSlidersHaveNoTabStopUntilTheFirstTickIsOver) {
    start_program();
    for (int i = 0; i < 2000 && !form1::Timer_stato_sistema.is_on(); ++i)
        run_for(10);
    EXPECT_FALSE(form1::Slider_attenuazione.look.tab_stop);
    EXPECT_FALSE(form1::Slider_ktar.look.tab_stop);
    run_for(2000);
    EXPECT_TRUE(form1::Slider_attenuazione.look.tab_stop);
    EXPECT_TRUE(form1::Slider_ktar.look.tab_stop);
}

TEST_F(Polling, ATickUnloadsTheConnectionDialogIfItIsStillThere) {
    start_scripted();
    inside_program([] { monitor::stop_polling(); });
    run_for(1000);
    inside_program([] {
        view::show(centralina_attiva::Centralina_Attiva);
        form1::Timer_stato_sistema.on();
    });
    EXPECT_TRUE(centralina_attiva::Centralina_Attiva.loaded);
    run_for(400);
    EXPECT_FALSE(centralina_attiva::Centralina_Attiva.loaded);
}

TEST_F(Polling, TheDelayedStopComes200MillisecondsLaterAndOnce) {
    start_scripted();
    inside_program([] { form1::Timer_chiusura_stato.on(); });
    run_for(199);
    EXPECT_TRUE(app::state.poll_enabled);
    run_for(1);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_chiusura_stato.is_on());
    run_for(1000);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
}

TEST_F(Polling, TheReadingButtonStartsThePollingAgain) {
    start_scripted();
    inside_program([] { monitor::stop_polling(); });
    run_for(1000);
    forget_wire();
    const auto start = now_ms();
    operator_clicks(form1::Command31);
    run_until_sent(1);
    EXPECT_EQ(port->sent[0].at_ms - start, 50);
    EXPECT_TRUE(app::state.poll_enabled);
}

} // namespace
} // namespace zol::tests

// The live data of the car's diagnosis link, which the polling asks for after each status telegram.
#include "tests/support/replies.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::Contains;
using testing::Each;

constexpr LiveData lost_link{.loop_state = 255, .fast_trim = 255};
constexpr LiveData keeps_text{.loop_state = 9}; // an unknown state keeps the text of the last one

class EobdLive : public ReplyTest {
  protected:
    void show_live(const LiveData& shown) {
        live = shown;
        run_for(1500);
    }
    static const std::string& loop() { return text(form1::Label1); }

    // Clears the notes just before the next command 3.
    void run_until_asked_for_status() {
        do {
            forget_wire();
            run_until_sent(1);
        } while (!HasFailure() && port->sent[0].frame == Send(16));
    }
    // 12 bytes end the pass, whatever their echo; 8 ask for the status again; any other length asks
    // for the live data again.
    void expect_each_length_is_taken(const LiveData& shape) {
        for (std::size_t length = 0; length <= 300; ++length) {
            SCOPED_TRACE(length);
            run_until_asked_for_status();
            next_live = {reply_of_length(shape, length)};
            run_until_sent(3);
            ASSERT_FALSE(HasFailure());
            EXPECT_EQ(port->sent[2].frame, length == 12 || length == 8 ? Send(3) : Send(16));
            EXPECT_EQ(gap_after(1), length == 12 ? 150 : 100);
        }
    }
};

TEST_F(EobdLive, PassOfFamily2Takes450Milliseconds) {
    start_scripted(2, 7, 30);
    run_until_asked_for_status();
    run_until_sent(5);
    EXPECT_THAT(frames(), ElementsAre(Send(3), Send(16), Send(3), Send(16), Send(3)));
    EXPECT_THAT((std::vector{gap_after(0), gap_after(1), gap_after(2), gap_after(3)}),
                ElementsAre(300, 150, 300, 150));
}

TEST_F(EobdLive, Family4IsAskedToo) {
    start_scripted(4, 7, 30);
    EXPECT_THAT(frames_in(1000), Contains(Send(16)));
}

class WithoutEobd : public EobdLive, public testing::WithParamInterface<int> {};

TEST_P(WithoutEobd, OnlyTheStatusIsAskedFor) {
    start_scripted(GetParam(), 7, 30);
    EXPECT_THAT(frames_in(3000), Each(Send(3)));
}

INSTANTIATE_TEST_SUITE_P(OtherFamilies, WithoutEobd, testing::Values(0, 1, 3));

TEST_F(EobdLive, DroppedTelegramIsFollowedByLiveData) {
    start_scripted(2);
    next_telegrams = {reply_of_length(telegram, 26)};
    run_until_asked_for_status();
    run_until_sent(2);
    EXPECT_THAT(frames(), ElementsAre(Send(3), Send(16)));
    EXPECT_EQ(gap_after(0), 300);
}

TEST_F(EobdLive, ReplyOfEachLengthWithTheRightEcho) {
    start_scripted(2);
    expect_each_length_is_taken(live);
}

TEST_F(EobdLive, ReplyOfEachLengthWithAWrongEcho) {
    start_scripted(2);
    expect_each_length_is_taken({.echo = 3});
}

TEST_F(EobdLive, MissingReplyIsAskedForEvery100Milliseconds) {
    start_scripted(2);
    next_live.assign(10'000, {});
    run_for(1000);
    EXPECT_EQ(frames_in(30'000), std::vector(300, Send(16)));
}

TEST_F(EobdLive, EchoIsNotTested) {
    start_scripted(2);
    show_live({.lambda_mv = 777, .echo = 3});
    EXPECT_EQ(text(form1::Label42), "777mV");
}

TEST_F(EobdLive, ShowsVisualValueAndLambda) {
    start_scripted(2);
    show_live({.visual = 260, .lambda_mv = 612});
    EXPECT_EQ(text(form1::Label49), "L= 260");
    EXPECT_EQ(text(form1::Label42), "612mV");
}

TEST_F(EobdLive, ShowsTrimsInPercentFromTheirMiddle) {
    start_scripted(2);
    const std::tuple<int, int, const char*, const char*> trims[] = {
        {133, 123, "3.9 % ", "-3.9 % "},
        {128, 0, "0 % ", "-99.84 % "},
        {0, 1, "-99.84 % ", "-99.06 % "}, // one of them alone may be 0
        {254, 255, "98.28 % ", "99.06 % "}};
    for (const auto& [fast, slow, shown_fast, shown_slow] : trims) {
        show_live({.fast_trim = fast, .long_trim = slow});
        EXPECT_EQ(text(form1::Label13), shown_fast);
        EXPECT_EQ(text(form1::Label14), shown_slow);
    }
}

TEST_F(EobdLive, LoopStateHasThreeTexts) {
    start_scripted(2);
    const std::pair<int, const char*> texts[] = {
        {0, "OPEN LOOP  "}, {2, "CLOSED LOOP  "}, {4, "OPEN LOOP TRANS.  "}};
    for (const auto& [state, shown] : texts) {
        show_live({.loop_state = state});
        EXPECT_EQ(loop(), shown);
    }
    for (const int other : {1, 3, 5, 255}) {
        show_live({.loop_state = other, .lambda_mv = other});
        EXPECT_EQ(loop(), "OPEN LOOP TRANS.  ") << "any other keeps the last text";
        EXPECT_EQ(text(form1::Label42), std::to_string(other) + "mV");
    }
}

TEST_F(EobdLive, BothTrims0MeanThatTheLinkBegins) {
    start_scripted(2);
    show_live({.visual = 31});
    show_live({.fast_trim = 0, .long_trim = 0, .visual = 99});
    EXPECT_EQ(loop(), "WAIT INIT  PROT..  ");
    EXPECT_EQ(text(form1::Label13), "--");
    EXPECT_EQ(text(form1::Label14), "--");
    EXPECT_EQ(text(form1::Label42), "--");
    EXPECT_EQ(text(form1::Label49), "L= 31") << "this one keeps its value";
}

TEST_F(EobdLive, FourthLossIsShown) {
    start_scripted(2);
    show_live({});
    live = keeps_text;
    next_live.assign(3, reply_to(lost_link));
    run_for(2000);
    EXPECT_EQ(app::state.lost_counter, 3);
    EXPECT_EQ(loop(), "CLOSED LOOP  ");
    next_live.assign(2, reply_to(lost_link));
    run_for(2000);
    EXPECT_EQ(app::state.lost_counter, 5);
    EXPECT_EQ(loop(), "LOST CONNECTION");
}

TEST_F(EobdLive, CountOfLossesIsATotalOverTheRun) {
    start_scripted(2);
    for (int i = 1; i <= 3; ++i) {
        next_live = {reply_to(lost_link)};
        show_live({.loop_state = 0});
        EXPECT_EQ(app::state.lost_counter, i);
        EXPECT_EQ(loop(), "OPEN LOOP  ");
    }
    next_live = {reply_to(lost_link)};
    show_live(keeps_text);
    EXPECT_EQ(app::state.lost_counter, 4);
    EXPECT_EQ(loop(), "LOST CONNECTION") << "a single telegram is enough now";
}

TEST_F(EobdLive, LossWithALoopStateIsOnlyCounted) {
    start_scripted(2);
    app::state.lost_counter = 10;
    show_live({.loop_state = 0});
    next_live = {reply_to(LiveData{.loop_state = 2, .fast_trim = 255, .long_trim = 7})};
    show_live(keeps_text);
    EXPECT_EQ(app::state.lost_counter, 11);
    EXPECT_EQ(loop(), "OPEN LOOP  ");
}

} // namespace
} // namespace zol::tests

// The live data of the car's diagnosis line, asked for behind each status telegram.
#include "tests/support/replies.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Not;

class EobdLive : public ReplyBench {
  protected:
    void show_live(const LiveData& shown) {
        live = shown;
        run_for(1500);
    }
    // The notes begin anew with the next command 3.
    void run_until_asked_for_status() {
        do {
            forget_wire();
            run_until_sent(1);
        } while (!HasFailure() && port->sent[0].frame == Send(16));
    }
    // What goes out behind the first command 16 that reads `reply`, and after how long.
    std::pair<Frame, std::int64_t> answer_to(const link::Bytes& reply) {
        run_until_asked_for_status();
        next_live = {reply};
        run_until_sent(3);
        if (HasFailure()) return {};
        return {port->sent[2].frame, gap_behind(1)};
    }
};

TEST_F(EobdLive, OnFamilyTwoEachPassTakes450Milliseconds) {
    start_scripted(2, 7, 30);
    run_until_asked_for_status();
    run_until_sent(5);
    EXPECT_THAT(frames(), ElementsAre(Send(3), Send(16), Send(3), Send(16), Send(3)));
    EXPECT_THAT((std::vector{gap_behind(0), gap_behind(1), gap_behind(2), gap_behind(3)}),
                ElementsAre(300, 150, 300, 150));
}

TEST_F(EobdLive, FamilyFourIsAskedToo) {
    start_scripted(4, 7, 30);
    run_for(1000);
    EXPECT_THAT(frames(), Contains(Send(16)));
}

class WithoutEobd : public EobdLive, public testing::WithParamInterface<int> {};

TEST_P(WithoutEobd, NoLiveDataIsAskedFor) {
    start_scripted(GetParam(), 7, 30);
    run_for(3000);
    EXPECT_THAT(frames(), Each(Send(3)));
}

INSTANTIATE_TEST_SUITE_P(OtherFamilies, WithoutEobd, testing::Values(0, 1, 3));

TEST_F(EobdLive, ADroppedTelegramIsFollowedByTheLiveDataAllTheSame) {
    start_scripted(2);
    next_telegrams = {reply_of_length(telegram, 26)};
    run_until_asked_for_status();
    run_until_sent(2);
    EXPECT_THAT(frames(), ElementsAre(Send(3), Send(16)));
    EXPECT_EQ(gap_behind(0), 300);
}

// 12 bytes end the pass, whatever their echo; 8 ask for the status anew; any other length repeats.
void expect_each_length(const std::function<std::pair<Frame, std::int64_t>(std::size_t)>& answer) {
    for (std::size_t length = 0; length <= 300; ++length) {
        const auto [frame, after_ms] = answer(length);
        EXPECT_EQ(frame, length == 12 || length == 8 ? Send(3) : Send(16)) << length << " bytes";
        EXPECT_EQ(after_ms, length == 12 ? 150 : 100) << length << " bytes";
    }
}

TEST_F(EobdLive, EveryLengthWithTheRightEchoIsTakenForWhatItIs) {
    start_scripted(2);
    expect_each_length(
        [this](std::size_t length) { return answer_to(reply_of_length(live, length)); });
}

TEST_F(EobdLive, EveryLengthWithAWrongEchoIsTakenForWhatItIs) {
    start_scripted(2);
    LiveData other;
    other.echo = 3;
    expect_each_length(
        [&](std::size_t length) { return answer_to(reply_of_length(other, length)); });
}

TEST_F(EobdLive, NoAnswerToItIsAskedTenTimesASecondForEver) {
    start_scripted(2);
    next_live.assign(10'000, {});
    run_for(1000);
    forget_wire();
    run_for(30'000);
    EXPECT_THAT(frames(), Each(Send(16)));
    EXPECT_EQ(port->sent.size(), 300u);
}

TEST_F(EobdLive, AnUntestedEchoLetsATwelveByteReplyOfAnotherCommandBeShown) {
    start_scripted(2);
    show_live({.lambda_mv = 777, .echo = 3});
    EXPECT_EQ(view::text(form1::Label42), "777mV");
}

TEST_F(EobdLive, TrimsAreShownInPercentFromTheirMiddle) {
    start_scripted(2);
    show_live({.fast_trim = 133, .long_trim = 123, .visual = 260, .lambda_mv = 612});
    EXPECT_EQ(view::text(form1::Label13), "3.9 % ");
    EXPECT_EQ(view::text(form1::Label14), "-3.9 % ");
    EXPECT_EQ(view::text(form1::Label49), "L= 260");
    EXPECT_EQ(view::text(form1::Label42), "612mV");
    show_live({.fast_trim = 128, .long_trim = 0});
    EXPECT_EQ(view::text(form1::Label13), "0 % ");
    EXPECT_EQ(view::text(form1::Label14), "-99.84 % ");
    show_live({.fast_trim = 254, .long_trim = 255});
    EXPECT_EQ(view::text(form1::Label13), "98.28 % ");
    EXPECT_EQ(view::text(form1::Label14), "99.06 % ");
}

TEST_F(EobdLive, TheLoopStateHasThreeTextsAndAnyOtherLeavesTheLast) {
    start_scripted(2);
    show_live({.loop_state = 0});
    EXPECT_EQ(view::text(form1::Label1), "OPEN LOOP  ");
    show_live({.loop_state = 2});
    EXPECT_EQ(view::text(form1::Label1), "CLOSED LOOP  ");
    show_live({.loop_state = 4});
    EXPECT_EQ(view::text(form1::Label1), "OPEN LOOP TRANS.  ");
    for (const int other : {1, 3, 5, 255}) {
        show_live({.loop_state = other, .lambda_mv = other});
        EXPECT_EQ(view::text(form1::Label1), "OPEN LOOP TRANS.  ");
        EXPECT_EQ(view::text(form1::Label42), std::to_string(other) + "mV");
    }
}

TEST_F(EobdLive, BothTrimsZeroMeanThatTheLinkBegins) {
    start_scripted(2);
    show_live({.visual = 31});
    show_live({.fast_trim = 0, .long_trim = 0, .visual = 99});
    EXPECT_EQ(view::text(form1::Label1), "WAIT INIT  PROT..  ");
    EXPECT_EQ(view::text(form1::Label13), "--");
    EXPECT_EQ(view::text(form1::Label14), "--");
    EXPECT_EQ(view::text(form1::Label42), "--");
    EXPECT_EQ(view::text(form1::Label49), "L= 31") << "this one keeps its value";
    show_live({.fast_trim = 0, .long_trim = 1});
    EXPECT_EQ(view::text(form1::Label13), "-99.84 % ") << "one trim alone may be zero";
}

TEST_F(EobdLive, TheFourthLostTelegramShowsTheLossAndTheThirdDoesNot) {
    start_scripted(2);
    show_live({});
    const link::Bytes lost = reply_to(LiveData{.loop_state = 255, .fast_trim = 255});
    live.loop_state = 9; // leaves the text that it finds
    next_live = {lost, lost, lost};
    run_for(2000);
    EXPECT_EQ(app::state.lost_counter, 3);
    EXPECT_EQ(view::text(form1::Label1), "CLOSED LOOP  ");
    next_live = {lost, lost};
    run_for(2000);
    EXPECT_EQ(app::state.lost_counter, 5);
    EXPECT_EQ(view::text(form1::Label1), "LOST CONNECTION");
}

TEST_F(EobdLive, TheCountOfLossesIsATotalOverTheRun) {
    start_scripted(2);
    const link::Bytes lost = reply_to(LiveData{.loop_state = 255, .fast_trim = 255});
    for (int i = 0; i < 3; ++i) {
        next_live = {lost};
        show_live({.loop_state = 0});
        EXPECT_EQ(app::state.lost_counter, i + 1);
        EXPECT_EQ(view::text(form1::Label1), "OPEN LOOP  ");
    }
    next_live = {lost};
    show_live({.loop_state = 9});
    EXPECT_EQ(app::state.lost_counter, 4);
    EXPECT_EQ(view::text(form1::Label1), "LOST CONNECTION") << "one single telegram is enough now";
}

TEST_F(EobdLive, ALossThatKnowsTheLoopStateCountsButShowsNothing) {
    start_scripted(2);
    app::state.lost_counter = 10;
    show_live({.loop_state = 0});
    next_live = {reply_to(LiveData{.loop_state = 2, .fast_trim = 255, .long_trim = 7})};
    show_live({.loop_state = 9});
    EXPECT_EQ(app::state.lost_counter, 11);
    EXPECT_EQ(view::text(form1::Label1), "OPEN LOOP  ");
}

} // namespace
} // namespace zol::tests

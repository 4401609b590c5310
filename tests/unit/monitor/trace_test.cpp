// The lambda trace, stroke by stroke, on the engine panel and on the lambda panel.
#include "app/app_state.h"
#include "app/numbers.h"
#include "monitor/lambda_trace.h"
#include "tests/support/replies.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using view::Stroke;

class Trace : public ReplyBench {
  protected:
    void SetUp() override {
        start_scripted();
        operator_clicks(form1::Command_lambda); // stops the polling, and Timer3 with the next line
        inside_program([] { form1::Timer3.off(); });
        run_for(2000);
        app::state.trace_x = 0;
        app::state.lambda_previous_sample = 0;
        inside_program([] { view::clear_drawing(form1::Picture1); });
        forget_wire();
    }
    static double width() { return form1::Picture1.design.place.width; }
    static double mid() { return form1::Picture1.design.place.height / 2; }
    static Stroke centre_line() {
        return {Stroke::Shape::line, 0, mid(), width(), mid(), view::red};
    }
    static Stroke bar(double x, double end_y, view::Colour colour) {
        return {Stroke::Shape::filled_rectangle, x, mid(), x + 60, end_y, colour};
    }
    static const std::vector<Stroke>& strokes() { return form1::Picture1.look.strokes; }

    void engine_panel_draws(double sample) {
        inside_program([sample] {
            app::state.lambda_sample = sample;
            monitor::trace_on_engine_panel();
        });
    }
    void lambda_panel_draws(int sample) {
        Telegram shown;
        shown.lambda = sample;
        inside_program([&] { monitor::trace_on_lambda_panel(link::Reply(reply_to(shown))); });
    }
    void centre_is(const std::string& text) {
        inside_program([&] { view::set_text(form1::Text_lambda_closed_loop, text); });
    }
    void scale_is(const std::string& text) {
        inside_program([&] { view::set_text(form1::Label35, text); });
    }
};

TEST_F(Trace, OnTheEnginePanelARichSampleDrawsAGreenBarUpwardsFromTheMiddle) {
    engine_panel_draws(455);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, mid() - 55, view::green)));
    EXPECT_EQ(app::state.trace_x, 100);
}

TEST_F(Trace, OnTheEnginePanelALeanSampleDrawsARedBarDownwards) {
    engine_panel_draws(80);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, mid() + 320, view::red)));
}

TEST_F(Trace, BackAtTheMainWindowItStartsAtItsLeftEdgeOverTheBarsThatStandThere) {
    engine_panel_draws(455);
    engine_panel_draws(455);
    inside_program([] {
        app::state.no_reread = true;
        form1::Form1.on.activate();
    });
    engine_panel_draws(80);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, mid() - 55, view::green),
                                       centre_line(), bar(100, mid() - 55, view::green),
                                       centre_line(), bar(0, mid() + 320, view::red)));
}

TEST_F(Trace, ASampleOnTheCentreDrawsARedBarOfNoHeight) {
    engine_panel_draws(400);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, mid(), view::red)));
    engine_panel_draws(401);
    EXPECT_EQ(strokes().back(), bar(100, mid() - 1, view::green));
}

TEST_F(Trace, ASampleOfTwentyDrawsNothingAndOneOfTwentyOneDraws) {
    engine_panel_draws(20);
    EXPECT_THAT(strokes(), IsEmpty());
    EXPECT_EQ(app::state.trace_x, 0);
    engine_panel_draws(21);
    EXPECT_EQ(strokes().size(), 2u);
    lambda_panel_draws(20);
    EXPECT_EQ(strokes().size(), 2u);
    EXPECT_EQ(view::text(form1::Label_lambda), "0");
    EXPECT_EQ(view::text(form1::label_lambda_2), "0");
    lambda_panel_draws(21);
    EXPECT_EQ(strokes().size(), 4u);
    EXPECT_EQ(view::text(form1::Label_lambda), "21");
    EXPECT_EQ(view::text(form1::label_lambda_2), "21");
}

TEST_F(Trace, TheSweepClearsTheChartAtItsEdgeAndBeginsAnewOneTickLater) {
    const int bars = static_cast<int>(width() / 100) + 1; // the last stands at 4600 of 4620
    for (int i = 0; i < bars; ++i)
        engine_panel_draws(500);
    EXPECT_EQ(strokes().size(), 2u * static_cast<std::size_t>(bars));
    EXPECT_EQ(strokes().back(), bar(100 * (bars - 1), mid() - 100, view::green));
    engine_panel_draws(500);
    EXPECT_THAT(strokes(), IsEmpty());
    EXPECT_EQ(app::state.trace_x, 0);
    engine_panel_draws(500);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, mid() - 100, view::green)));
}

TEST_F(Trace, ABarThatWouldBeginOnTheEdgeIsNotDrawn) {
    app::state.trace_x = width() - 1;
    engine_panel_draws(500);
    EXPECT_EQ(strokes().size(), 2u);
    app::state.trace_x = width();
    engine_panel_draws(500);
    EXPECT_THAT(strokes(), IsEmpty());
}

TEST_F(Trace, BothPanelsShareOneSweep) {
    centre_is("400");
    engine_panel_draws(500);
    lambda_panel_draws(500);
    EXPECT_EQ(strokes().back(), bar(100, mid() - 100, view::green));
    engine_panel_draws(500);
    EXPECT_EQ(strokes().back(), bar(200, mid() - 100, view::green));
}

TEST_F(Trace, OnTheLambdaPanelTheClosedLoopValueIsTheCentreAndTheScaleStretches) {
    centre_is("450");
    for (int scale = 0; scale <= 4; ++scale) {
        scale_is(std::to_string(scale));
        lambda_panel_draws(470);
        EXPECT_EQ(strokes().back(), bar(200 * scale, mid() - 20 * scale, view::green)) << scale;
        lambda_panel_draws(440);
        EXPECT_EQ(strokes().back(), bar(200 * scale + 100, mid() + 10 * scale, view::red)) << scale;
    }
}

TEST_F(Trace, ACentreThatIsNoNumberIsZero) {
    centre_is("about 400");
    scale_is("1");
    lambda_panel_draws(100);
    EXPECT_EQ(strokes().back(), bar(0, mid() - 100, view::green));
}

TEST_F(Trace, ASampleAboveFiveTimesTheLastDrawnOneIsHeldBackOnTheNextTick) {
    centre_is("0");
    lambda_panel_draws(100);
    EXPECT_EQ(app::state.lambda_previous_sample, 100);
    lambda_panel_draws(500); // five times is not above it
    EXPECT_EQ(app::state.lambda_sample, 500);
    lambda_panel_draws(90);
    lambda_panel_draws(451); // taken: the filter looks at the sample that is there, 90
    EXPECT_EQ(app::state.lambda_sample, 451);
    EXPECT_EQ(app::state.lambda_previous_sample, 451);
    app::state.lambda_previous_sample = 90;
    lambda_panel_draws(700); // 451 is above 5 * 90
    EXPECT_EQ(app::state.lambda_sample, 90) << "the telegram's bytes are not used";
    EXPECT_EQ(view::text(form1::Label_lambda), "90");
    EXPECT_EQ(strokes().back(), bar(400, mid() - 90, view::green));
    lambda_panel_draws(700);
    EXPECT_EQ(app::state.lambda_sample, 700);
}

TEST_F(Trace, ALeapReadByTheLambdaPanelIsDrawnOnEachTick) {
    centre_is("0");
    lambda_panel_draws(90);
    for (int tick = 1; tick <= 3; ++tick) {
        lambda_panel_draws(700);
        EXPECT_EQ(strokes().back(), bar(100 * tick, mid() - 700, view::green));
    }
}

TEST_F(Trace, ALeapReadByThePollingIsHeldBackForOneTick) {
    centre_is("0");
    lambda_panel_draws(90);
    engine_panel_draws(700);
    lambda_panel_draws(700);
    EXPECT_EQ(strokes().back(), bar(200, mid() - 90, view::green));
    lambda_panel_draws(700);
    EXPECT_EQ(strokes().back(), bar(300, mid() - 700, view::green));
}

TEST_F(Trace, ALeapReadByTheTickThatClearsIsHeldBackForOneTick) {
    centre_is("0");
    lambda_panel_draws(90);
    app::state.trace_x = width();
    lambda_panel_draws(700);
    EXPECT_THAT(strokes(), IsEmpty());
    lambda_panel_draws(700);
    EXPECT_EQ(strokes().back(), bar(0, mid() - 90, view::green));
    lambda_panel_draws(700);
    EXPECT_EQ(strokes().back(), bar(100, mid() - 700, view::green));
}

TEST_F(Trace, ExactlyFiveTimesIsNoLeap) {
    app::state.lambda_previous_sample = 90;
    app::state.lambda_sample = 450;
    lambda_panel_draws(300);
    EXPECT_EQ(app::state.lambda_sample, 300);
}

TEST_F(Trace, WithoutASampleBeforeThereIsNoFilter) {
    app::state.lambda_sample = 9000;
    lambda_panel_draws(300);
    EXPECT_EQ(app::state.lambda_sample, 300);
}

TEST_F(Trace, TheTickThatClearsTheChartDoesNotKeepItsSample) {
    lambda_panel_draws(300);
    app::state.trace_x = width();
    lambda_panel_draws(310);
    EXPECT_THAT(strokes(), IsEmpty());
    EXPECT_EQ(app::state.lambda_previous_sample, 300);
    lambda_panel_draws(20);
    EXPECT_EQ(app::state.lambda_previous_sample, 300) << "nor does a silent sensor";
    lambda_panel_draws(320);
    EXPECT_EQ(app::state.lambda_previous_sample, 320);
}

TEST_F(Trace, TheScaleButtonsGoFromZeroToFour) {
    for (const char* expected : {"2", "3", "4", "4"}) {
        operator_clicks(form1::Command_piu);
        EXPECT_EQ(view::text(form1::Label35), expected);
    }
    for (const char* expected : {"3", "2", "1", "0", "0"}) {
        operator_clicks(form1::Command_meno);
        EXPECT_EQ(view::text(form1::Label35), expected);
    }
}

TEST_F(Trace, ThePollDrawsOneBarForEachTelegram) {
    operator_clicks(form1::Command_engine);
    run_for(1000);
    inside_program([] { view::clear_drawing(form1::Picture1); });
    app::state.trace_x = 0;
    telegram.lambda = 430;
    run_for(350);
    inside_program([] { view::clear_drawing(form1::Picture1); });
    app::state.trace_x = 0;
    run_for(700);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, mid() - 30, view::green),
                                       centre_line(), bar(100, mid() - 30, view::green)));
}

} // namespace
} // namespace zol::tests

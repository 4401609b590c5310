// The lambda trace on the engine panel and on the lambda panel, stroke by stroke.
#include "monitor/lambda_trace.h"
#include "tests/support/replies.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using app::state;
using view::Stroke;

class Trace : public ReplyTest {
  protected:
    void SetUp() override {
        start_scripted();
        operator_clicks(form1::Command_lambda); // stops the polling
        inside_program([] { form1::Timer3.off(); });
        run_for(2000);
        state.lambda_previous_sample = 0;
        clear_chart();
    }
    void clear_chart() {
        state.trace_x = 0;
        inside_program([] { view::clear_drawing(form1::Picture1); });
    }
    static double width() { return form1::Picture1.design.place.width; }
    static double mid() { return form1::Picture1.design.place.height / 2; }
    static Stroke centre_line() {
        return {Stroke::Shape::line, 0, mid(), width(), mid(), view::red};
    }
    // Upwards from the middle: green, downwards or of no height: red.
    static Stroke bar(double x, double height) {
        return bar(x, height, height > 0 ? view::green : view::red);
    }
    static Stroke bar(double x, double height, view::Colour colour) {
        return {Stroke::Shape::filled_rectangle, x, mid(), x + 60, mid() - height, colour};
    }
    static const std::vector<Stroke>& strokes() { return form1::Picture1.look.strokes; }

    void engine_panel_draws(double sample) {
        inside_program([sample] {
            state.lambda_sample = sample;
            monitor::trace_on_engine_panel();
        });
    }
    void lambda_panel_draws(int sample) {
        inside_program([&] {
            monitor::trace_on_lambda_panel(link::Reply(reply_to(Telegram{.lambda = sample})));
        });
    }
    void centre_is(const std::string& caption) {
        inside_program([&] { view::set_text(form1::Text_lambda_closed_loop, caption); });
    }
    void scale_is(const std::string& caption) {
        inside_program([&] { view::set_text(form1::Label35, caption); });
    }
};

TEST_F(Trace, RichSampleDrawsAGreenBarUpwards) {
    engine_panel_draws(455);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, 55)));
    EXPECT_EQ(state.trace_x, 100);
}

TEST_F(Trace, LeanSampleDrawsARedBarDownwards) {
    engine_panel_draws(80);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, -320)));
}

TEST_F(Trace, SampleOnTheCentreDrawsARedBarOfNoHeight) {
    engine_panel_draws(400);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, 0)));
    engine_panel_draws(401);
    EXPECT_EQ(strokes().back(), bar(100, 1));
}

// The older bars stay.
TEST_F(Trace, ActivationMovesItToTheLeftEdge) {
    engine_panel_draws(455);
    engine_panel_draws(455);
    inside_program([] {
        state.no_reread = true;
        form1::Form1.on.activate();
    });
    engine_panel_draws(80);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, 55), centre_line(), bar(100, 55),
                                       centre_line(), bar(0, -320)));
}

TEST_F(Trace, SampleUpTo20DrawsNothing) {
    engine_panel_draws(20);
    lambda_panel_draws(20);
    EXPECT_THAT(strokes(), IsEmpty());
    EXPECT_EQ(state.trace_x, 0);
    EXPECT_EQ(text(form1::Label_lambda), "0");
    EXPECT_EQ(text(form1::label_lambda_2), "0");
    engine_panel_draws(21);
    EXPECT_EQ(strokes().size(), 2u);
    lambda_panel_draws(21);
    EXPECT_EQ(strokes().size(), 4u);
    EXPECT_EQ(text(form1::Label_lambda), "21");
    EXPECT_EQ(text(form1::label_lambda_2), "21");
}

TEST_F(Trace, TickAtTheRightEdgeClearsTheChart) {
    const int bars = static_cast<int>(width() / 100) + 1; // the last one is at 4600 of 4620
    for (int i = 0; i < bars; ++i)
        engine_panel_draws(500);
    EXPECT_EQ(strokes().size(), 2u * static_cast<std::size_t>(bars));
    EXPECT_EQ(strokes().back(), bar(100 * (bars - 1), 100));
    engine_panel_draws(500);
    EXPECT_THAT(strokes(), IsEmpty());
    EXPECT_EQ(state.trace_x, 0);
    engine_panel_draws(500);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, 100)));
}

TEST_F(Trace, BarThatWouldBeginOnTheEdgeIsNotDrawn) {
    state.trace_x = width() - 1;
    engine_panel_draws(500);
    EXPECT_EQ(strokes().size(), 2u);
    state.trace_x = width();
    engine_panel_draws(500);
    EXPECT_THAT(strokes(), IsEmpty());
}

TEST_F(Trace, BothPanelsShareOneSweep) {
    centre_is("400");
    engine_panel_draws(500);
    lambda_panel_draws(500);
    EXPECT_EQ(strokes().back(), bar(100, 100));
    engine_panel_draws(500);
    EXPECT_EQ(strokes().back(), bar(200, 100));
}

TEST_F(Trace, LambdaPanelScalesAroundTheClosedLoopValue) {
    centre_is("450");
    for (int scale = 0; scale <= 4; ++scale) {
        scale_is(std::to_string(scale));
        lambda_panel_draws(470);
        EXPECT_EQ(strokes().back(), bar(200 * scale, 20 * scale, view::green)) << scale;
        lambda_panel_draws(440);
        EXPECT_EQ(strokes().back(), bar(200 * scale + 100, -10 * scale)) << scale;
    }
}

TEST_F(Trace, CentreThatIsNoNumberIs0) {
    centre_is("about 400");
    scale_is("1");
    lambda_panel_draws(100);
    EXPECT_EQ(strokes().back(), bar(0, 100));
}

// --- The filter of the lambda panel: it tests the sample that the tick before has left

TEST_F(Trace, LeapAboveFiveTimesIsReplacedOnce) {
    centre_is("0");
    state.lambda_previous_sample = 90;
    state.lambda_sample = 451;
    lambda_panel_draws(700);
    EXPECT_EQ(state.lambda_sample, 90) << "the telegram is not used";
    EXPECT_EQ(text(form1::Label_lambda), "90");
    EXPECT_EQ(strokes().back(), bar(0, 90));
    lambda_panel_draws(700);
    EXPECT_EQ(state.lambda_sample, 700);
}

TEST_F(Trace, FiveTimesIsNoLeap) {
    state.lambda_previous_sample = 90;
    state.lambda_sample = 450;
    lambda_panel_draws(300);
    EXPECT_EQ(state.lambda_sample, 300);
}

TEST_F(Trace, FirstSampleIsNotFiltered) {
    state.lambda_sample = 9000;
    lambda_panel_draws(300);
    EXPECT_EQ(state.lambda_sample, 300);
}

TEST_F(Trace, LeapReadByTheLambdaPanelIsDrawn) {
    centre_is("0");
    lambda_panel_draws(90);
    for (int tick = 1; tick <= 3; ++tick) {
        lambda_panel_draws(700);
        EXPECT_EQ(strokes().back(), bar(100 * tick, 700));
        EXPECT_EQ(state.lambda_previous_sample, 700);
    }
}

TEST_F(Trace, LeapReadByThePollingIsHeldBackForOneTick) {
    centre_is("0");
    lambda_panel_draws(90);
    engine_panel_draws(700);
    lambda_panel_draws(700);
    EXPECT_EQ(strokes().back(), bar(200, 90));
    lambda_panel_draws(700);
    EXPECT_EQ(strokes().back(), bar(300, 700));
}

TEST_F(Trace, LeapReadByTheClearingTickIsHeldBackForOneTick) {
    centre_is("0");
    lambda_panel_draws(90);
    state.trace_x = width();
    lambda_panel_draws(700);
    EXPECT_THAT(strokes(), IsEmpty());
    lambda_panel_draws(700);
    EXPECT_EQ(strokes().back(), bar(0, 90));
    lambda_panel_draws(700);
    EXPECT_EQ(strokes().back(), bar(100, 700));
}

TEST_F(Trace, OnlyADrawnSampleIsKeptForTheFilter) {
    lambda_panel_draws(300);
    state.trace_x = width();
    lambda_panel_draws(310);
    EXPECT_THAT(strokes(), IsEmpty());
    EXPECT_EQ(state.lambda_previous_sample, 300);
    lambda_panel_draws(20);
    EXPECT_EQ(state.lambda_previous_sample, 300);
    lambda_panel_draws(320);
    EXPECT_EQ(state.lambda_previous_sample, 320);
}

TEST_F(Trace, ScaleButtonsGoFrom0To4) {
    for (const char* expected : {"2", "3", "4", "4"}) {
        operator_clicks(form1::Command_piu);
        EXPECT_EQ(text(form1::Label35), expected);
    }
    for (const char* expected : {"3", "2", "1", "0", "0"}) {
        operator_clicks(form1::Command_meno);
        EXPECT_EQ(text(form1::Label35), expected);
    }
}

TEST_F(Trace, PollDrawsOneBarForEachTelegram) {
    operator_clicks(form1::Command_engine, 1000ms);
    telegram.lambda = 430;
    run_for(350);
    clear_chart();
    run_for(700);
    EXPECT_THAT(strokes(), ElementsAre(centre_line(), bar(0, 30), centre_line(), bar(100, 30)));
}

} // namespace
} // namespace zol::tests

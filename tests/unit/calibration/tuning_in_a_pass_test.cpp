// A tuning that is answered Yes inside a pass of the polling which does not end.
#include "tests/support/no_live_data.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using testing::Each;
using testing::SizeIs;
using view::Answer;

// Presses Ctrl+T and answers Yes, at whichever moment the pass is.
template <class Fixture>
struct Tuned : Fixture {
    using Fixture::Fixture;
    void start_tuning() {
        this->screen.answer_message("Automatic Tuning System", Answer::yes);
        this->operator_presses(Form1, 84, 2);
    }
    void expect_finish() {
        this->screen.answer_message("AUTO READY TO GO!!!", Answer::ok);
        this->run_for(600'000);
        EXPECT_EQ(view::text(lbl_tuning), "-- FINISH --");
        EXPECT_FALSE(view::visible(lbl_tuning));
    }
};

struct TuningWithoutLiveData : Tuned<NoLiveDataBench> {};

TEST_F(TuningWithoutLiveData, RunsToItsEnd) {
    start_connected();
    run_for(5000);
    start_tuning();
    expect_finish();
}

struct ColdTuningWithoutLiveData : Tuned<NoLiveDataBench> {
    ColdTuningWithoutLiveData() : Tuned(false) {}
};

TEST_F(ColdTuningWithoutLiveData, ShowsThatItWaitsForTheTemperature) {
    start_connected();
    run_for(5000);
    start_tuning();
    run_for(1500);
    EXPECT_EQ(view::text(lbl_tuning), "-- WAIT TEMPERATURE... --");
    const std::string shown = view::text(form1::Label_temp);
    unit->engine().coolant_c = 80;
    run_for(60'000);
    EXPECT_EQ(view::text(form1::Label_temp), shown)
        << "such a pass never asks for the status again";
    EXPECT_EQ(view::text(lbl_tuning), "-- WAIT TEMPERATURE... --");
}

struct TuningOnDeadCable : Tuned<Bench>, testing::WithParamInterface<int> {
    explicit TuningOnDeadCable(bool warm = true)
        : Tuned(sim::Options{.family = 0, .version = 7, .revision = 71, .warm = warm}) {}
    void start_tuning_on_dead_cable() {
        start_connected();
        run_for(2000);
        port->silent = true;
        run_for(3000 + GetParam());
        start_tuning();
        run_for(2500);
        forget_wire();
    }
};

TEST_P(TuningOnDeadCable, RepeatsInTheSampler) {
    start_tuning_on_dead_cable();
    run_for(6000);
    EXPECT_THAT(frames(), Each(Send(3)));
    EXPECT_THAT(frames(), SizeIs(10)) << "every 600 ms, where the polling asks every 300";
}

TEST_P(TuningOnDeadCable, EndsOnceTheCableIsBack) {
    start_tuning_on_dead_cable();
    port->silent = false;
    expect_finish();
}

TEST_P(TuningOnDeadCable, SecondRunEndsToo) {
    start_tuning_on_dead_cable();
    start_tuning();
    run_for(2000);
    port->silent = false;
    screen.answer_message("AUTO READY TO GO!!!", Answer::ok);
    expect_finish();
    EXPECT_THAT(screen.message_boxes, SizeIs(4));
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, TuningOnDeadCable, testing::Values(0, 100, 200));

struct ColdTuningOnDeadCable : TuningOnDeadCable {
    ColdTuningOnDeadCable() : TuningOnDeadCable(false) {}
};

TEST_P(ColdTuningOnDeadCable, ReachesItsTemperatureGate) {
    start_tuning_on_dead_cable();
    EXPECT_EQ(view::text(lbl_tuning), "-- WAIT TEMPERATURE... --");
}

TEST_P(ColdTuningOnDeadCable, SeesTheEngineWarmOnceTheCableIsBack) {
    start_tuning_on_dead_cable();
    unit->engine().coolant_c = 85;
    run_for(10'000);
    EXPECT_EQ(view::text(lbl_tuning), "-- WAIT TEMPERATURE... --");
    port->silent = false;
    expect_finish();
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, ColdTuningOnDeadCable, testing::Values(0, 100, 200));

// Its passes never end either: each such reply asks for the status again.
struct TuningOnUnitWithoutDiagnosis : TuningOnDeadCable {};

TEST_P(TuningOnUnitWithoutDiagnosis, RunsToItsEnd) {
    start_connected();
    inside_program([] { app::state.ecu_family = 2; }); // whose request it answers with 8 bytes
    run_for(5000 + GetParam());
    start_tuning();
    expect_finish();
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, TuningOnUnitWithoutDiagnosis, testing::Values(0, 150, 300));

} // namespace
} // namespace zol::tests

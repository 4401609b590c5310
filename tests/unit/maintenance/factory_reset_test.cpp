// The factory reset: the question, the unit's own reset, the default calibration on top of it.
#include "maintenance/factory_reset.h"

#include "monitor/polling.h"
#include "tests/support/bench.h"
#include "view/windows/form1.h"

#include <numeric>
#include <utility>

namespace zol::tests {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using view::Answer;
using view::Pointer;

// As the unit must get them, in this order.
std::vector<Frame> single_values() {
    return {
        Write(106, 50),   Write(51, 50),    Write(52, 2),     Write(30, 3900),  Write(31, 4200),
        Write(32, 3),     Write(33, 25),    Write(34, 50),    Write(35, 75),    Write(61, 0),
        Write(23, 0),     Write(101, 20),   Write(103, 50),   Write(104, 1200), Write(1, 10),
        Write(107, 800),  Write(120, 1),    Write(121, 1400), Write(123, 500),  Write(124, 1500),
        Write(125, 1500), Write(127, 0),    Write(128, 0),    Write(129, 1001), Write(215, 30000),
        Write(202, 2000), Write(201, 8000), Write(140, 15),   Write(141, 15),   Write(54, 60),
        Write(55, 20),    Write(45, 1),     Write(143, 0),    Write(14, 5),     Write(19, 250),
        Write(20, 0),     Write(21, 0),     Write(22, 800)};
}

std::vector<int> cells() {
    return {74,  75,  76,  77,  78,  79,  80,  81,  82,  83,  84,  85,  86,  87,  88,  89,
            90,  91,  92,  93,  94,  95,  96,  97,  98,  108, 109, 111, 112, 113, 114, 115,
            116, 117, 118, 119, 159, 160, 161, 162, 163, 164, 165, 166, 167, 168, 169, 170};
}

std::vector<Frame> all_writes() {
    std::vector<Frame> all = single_values();
    for (const int cell : cells())
        all.push_back(Write(cell, 100));
    return all;
}

class FactoryReset : public Bench {
  protected:
    static constexpr const char* question = "Reset the control unit to factory values?";
    static constexpr const char* done = "FINE RESET ECU";

    // Polling, with nothing of it left in the buffer: its last answer would come first.
    void start_quietly() {
        start_connected();
        inside_program(monitor::stop_polling);
        run_for(1000);
        inside_program([this] { port->read_all(); });
        forget_wire();
    }
    void fitter_resets() {
        screen.answer_message(question, Answer::yes);
        screen.answer_message(done, Answer::ok);
        operator_clicks(form1::mnu_reset_centralina);
    }
    // Command 5 gets this instead of what the unit says; the next one gets the unit's own word.
    void answer_once(const link::Bytes& bytes) {
        port->alter = [bytes, used = false](link::Bytes own) mutable {
            return std::exchange(used, true) ? own : bytes;
        };
    }
    std::vector<std::int64_t> times_of(const Frame& frame) const {
        std::vector<std::int64_t> times;
        for (const auto& sent : port->sent)
            if (sent.frame == frame) times.push_back(sent.at_ms);
        return times;
    }
};

TEST_F(FactoryReset, SendsTheResetThenThirtyEightValuesThenFortyEightCells) {
    start_quietly();
    fitter_resets();
    run_for(22'400);
    std::vector<Frame> expected = {Send(5)};
    for (const Frame& write : all_writes())
        expected.push_back(write);
    EXPECT_THAT(frames(), ElementsAreArray(expected));
    for (const Frame& write : all_writes())
        EXPECT_EQ(unit->parameter(write.number), write.value) << "PAR_" << write.number;
}

TEST_F(FactoryReset, KeepsItsWaits) {
    start_quietly();
    const auto clicked = now_ms();
    fitter_resets();
    run_for(40'000);
    EXPECT_EQ(port->sent[0].at_ms - clicked, 400);
    EXPECT_EQ(port->sent[1].at_ms - port->sent[0].at_ms, 600 + 1200 + 1800);
    std::vector<std::int64_t> gaps(38, 100);
    gaps.resize(38 + 47, 300);
    EXPECT_THAT(gaps_between_writes(), ElementsAreArray(gaps));
}

TEST_F(FactoryReset, AsksWithAQuestionAndEndsWithAnInformation) {
    start_quietly();
    fitter_resets();
    run_for(22'199); // 300 ms behind the last cell the box comes, no earlier
    ASSERT_EQ(screen.message_boxes.size(), 1u);
    EXPECT_EQ(screen.message_boxes[0].buttons, view::Buttons::yes_no);
    EXPECT_EQ(screen.message_boxes[0].icon, view::Icon::question);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(screen.message_boxes.at(0).title + screen.message_boxes.at(1).title, "");
    EXPECT_EQ(screen.message_boxes[1].text, done);
    EXPECT_EQ(screen.message_boxes[1].buttons, view::Buttons::ok);
    EXPECT_EQ(screen.message_boxes[1].icon, view::Icon::information);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

TEST_F(FactoryReset, ShowsTheHourglassFromTheQuestionOn) {
    start_connected();
    screen.answer_message(question, Answer::no, 1000);
    operator_clicks(form1::mnu_reset_centralina);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1000);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

// Another handler that ends meanwhile takes the hourglass away: behind the question and behind the
// unit's restart it comes back, and stays until the final box is answered.
TEST_F(FactoryReset, ShowsTheHourglassAnewAtItsStages) {
    start_quietly();
    const auto take_hourglass_away = [this] {
        inside_program([] { view::set_pointer(form1::Form1, Pointer::normal); });
    };
    screen.answer_message(question, Answer::yes, 1000);
    screen.answer_message(done, Answer::ok, 1000);
    operator_clicks(form1::mnu_reset_centralina);
    take_hourglass_away();
    run_for(1000);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    take_hourglass_away();
    run_for(3999);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(18'200 + 999);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

TEST_F(FactoryReset, NoLeavesThePollingStoppedAndSendsNothing) {
    start_connected();
    screen.answer_message(question, Answer::no);
    operator_clicks(form1::mnu_reset_centralina);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(FactoryReset, LeavesThePollingStoppedAndTheWidgetsAsTheyWere) {
    start_quietly();
    view::set_text(form1::Text_max_tank, "4711");
    fitter_resets();
    run_for(40'000);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    EXPECT_EQ(port->sent.size(), 87u);
    EXPECT_EQ(view::text(form1::Text_max_tank), "4711");
}

TEST_F(FactoryReset, AnswersOfFourOrSevenBytesAreNoneAndFiveOrSixAreOne) {
    start_quietly();
    for (const std::size_t length : {4u, 7u}) {
        forget_wire();
        link::Bytes answer{80, 67, 0, 5, 5, 0, 0};
        answer.resize(length);
        answer_once(answer);
        fitter_resets();
        run_for(40'000);
        const auto sent = times_of(Send(5));
        ASSERT_GE(sent.size(), 2u) << length << " bytes";
        EXPECT_EQ(sent[1] - sent[0], 600 + 400);
    }
    for (const std::size_t length : {5u, 6u}) {
        forget_wire();
        link::Bytes answer{80, 67, 0, 5, 5, 0};
        answer.resize(length);
        answer_once(answer);
        fitter_resets();
        run_for(40'000);
        EXPECT_EQ(times_of(Send(5)).size(), 1u) << length << " bytes";
    }
}

TEST_F(FactoryReset, AForeignEchoIsNoAnswer) {
    start_quietly();
    answer_once({80, 67, 0, 6, 3, 0});
    fitter_resets();
    run_for(40'000);
    EXPECT_GE(times_of(Send(5)).size(), 2u);
    EXPECT_EQ(writes().size(), 86u);
}

TEST_F(FactoryReset, AnAnswerOfTheUnitItselfOfAnyAcceptedLengthWillDo) {
    start_quietly();
    unit->quirks().reset_length = 5;
    fitter_resets();
    run_for(40'000);
    EXPECT_EQ(times_of(Send(5)).size(), 1u);
    unit->quirks().reset_length = 7;
    forget_wire();
    fitter_resets();
    run_for(5000);
    unit->quirks().reset_length = 6;
    run_for(40'000);
    EXPECT_GE(times_of(Send(5)).size(), 5u);
}

TEST_F(FactoryReset, ASilentUnitIsAskedForAsLongAsItIsSilent) {
    start_quietly();
    port->silent = true;
    fitter_resets();
    run_for(600'000);
    EXPECT_EQ(frames().size(), 600u);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    port->silent = false;
    run_for(40'000);
    EXPECT_EQ(writes().size(), 86u);
}

// Nothing flushes the buffer: the telegram that the polling left there stands before the answer.
TEST_F(FactoryReset, AnAnswerBehindATelegramLeftOverCountsAsNone) {
    start_connected();
    while (form1::Timer_stato_sistema.is_on())
        run_for(10);
    forget_wire();
    fitter_resets();
    run_for(60'000);
    EXPECT_GE(times_of(Send(5)).size(), 2u);
    EXPECT_EQ(writes().size(), 86u);
}

// On a run that came by the connection dialog the polling comes back in the middle of it.
TEST_F(FactoryReset, BesideThePollingOfTheWatchdogEveryValueStillReachesTheUnit) {
    start_connected();
    app::state.no_reread = true;
    form1::Timer6.on();
    fitter_resets();
    run_for(60'000);
    EXPECT_EQ(screen.message_boxes.size(), 2u);
    for (const Frame& write : all_writes())
        EXPECT_EQ(unit->parameter(write.number), write.value) << "PAR_" << write.number;
    EXPECT_TRUE(app::state.poll_enabled);
}

TEST_F(FactoryReset, ACablePulledBeforeTheAnswerIsWaitedFor) {
    start_quietly();
    fitter_resets();
    run_for(500);
    port->unplugged = true;
    run_for(20'000);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    port->unplugged = false;
    run_for(40'000);
    EXPECT_EQ(writes().size(), 86u);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

TEST_F(FactoryReset, ACablePulledAmongTheWritesLosesThemUnnoticed) {
    start_quietly();
    fitter_resets();
    run_for(4450);
    port->unplugged = true;
    run_for(1000);
    port->unplugged = false;
    run_for(40'000);
    EXPECT_EQ(screen.message_boxes.size(), 2u);
    EXPECT_EQ(writes().size(), 86u - 10u);
    const auto gaps = gaps_between_writes();
    EXPECT_EQ(std::accumulate(gaps.begin(), gaps.end(), std::int64_t{0}), 38 * 100 + 47 * 300);
}

TEST_F(FactoryReset, WithAClosedPortItAsksOnWithoutAWord) {
    start_quietly();
    port->close();
    fitter_resets();
    run_for(10'000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(screen.message_boxes.size(), 1u);
    inside_program([this] { port->open(); });
    run_for(40'000);
    EXPECT_EQ(writes().size(), 86u);
}

class FactoryResetClosed : public FactoryReset, public testing::WithParamInterface<int> {};

TEST_P(FactoryResetClosed, TheMainWindowEndsTheProgramWithNoFurtherFrame) {
    start_quietly();
    screen.answer_message(question, Answer::yes);
    operator_clicks(form1::mnu_reset_centralina);
    run_for(GetParam());
    forget_wire();
    operator_closes(form1::Form1);
    run_for(600);
    EXPECT_TRUE(time.ended());
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(port->is_open());
}

// In the wait before command 5, behind it, in the restart, among the values, among the cells.
INSTANTIATE_TEST_SUITE_P(AtAnyMoment, FactoryResetClosed,
                         testing::Values(100, 700, 2000, 5000, 15'000));

TEST_F(FactoryReset, MirrorsTheValuesThatTheToolKeepsFourOfThemInOnePlace) {
    start_quietly();
    link::mirrors = {};
    link::mirrors.reference_ktar = 77;
    link::mirrors.injector_opening = 78;
    link::mirrors.cut_off_rpm = 79;
    link::mirrors.eobd_protocol = 80;
    link::mirrors.debug_flag = 81;
    link::mirrors.lambda_input_kind = 82;
    link::mirrors.changeover_pressure = 83;
    fitter_resets();
    run_for(40'000);
    const auto& m = link::mirrors;
    EXPECT_EQ(m.low_pressure_delay, 50);
    EXPECT_EQ(m.calibration_temperature, 50);
    EXPECT_EQ(m.temperature_correction, 2);
    EXPECT_EQ(m.tank_min_mv, 3900);
    EXPECT_EQ(m.tank_max_mv, 4200);
    EXPECT_EQ(m.tank_threshold_1, 3);
    EXPECT_EQ(m.tank_threshold_2, 25);
    EXPECT_EQ(m.tank_threshold_3, 50);
    EXPECT_EQ(m.tank_threshold_4, 75);
    EXPECT_EQ(m.attenuation, 20);
    EXPECT_EQ(m.par_103, 50);
    EXPECT_EQ(m.calibration_pressure, 1200);
    EXPECT_EQ(m.rpm_multiplier, 10);
    EXPECT_EQ(m.injector_latency, 800);
    EXPECT_EQ(m.changeover_rpm, 1400);
    EXPECT_EQ(m.cut_off_inj_time, 500);
    EXPECT_EQ(m.par_215, 30000);
    EXPECT_EQ(m.reference_inj_threshold, 8000);
    EXPECT_EQ(m.reference_ktar, 77);
    EXPECT_EQ(m.injector_opening, 78);
    EXPECT_EQ(m.cut_off_rpm, 79);
    EXPECT_EQ(m.eobd_protocol, 80);
    EXPECT_EQ(m.debug_flag, 81);
    EXPECT_EQ(m.lambda_input_kind, 82);
    EXPECT_EQ(m.changeover_pressure, 83);
}

TEST_F(FactoryReset, SwitchesTheModularMirrorOff) {
    start_quietly();
    link::mirrors.modular_changeover = 1;
    fitter_resets();
    run_for(40'000);
    EXPECT_EQ(link::mirrors.modular_changeover, 0);
}

TEST_F(FactoryReset, DoesNotTouchTheCalibrationThatIsTheUnitsOwn) {
    start_quietly();
    fitter_resets();
    run_for(40'000);
    for (const Frame& write : writes())
        EXPECT_THAT((std::vector<int>{110, 122, 3, 4, 5, 6, 10, 15}),
                    testing::Not(testing::Contains(write.number)));
}

TEST_F(FactoryReset, WithoutALanguageItStillAsks) {
    start_quietly();
    app::state.current_language = "xx";
    screen.answer_message("RESET CENTRALINA", Answer::no);
    view::set_text(form1::mnu_reset_centralina, "RESET CENTRALINA");
    operator_clicks(form1::mnu_reset_centralina);
    run_for(3000);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(FactoryReset, TheUnitsOwnResetAloneReadsNothingAndWritesNoDefaults) {
    start_quietly();
    const auto began = now_ms();
    inside_program([] { maintenance::send_reset_only(); });
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(799);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAreArray({Send(5)}));
    EXPECT_EQ(port->sent[0].at_ms - began, 400);
    EXPECT_FALSE(app::state.poll_enabled);
}

} // namespace
} // namespace zol::tests

// On the activation path the main window reads the unit again when the acquisition window closes.
// The engine button pressed during that read starts the polling too.
#include "tests/support/logic_fixture.h"
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

#include <algorithm>

namespace zol::tests {
namespace {

struct Case {
    int family;
    int pressed_ms; // after the closing
};

// The whole read for the families without live data. With them, what follows the presence test; for
// that test see below.
std::vector<Case> cases() {
    std::vector<Case> all;
    for (const int family : {0, 1, 2})
        for (int ms = family == 2 ? 1750 : 250; ms < 4750; ms += 500)
            all.push_back({family, ms});
    return all;
}

class EngineButtonDuringRead : public LogicTest, public testing::WithParamInterface<Case> {
  protected:
    void press_engine_after_closing_acquisition(int family, int ms) {
        use_unit({.family = family, .version = 7, .revision = 71, .warm = true});
        start_connected();
        operator_clicks(form1::Command5, 3000ms);
        operator_clicks(acquisizione::Command_chiudi);
        run_for(ms);
        operator_clicks(form1::Command_engine);
    }
    std::int64_t sent_in(int command, std::int64_t ms) {
        forget_wire();
        run_for(ms);
        return std::ranges::count(frames(), Send(command));
    }
    void expect_only_polling() {
        EXPECT_EQ(sent_in(7, 60'000), 0);
        EXPECT_GT(sent_in(3, 60'000), 120);
        EXPECT_FALSE(app::state.ui_loading);
        EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
    }
};

TEST_P(EngineButtonDuringRead, PollingTakesTheRepliesOfTheRead) {
    press_engine_after_closing_acquisition(GetParam().family, GetParam().pressed_ms);
    run_for(60'000);
    EXPECT_GT(sent_in(7, 60'000), 60) << "the version is still asked for";
    EXPECT_GT(sent_in(3, 60'000), 60) << "and the status with it";
}

TEST_P(EngineButtonDuringRead, SettingsThenEngineBringPollingBack) {
    press_engine_after_closing_acquisition(GetParam().family, GetParam().pressed_ms);
    run_for(60'000);
    operator_clicks(form1::Command_impostazioni, 5000ms);
    operator_clicks(form1::Command_engine, 3000ms);
    expect_only_polling();
    unit->engine().throttle_set = 60;
    run_for(5000);
    EXPECT_GT(std::stoi(view::text(form1::Label_rpm)), 2000);
}

INSTANTIATE_TEST_SUITE_P(AfterTheClosing, EngineButtonDuringRead, testing::ValuesIn(cases()),
                         [](const auto& tested) {
                             return "Family" + std::to_string(tested.param.family) + "At" +
                                    std::to_string(tested.param.pressed_ms);
                         });

using EngineButtonDuringPresenceTest = EngineButtonDuringRead;

TEST_P(EngineButtonDuringPresenceTest, TheConnectionDialogOpens) {
    press_engine_after_closing_acquisition(GetParam().family, GetParam().pressed_ms);
    run_for(10'000);
    ASSERT_TRUE(centralina_attiva::Centralina_Attiva.shown);
    operator_clicks(centralina_attiva::Command_test, 3000ms);
    operator_clicks(centralina_attiva::Command_ok, 15'000ms);
    expect_only_polling();
}

INSTANTIATE_TEST_SUITE_P(OnAUnitWithLiveData, EngineButtonDuringPresenceTest,
                         testing::Values(Case{2, 250}, Case{2, 750}, Case{2, 1250}));

} // namespace
} // namespace zol::tests

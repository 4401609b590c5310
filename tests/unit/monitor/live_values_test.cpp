// On which panels the live values are updated, as the manual describes it.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

constexpr std::size_t rpm_word = 6, lambda_word = 12, tank_word = 24;

class LiveValues : public LogicTest {
  protected:
    LiveValues() : LogicTest({.family = 3, .version = 7, .revision = 71, .warm = true}) {}

    // The unit's telegrams have this value from now on.
    void put(std::size_t position, int value) { port->alter = telegrams_with(position, value); }
    void open(view::Widget& button) { operator_clicks(button, 2000ms); }
    void open_settings_with_tank_at(int mv) {
        put(tank_word, mv);
        start_connected();
        run_for(2000);
        open(form1::Command_impostazioni);
    }
    static const std::string& level() { return text(form1::Label_level_attuale); }
};

TEST_F(LiveValues, EnginePanelShowsANewSetWithinASecond) {
    start_connected();
    run_for(3000);
    put(rpm_word, 3210);
    run_for(1000);
    EXPECT_EQ(text(form1::Label_rpm), "3210");
}

// A reply is read with the next request and shown after that one's wait.
TEST_F(LiveValues, ShownSetWasRequested650MillisecondsBefore) {
    start_connected();
    run_for(3000);
    int replies = 0;
    std::int64_t shown_ms = 0, asked_ms = 0;
    port->alter = [&](const link::Bytes& bytes) {
        if (bytes.size() < 27 || ++replies != 3) return bytes;
        asked_ms = port->sent.at(port->sent.size() - 2).at_ms; // the last one has no reply yet
        return telegrams_with(rpm_word, 3210)(bytes);
    };
    screen.on_changed = [&](view::Widget& widget, view::Aspect) {
        if (&widget == &form1::Label_rpm && text(widget) == "3210") shown_ms = now_ms();
    };
    run_for(3000);
    EXPECT_EQ(shown_ms - asked_ms, 650);
}

TEST_F(LiveValues, SettingsPanelKeepsThePresentLevel) {
    open_settings_with_tank_at(3000);
    put(tank_word, 4000);
    run_for(60'000);
    EXPECT_EQ(level(), "3000");
}

TEST_F(LiveValues, EngineThenSettingsUpdateThePresentLevel) {
    open_settings_with_tank_at(3000);
    put(tank_word, 4000);
    open(form1::Command_engine);
    EXPECT_EQ(text(form1::label_liv2), "4000");
    open(form1::Command_impostazioni);
    EXPECT_EQ(level(), "4000");
}

TEST_F(LiveValues, LambdaPanelUpdatesTheLambdaSignalOnly) {
    put(rpm_word, 1000);
    start_connected();
    run_for(2000);
    open(form1::Command_lambda);
    put(rpm_word, 3210);
    run_for(60'000);
    EXPECT_EQ(text(form1::Label_rpm), "1000");
    put(lambda_word, 333);
    run_for(1000);
    EXPECT_EQ(text(form1::Label_lambda), "333");
}

} // namespace
} // namespace zol::tests

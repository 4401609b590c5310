// On which panels the live values are live, as the manual says it.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

#include <functional>

namespace zol::tests {
namespace {

class LiveValues : public LogicTest {
  protected:
    LiveValues() : LogicTest({.family = 3, .version = 7, .revision = 71, .warm = true}) {}

    // The unit's telegrams say this from now on.
    void put(std::size_t position, int value) {
        port->alter = [=](link::Bytes bytes) {
            if (bytes.size() < 27 || bytes[4] != 3) return bytes;
            bytes[position - 1] = static_cast<std::uint8_t>(value / 256);
            bytes[position] = static_cast<std::uint8_t>(value % 256);
            return bytes;
        };
    }
    void tank_gives(int mv) { put(24, mv); }
    void engine_turns(int rpm) { put(6, rpm); }
    void probe_gives(int lambda) { put(12, lambda); }

    void open(view::Widget& button) {
        operator_clicks(button);
        run_for(2000);
    }
    std::string level() const { return text(form1::Label_level_attuale); }
};

TEST_F(LiveValues, EnginePanelShowsANewSetWithinASecond) {
    start_connected();
    run_for(3000);
    engine_turns(3210);
    run_for(1000);
    EXPECT_EQ(text(form1::Label_rpm), "3210");
}

// A request's answer is read with the next request and shown after that one's wait.
TEST_F(LiveValues, ShownSetWasAskedFor650MillisecondsBefore) {
    start_connected();
    run_for(3000);
    int answers = 0;
    std::int64_t shown_ms = 0, asked_ms = 0;
    port->alter = [&](link::Bytes bytes) {
        if (bytes.size() < 27 || ++answers != 3) return bytes;
        asked_ms = port->sent.at(port->sent.size() - 2).at_ms; // the last one is not answered yet
        bytes[5] = 3210 / 256;
        bytes[6] = 3210 % 256;
        return bytes;
    };
    screen.on_changed = [&](view::Widget& widget, view::Aspect) {
        if (&widget == &form1::Label_rpm && view::text(widget) == "3210") shown_ms = now_ms();
    };
    run_for(3000);
    EXPECT_EQ(shown_ms - asked_ms, 650);
}

TEST_F(LiveValues, SettingsPanelKeepsThePresentLevel) {
    tank_gives(3000);
    start_connected();
    run_for(2000);
    open(form1::Command_impostazioni);
    tank_gives(4000);
    run_for(60'000);
    EXPECT_EQ(level(), "3000");
}

TEST_F(LiveValues, EngineThenSettingsRefreshThePresentLevel) {
    tank_gives(3000);
    start_connected();
    run_for(2000);
    open(form1::Command_impostazioni);
    tank_gives(4000);
    open(form1::Command_engine);
    EXPECT_EQ(text(form1::label_liv2), "4000");
    open(form1::Command_impostazioni);
    EXPECT_EQ(level(), "4000");
}

TEST_F(LiveValues, LambdaPanelShowsTheLambdaSignalAlone) {
    engine_turns(1000);
    start_connected();
    run_for(2000);
    open(form1::Command_lambda);
    engine_turns(3210);
    run_for(60'000);
    EXPECT_EQ(text(form1::Label_rpm), "1000");
    probe_gives(333);
    run_for(1000);
    EXPECT_EQ(text(form1::Label_lambda), "333");
}

} // namespace
} // namespace zol::tests

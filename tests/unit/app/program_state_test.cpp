// No run changes the next one: the reset at the beginning of each fixture puts every part back.
#include "tests/support/program_state.h"

#include "app/application_folder.h"
#include "app/helper_texts.h"
#include "app/window_scaling.h"
#include "calibration/automatic_tuning.h"
#include "diagnostics/acquisition_window.h"
#include "link/device_identity.h"
#include "link/port_devices.h"
#include "maintenance/service_records.h"
#include "monitor/polling_pass.h"
#include "tests/support/logic_fixture.h"
#include "view/screen.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

class ProgramState : public LogicTest {
  protected:
    // Stops in the middle of a pass, with a unit, settings and captions other than the usual ones.
    void run_a_program() {
        use_unit({.family = 4, .version = 7, .revision = 71, .warm = true});
        screen.screen = {20250, 18000};
        start_connected();
        while (form1::Timer_stato_sistema.is_on())
            run_for(1);
        calibration::tuning.tinj_petrol_avg = 2000;
        diagnostics::acquisition_state.acquiring = true;
        link::found_devices[0].path = "/dev/ttyUSB0";
        link::machine_state.root = "/nowhere";
        maintenance::calendar_state.today = [] { return maintenance::Date{}; };
        EXPECT_NE(app::scale_factors.width, 1);
        EXPECT_NE(app::state.ecu_family, 0);
        EXPECT_NE(link::mirrors.ktar_low, 0);
        EXPECT_TRUE(monitor::pass_is_under_way());
        EXPECT_FALSE(app::parameters_of(form1::Slider_ktar).empty());
        time.finish();
    }
};

TEST_F(ProgramState, IsThatBeforeAnyStartAfterTheReset) {
    run_a_program();
    reset_program_state();
    EXPECT_EQ(app::state.ecu_family, 0);
    EXPECT_EQ(app::state.current_language, "");
    EXPECT_EQ(app::application_file("a"), "./a");
    EXPECT_EQ(app::scale_factors.width, 1);
    EXPECT_TRUE(app::parameters_of(form1::Slider_ktar).empty());
    EXPECT_EQ(app::helper_word("there"), "there");
    EXPECT_EQ(app::own_caption(form1::Label22), std::nullopt);
    EXPECT_EQ(link::mirrors.ktar_low, 0);
    EXPECT_EQ(link::found_devices[0].path, "");
    EXPECT_EQ(link::machine_state.root, "/");
    EXPECT_EQ(link::port_state.port, nullptr);
    EXPECT_EQ(calibration::tuning.tinj_petrol_avg, 0);
    EXPECT_FALSE(diagnostics::acquisition_state.acquiring);
    EXPECT_NE(maintenance::calendar_state.today().day, 0);
    EXPECT_FALSE(form1::Form1.loaded || form1::Form1.shown);
    EXPECT_EQ(view::focus(), nullptr);
}

TEST_F(ProgramState, HandlerThatWaitedForAPassIsDropped) {
    bool ran = false;
    monitor::after_the_next_repeat([&ran] { ran = true; });
    reset_program_state();
    view::use_platform(time);
    { const monitor::PollingPass next; }
    EXPECT_FALSE(ran);
    EXPECT_TRUE(view::scheduler_state.posted.empty());
}

} // namespace
} // namespace zol::tests

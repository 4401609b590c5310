// The acquisition window beside the polling that the watchdog has restarted, on a line that was
// silent for a moment: a pass that began inside the window's own wait must not hold it up for good.
#include "tests/support/no_live_data.h"
#include "tests/support/panel_bench.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

struct AcquisitionAfterSilence : PanelBench, testing::WithParamInterface<int> {
    AcquisitionAfterSilence() {
        use_unit({.family = 2, .version = 7, .revision = 71, .warm = true});
        auto replacement = std::make_unique<PortWithoutLiveData>(*unit, time);
        line = replacement.get();
        line->has_live_data = true;
        port = std::move(replacement);
        link::use_serial_port(*port);
        connect_by_dialog();
        run_for(5000);
    }
    void open_on_a_line_silent_for_a_moment() {
        operator_clicks(form1::Command5);
        run_for(3000 + GetParam());
        line->has_live_data = false;
        run_for(3000);
        line->has_live_data = true;
    }
    PortWithoutLiveData* line = nullptr;
};

TEST_P(AcquisitionAfterSilence, WindowFollowsTheEngineAgain) {
    open_on_a_line_silent_for_a_moment();
    run_for(5000);
    view::set_text(acquisizione::Label1, "old");
    run_for(5000);
    EXPECT_NE(view::text(acquisizione::Label1), "old");
}

TEST_P(AcquisitionAfterSilence, SaveComesToItsEnd) {
    open_on_a_line_silent_for_a_moment();
    operator_clicks(acquisizione::Command_salva);
    run_for(20000);
    EXPECT_FALSE(acquisizione::acquisizione.loaded);
}

INSTANTIATE_TEST_SUITE_P(AtAnyMoment, AcquisitionAfterSilence, testing::Range(0, 500, 50));

} // namespace
} // namespace zol::tests

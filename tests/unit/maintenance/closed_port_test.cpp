// A sequence begun while the read of the faults has the port closed: who opens it.
#include "tests/unit/maintenance/dump_bench.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using testing::IsEmpty;

class PortClosedByFaultRead : public DumpBench {
  protected:
    void dump_on_the_closed_port() {
        start_connected();
        operator_clicks(form1::Command_diagnosi);
        run_for(1000);
        operator_clicks(form1::cmd_richiesta_par_diagnosi);
        run_for(100);
        ASSERT_FALSE(port->is_open());
        operator_clicks(form1::mnu_dump_parametri);
        run_for(30'000);
        ASSERT_FALSE(port->is_open());
        ASSERT_THAT(files_in_log(), IsEmpty());
    }
    void open_changeover_window() {
        operator_clicks(form1::Command_impostazioni);
        run_for(1000);
        operator_clicks(form1::Command303);
        run_for(1000);
    }
};

TEST_F(PortClosedByFaultRead, ChangeoverWindowFieldOpensIt) {
    dump_on_the_closed_port();
    open_changeover_window();
    operator_enters(form3::Text_rpm, "1500");
    run_for(5000);
    EXPECT_TRUE(port->is_open());
    EXPECT_EQ(unit->parameter(121), 1500);
    EXPECT_THAT(files_in_log(), testing::ElementsAre("setting.txt"));
}

TEST_F(PortClosedByFaultRead, ChangeoverWindowOptionLeavesItClosed) {
    dump_on_the_closed_port();
    open_changeover_window();
    operator_clicks(form3::opt_acc);
    run_for(5000);
    EXPECT_FALSE(port->is_open());
}

} // namespace
} // namespace zol::tests

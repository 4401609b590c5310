// The long notes of the trouble codes: tips of the codes, and of the box that shows a short text.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

class FaultNotes : public LogicTest {
  protected:
    FaultNotes() {
        std::filesystem::remove(folder / "language");
        std::filesystem::create_directory(folder / "language");
        write_file("language/codici_eobd_uk.ini", "[P0300]\nMisfire\nAny cylinder.\n"
                                                  "[P0301]\nCylinder 1 misfire\n"
                                                  "  Plug, coil or injector. \n");
        start_connected();
        operator_clicks(form1::Command_diagnosi);
        run_for(1000);
    }
    void read_faults(const std::vector<int>& faults) {
        for (const int fault : faults)
            ASSERT_TRUE(sim::add_fault(unit->memory(), fault));
        operator_clicks(form1::cmd_richiesta_par_diagnosi);
        run_for(1300);
    }
};

TEST_F(FaultNotes, ReadingGivesEachCodeItsNoteAsTip) {
    read_faults({301, 300});
    EXPECT_EQ(form1::lbl_par_1.look.tip, "Plug, coil or injector.");
    EXPECT_EQ(form1::lbl_par_2.look.tip, "Any cylinder.");
    EXPECT_EQ(form1::lbl_par_3.look.tip, "") << "no fault, no note";
    EXPECT_EQ(view::text(form1::Text_note_error), "") << "only a click fills the box";
}

TEST_F(FaultNotes, BoxKeepsTheNoteAsItsTip) {
    read_faults({301});
    operator_clicks(form1::lbl_par_1);
    EXPECT_EQ(view::text(form1::Text_note_error), "Cylinder 1 misfire");
    EXPECT_EQ(form1::Text_note_error.look.tip, "Plug, coil or injector.");
}

TEST_F(FaultNotes, ClearingRemovesTheNotes) {
    read_faults({301});
    operator_clicks(form1::lbl_par_1);
    operator_clicks(form1::Command10);
    run_for(5000);
    EXPECT_EQ(view::text(form1::lbl_par_1), "0");
    EXPECT_EQ(form1::lbl_par_1.look.tip, "");
    EXPECT_EQ(form1::Text_note_error.look.tip, "");
}

} // namespace
} // namespace zol::tests

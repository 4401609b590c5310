// A number field by mouse and by keyboard.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NumberField : public LogicTest {
  protected:
    view::Widget& field = form1::text_temp_comm;
    std::string held;

    void SetUp() override {
        open_settings();
        held = text(field);
        ASSERT_NE(held, "");
    }
    void press_enter() {
        operator_presses(form1::Form1, view::operator_acts::enter);
        run_for(1000);
    }
};

TEST_F(NumberField, ClickEmptiesItWithoutAWrite) {
    operator_clicks(field);
    run_for(60'000);
    EXPECT_EQ(text(field), "");
    EXPECT_EQ(field.look.back, view::light_red);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(NumberField, EnterAfterTabSendsTheNumberThatItHolds) {
    inside_program([this] { view::operator_acts::focus(field); });
    EXPECT_EQ(text(field), held);
    EXPECT_EQ(field.look.back, view::white);
    press_enter();
    EXPECT_THAT(frames(), ElementsAre(Write(15, std::stoi(held))));
}

TEST_F(NumberField, EnterInAnEmptyOneWritesZero) {
    operator_clicks(field);
    press_enter();
    EXPECT_THAT(frames(), ElementsAre(Write(15, 0)));
}

} // namespace
} // namespace zol::tests

// Acts of the operator during the waits of other acts: how many may nest, and what is dropped at
// the limit.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"

#include <algorithm>

namespace zol::tests {
namespace {

namespace acts = view::operator_acts;

// Each act runs inside the wait of the one before, as in the real window.
class NestedActs : public LogicTest {
  protected:
    NestedActs() {
        start_connected();
        form1::Label27.on.click = [] { view::wait_on(form1::Timer2, 100); };
    }
    ~NestedActs() override { form1::Label27.on.click = nullptr; }

    void fill_the_nest() {
        for (int i = 0; i < acts::deepest_acts; ++i)
            operator_clicks(form1::Label27);
    }
};

TEST_F(NestedActs, KeyFloodMovesGainOncePerAcceptedPress) {
    const double before = view::value(form1::Slider_ktar);
    int deepest = 0;
    constexpr int right = 39;
    for (int i = 0; i < 200; ++i) {
        operator_presses(form1::Form1, right);
        deepest = std::max(deepest, view::wait_depth());
    }
    EXPECT_EQ(view::value(form1::Slider_ktar), before + 10 * acts::deepest_acts);
    EXPECT_LE(deepest, 2 * acts::deepest_acts + 2) << "each press waits in two sliders' handlers";
}

TEST_F(NestedActs, FloodEndsWithTheUnitHoldingTheShownGain) {
    constexpr int right = 39;
    for (int i = 0; i < 200; ++i)
        operator_presses(form1::Form1, right);
    run_for(120'000);
    EXPECT_LE(view::wait_depth(), 1) << "that of the polling";
    EXPECT_EQ(unit->memory()[3], view::value(form1::Slider_ktar));
    EXPECT_EQ(unit->memory()[4], view::value(form1::Slider_power));
    EXPECT_EQ(view::value(form1::Slider_ktar), 1200 + 10 * acts::deepest_acts);
}

TEST_F(NestedActs, EveryKindOfActIsDroppedAtTheLimit) {
    inside_program([] { view::set_visible(form1::Frame_impostazioni, true); });
    std::vector<bool> taken;
    const auto try_each = [&taken] {
        using namespace form1;
        taken = {acts::click(Command_rpm_piu),      acts::double_click(Label18),
                 acts::drag_on(Slider_ktar, 1300),  acts::drag_to(Slider_ktar, 1300),
                 acts::end_drag(Slider_ktar, 1300), acts::choose(Combo_tank_level, 0),
                 acts::type(Text_min_tank, "1"),    acts::key(Form1, 65, 0),
                 acts::focus(Text_min_tank),        acts::open(mnu_Porta_Seriale)};
    };
    fill_the_nest();
    inside_program(try_each);
    ASSERT_EQ(taken.size(), 10U) << "one of them waited";
    EXPECT_THAT(taken, testing::Each(false));
    EXPECT_EQ(view::text(form1::Text_min_tank), "3900");
}

TEST_F(NestedActs, ActsAreTakenAgainOnceWaitsHaveEnded) {
    fill_the_nest();
    bool taken = true;
    inside_program([&] { taken = acts::click(form1::Label27); });
    EXPECT_FALSE(taken);
    run_for(3000);
    inside_program([&] { taken = acts::key(form1::Form1, 65, 0); });
    EXPECT_TRUE(taken);
}

TEST_F(NestedActs, DroppedEndOfDragPutsTheSliderBack) {
    const double before = view::value(form1::Slider_power);
    for (int i = 0; i < acts::deepest_acts - 1; ++i)
        operator_clicks(form1::Label27);
    inside_program([&] { acts::drag_on(form1::Slider_power, before + 50); });
    EXPECT_EQ(view::value(form1::Slider_power), before + 50);
    operator_clicks(form1::Label27);
    inside_program([&] { acts::end_drag(form1::Slider_power, before); });
    EXPECT_EQ(view::value(form1::Slider_power), before);
}

TEST_F(NestedActs, WindowStillClosesAtTheLimit) {
    inside_program([] { view::show(form2::Form2); });
    run_for(500);
    fill_the_nest();
    operator_closes(form2::Form2);
    EXPECT_FALSE(form2::Form2.loaded);
}

} // namespace
} // namespace zol::tests

// The menus of gas injectors and car types.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;

struct Injector {
    view::Widget& item;
    int pulse, constant, opening; // what its entry writes
    int wait_ms;                  // after each write
    std::optional<int> held;      // the opening that its mirror takes
    bool with_buttons;            // hourglass on the two panel buttons
};
void PrintTo(const Injector& it, std::ostream* out) { *out << it.item.name; }

const Injector injectors[] = {
    {mnu_matrix_2_ohm, 3000, 30, 2100, 500, 2000, true},
    {mnu_matrix_3_ohm, 20000, 40, 3900, 600, 3800, true},
    {mnu_valtek, 8000, 60, 4000, 500, std::nullopt, false},
    {mnu_mivra, 3000, 27, 2700, 500, std::nullopt, true},
};

class InjectorMenu : public WarmCar {
  protected:
    const std::vector<view::Widget*> items = {&mnu_matrix_2_ohm, &mnu_matrix_3_ohm, &mnu_valtek,
                                              &mnu_mivra};

    // Which items are marked after a click on one of them, with this opening held.
    std::string marks_after(view::Widget& item, double held, view::Widget& marked_before) {
        inside_program([&] {
            for (view::Widget* other : items)
                view::set_checked(*other, other == &marked_before);
            mirrors.injector_opening = held;
        });
        operator_clicks(item, 3500ms);
        std::string marks;
        for (const view::Widget* each : items)
            marks += view::checked(*each) ? 'x' : '-';
        return marks;
    }
};

class InjectorItem : public InjectorMenu, public testing::WithParamInterface<Injector> {};

TEST_P(InjectorItem, WritesItsThreeConstants) {
    const Injector& tested = GetParam();
    start_during_a_poll();
    follow({&Form1, &Command_engine, &Command_impostazioni});
    operator_clicks(tested.item);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(3000);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(201, tested.pulse)),
                                     At(400 + tested.wait_ms, Write(200, tested.constant)),
                                     At(400 + 2 * tested.wait_ms, Write(202, tested.opening))));
    EXPECT_EQ(unit->parameter(202), tested.opening);
    const std::string writing_ends = std::to_string(400 + 3 * tested.wait_ms);
    const std::string end = std::to_string(800 + 3 * tested.wait_ms);
    std::vector<std::string> expected = {"0 Form1 hourglass",
                                         writing_ends + " Form1 normal pointer"};
    if (tested.with_buttons)
        expected = {"0 Command_engine hourglass",
                    "0 Command_impostazioni hourglass",
                    expected[0],
                    expected[1],
                    end + " Command_engine own pointer",
                    end + " Command_impostazioni own pointer"};
    EXPECT_EQ(changes, expected);
}

TEST_P(InjectorItem, HoldsItsOpeningFromTheThirdWriteOn) {
    const Injector& tested = GetParam();
    start_during_a_poll();
    mirrors.injector_opening = 1234;
    operator_clicks(tested.item);
    if (tested.held) {
        EXPECT_EQ(ms_until([] { return mirrors.injector_opening != 1234; }),
                  400 + 2 * tested.wait_ms);
    }
    run_for(3000);
    EXPECT_EQ(mirrors.injector_opening, tested.held.value_or(1234));
}

INSTANTIATE_TEST_SUITE_P(Each, InjectorItem, testing::ValuesIn(injectors),
                         [](const auto& tested) { return tested.param.item.name; });

// MIVRA writes 2700, but its mark asks for 2300.
TEST_F(InjectorMenu, ChoiceMovesNoMark) {
    start_during_a_poll();
    EXPECT_EQ(marks_after(mnu_matrix_2_ohm, 3900, mnu_matrix_3_ohm), "-x--");
    EXPECT_EQ(marks_after(mnu_matrix_3_ohm, 2100, mnu_matrix_2_ohm), "x---");
    EXPECT_EQ(marks_after(mnu_valtek, 2300, mnu_matrix_2_ohm), "x---");
    EXPECT_EQ(marks_after(mnu_mivra, 2700, mnu_matrix_2_ohm), "x---");
}

TEST_F(InjectorMenu, MivraMarksTheHeldOpening) {
    start_during_a_poll();
    EXPECT_EQ(marks_after(mnu_mivra, 2300, mnu_matrix_2_ohm), "---x");
    EXPECT_EQ(marks_after(mnu_mivra, 2100, mnu_mivra), "x---");
    EXPECT_EQ(marks_after(mnu_mivra, 3900, mnu_mivra), "-x--");
}

TEST_F(InjectorMenu, MarkIsSetAfterTheThirdWrite) {
    start_during_a_poll();
    inside_program([] { mirrors.injector_opening = 2300; });
    follow({&mnu_mivra});
    operator_clicks(mnu_mivra, 3000ms);
    EXPECT_THAT(changes, ElementsAre("1900 mnu_mivra checked"));
}

TEST_F(InjectorMenu, FillingWritesNothing) {
    start_during_a_poll();
    inside_program([] { state.ui_loading = true; });
    follow({&Form1, &Command_engine, &Command_impostazioni});
    for (view::Widget* item :
         {&mnu_matrix_2_ohm, &mnu_matrix_3_ohm, &mnu_valtek, &mnu_mivra, &type_a, &type_b, &type_c})
        operator_clicks(*item);
    EXPECT_TRUE(state.poll_enabled);
    run_for(3000);
    EXPECT_THAT(timed_commands(), IsEmpty());
    EXPECT_EQ(changes.size(), 12u) << "three items change the pointer of two buttons, twice";
    EXPECT_EQ(Command_engine.look.pointer, view::Pointer::custom);
    EXPECT_EQ(Command_impostazioni.look.pointer, view::Pointer::custom);
    EXPECT_EQ(Form1.look.pointer, view::Pointer::normal);
}

TEST_F(InjectorMenu, CarTypeWritesTheTimeConstantAlone) {
    start_during_a_poll();
    follow({&Form1, &Command_engine, &Command_impostazioni});
    for (const auto& [item, value] :
         {std::pair{&type_a, 20000}, {&type_b, 5000}, {&type_c, 1500}}) {
        mark();
        operator_clicks(*item);
        EXPECT_FALSE(state.poll_enabled);
        EXPECT_EQ(ms_until([] { return Timer_stato_sistema.is_on(); }), 900);
        run_for(1000);
        EXPECT_THAT(timed(), ElementsAre(At(400, Write(201, value))));
        EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "900 Form1 normal pointer"));
        EXPECT_EQ(unit->parameter(201), value);
        EXPECT_FALSE(state.poll_enabled);
    }
}

TEST_F(InjectorMenu, CarTypeOverwritesTheInjectorsTime) {
    start_during_a_poll();
    operator_clicks(mnu_matrix_3_ohm, 3000ms);
    EXPECT_EQ(unit->parameter(201), 20000);
    operator_clicks(type_b, 1500ms);
    EXPECT_EQ(unit->parameter(201), 5000);
    EXPECT_EQ(unit->parameter(200), 40);
}

} // namespace
} // namespace zol::tests

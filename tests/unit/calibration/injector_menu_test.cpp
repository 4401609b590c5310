// The menus of gas injectors and car types.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using app::state;
using link::mirrors;
using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class InjectorMenu : public WarmCar {
  protected:
    std::string marks() {
        std::string all;
        for (const view::Widget* item :
             {&mnu_matrix_2_ohm, &mnu_matrix_3_ohm, &mnu_valtek, &mnu_mivra})
            all += view::checked(*item) ? 'x' : '-';
        return all;
    }
    std::string marks_after(view::Widget& item, double held, view::Widget& marked_before) {
        inside_program([&] {
            for (view::Widget* other :
                 {&mnu_matrix_2_ohm, &mnu_matrix_3_ohm, &mnu_valtek, &mnu_mivra})
                view::set_checked(*other, other == &marked_before);
            mirrors.injector_opening = held;
        });
        operator_clicks(item);
        run_for(3500);
        return marks();
    }
};

TEST_F(InjectorMenu, MatrixOf2OhmWritesItsThreeConstants) {
    start_during_a_poll();
    follow({&Form1, &Command_engine, &Command_impostazioni});
    operator_clicks(mnu_matrix_2_ohm);
    EXPECT_FALSE(state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    run_for(3000);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(201, 3000)), At(900, Write(200, 30)),
                                     At(1400, Write(202, 2100))));
    EXPECT_THAT(changes, ElementsAre("0 Command_engine hourglass",
                                     "0 Command_impostazioni hourglass", "0 Form1 hourglass",
                                     "1900 Form1 normal pointer", "2300 Command_engine own pointer",
                                     "2300 Command_impostazioni own pointer"));
    EXPECT_EQ(unit->parameter(202), 2100);
    EXPECT_EQ(mirrors.injector_opening, 2000) << "held, not written";
}

TEST_F(InjectorMenu, MatrixOf3OhmWaitsLongerBehindEachWrite) {
    start_during_a_poll();
    follow({&Form1, &Command_engine, &Command_impostazioni});
    operator_clicks(mnu_matrix_3_ohm);
    run_for(1600);
    EXPECT_EQ(mirrors.injector_opening, 3800) << "with the third write, not behind its waits";
    run_for(1400);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(201, 20000)), At(1000, Write(200, 40)),
                                     At(1600, Write(202, 3900))));
    EXPECT_THAT(changes, ElementsAre("0 Command_engine hourglass",
                                     "0 Command_impostazioni hourglass", "0 Form1 hourglass",
                                     "2200 Form1 normal pointer", "2600 Command_engine own pointer",
                                     "2600 Command_impostazioni own pointer"));
    EXPECT_EQ(mirrors.injector_opening, 3800);
}

TEST_F(InjectorMenu, ValtekDoesItWithoutPanelButtonsAndMarks) {
    start_during_a_poll();
    follow({&Form1, &Command_engine, &Command_impostazioni, &mnu_matrix_2_ohm, &mnu_mivra});
    inside_program([] { mirrors.injector_opening = 2100; });
    operator_clicks(mnu_valtek);
    run_for(3000);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(201, 8000)), At(900, Write(200, 60)),
                                     At(1400, Write(202, 4000))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1900 Form1 normal pointer"));
    EXPECT_EQ(mirrors.injector_opening, 2100);
}

TEST_F(InjectorMenu, MivraWritesItsThreeConstants) {
    start_during_a_poll();
    follow({&Form1, &Command_engine, &Command_impostazioni});
    inside_program([] { mirrors.injector_opening = 1234; });
    operator_clicks(mnu_mivra);
    run_for(3000);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(201, 3000)), At(900, Write(200, 27)),
                                     At(1400, Write(202, 2700))));
    EXPECT_THAT(changes, ElementsAre("0 Command_engine hourglass",
                                     "0 Command_impostazioni hourglass", "0 Form1 hourglass",
                                     "1900 Form1 normal pointer", "2300 Command_engine own pointer",
                                     "2300 Command_impostazioni own pointer"));
    EXPECT_EQ(mirrors.injector_opening, 1234);
}

TEST_F(InjectorMenu, AChoiceMovesNoMarkByItself) {
    start_during_a_poll();
    EXPECT_EQ(marks_after(mnu_matrix_2_ohm, 3900, mnu_matrix_3_ohm), "-x--");
    EXPECT_EQ(marks_after(mnu_matrix_3_ohm, 2100, mnu_matrix_2_ohm), "x---");
    EXPECT_EQ(marks_after(mnu_valtek, 2300, mnu_matrix_2_ohm), "x---");
    EXPECT_EQ(marks_after(mnu_mivra, 2700, mnu_matrix_2_ohm), "x---")
        << "2700 is written, but 2300 is asked for";
}

TEST_F(InjectorMenu, MivraMarksWhatTheHeldOpeningSays) {
    start_during_a_poll();
    EXPECT_EQ(marks_after(mnu_mivra, 2300, mnu_matrix_2_ohm), "---x");
    EXPECT_EQ(marks_after(mnu_mivra, 2100, mnu_mivra), "x---");
    EXPECT_EQ(marks_after(mnu_mivra, 3900, mnu_mivra), "-x--");
}

TEST_F(InjectorMenu, TheMarkOfTheHeldOpeningIsSetBehindTheThirdWrite) {
    start_during_a_poll();
    inside_program([] { mirrors.injector_opening = 2300; });
    follow({&mnu_mivra});
    operator_clicks(mnu_mivra);
    run_for(3000);
    EXPECT_THAT(changes, ElementsAre("1900 mnu_mivra checked"));
}

TEST_F(InjectorMenu, ThePollingStaysForbiddenUntilTheWatchdog) {
    start_between_polls();
    operator_clicks(mnu_matrix_2_ohm);
    run_for(1900);
    EXPECT_TRUE(Timer_stato_sistema.is_on());
    EXPECT_FALSE(state.poll_enabled);
    run_for(50);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    EXPECT_FALSE(polls_in(3000));
    inside_program([] { Timer6.on(); });
    run_for(500);
    EXPECT_TRUE(polls_in(100));
}

TEST_F(InjectorMenu, WhileTheProgramFillsItsWidgetsNothingIsWritten) {
    start_during_a_poll();
    inside_program([] { state.ui_loading = true; });
    follow({&Form1, &Command_engine, &Command_impostazioni});
    for (view::Widget* item :
         {&mnu_matrix_2_ohm, &mnu_matrix_3_ohm, &mnu_valtek, &mnu_mivra, &type_a, &type_b, &type_c})
        operator_clicks(*item);
    EXPECT_TRUE(state.poll_enabled);
    run_for(3000);
    EXPECT_THAT(timed_commands(), IsEmpty());
    EXPECT_EQ(changes.size(), 12u) << "three entries, two buttons, there and back";
    EXPECT_EQ(Command_engine.look.pointer, Pointer::custom);
    EXPECT_EQ(Command_impostazioni.look.pointer, Pointer::custom);
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
}

TEST_F(InjectorMenu, ACarTypeWritesTheTimeConstantAlone) {
    struct {
        view::Widget& item;
        int value;
    } const types[] = {{type_a, 20000}, {type_b, 5000}, {type_c, 1500}};
    start_during_a_poll();
    for (const auto& type : types) {
        mark();
        follow({&Form1, &Command_engine, &Command_impostazioni});
        operator_clicks(type.item);
        EXPECT_FALSE(state.poll_enabled);
        run_for(899);
        EXPECT_FALSE(Timer_stato_sistema.is_on());
        run_for(1);
        EXPECT_TRUE(Timer_stato_sistema.is_on());
        run_for(1000);
        EXPECT_THAT(timed(), ElementsAre(At(400, Write(201, type.value))));
        EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "900 Form1 normal pointer"));
        EXPECT_EQ(unit->parameter(201), type.value);
        EXPECT_FALSE(state.poll_enabled);
    }
}

TEST_F(InjectorMenu, ACarTypeOverwritesWhatTheInjectorEntrySet) {
    start_during_a_poll();
    operator_clicks(mnu_matrix_3_ohm);
    run_for(3000);
    EXPECT_EQ(unit->parameter(201), 20000);
    operator_clicks(type_b);
    run_for(1500);
    EXPECT_EQ(unit->parameter(201), 5000);
    EXPECT_EQ(unit->parameter(200), 40);
}

TEST_F(InjectorMenu, ACablePulledBetweenTheWritesGivesAllPointersBack) {
    start_during_a_poll();
    operator_clicks(mnu_matrix_2_ohm);
    run_for(1000);
    port->unplugged = true;
    run_for(1300);
    EXPECT_THAT(timed(), ElementsAre(At(400, Write(201, 3000)), At(900, Write(200, 30))));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
    EXPECT_EQ(Command_engine.look.pointer, Pointer::custom);
    EXPECT_EQ(mirrors.injector_opening, 2000);
}

} // namespace
} // namespace zol::tests

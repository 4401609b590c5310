// The marks and lines that follow from single words of the image.
#include "tests/unit/link/crafted_unit.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Marks : public CraftedBench {
  protected:
    Marks() {
        crafted.family = 4;
        crafted.version = 6;
        crafted.revision = 30; // the long layout's extended words on both roads, and no others
    }
    std::vector<std::string> marked_injectors() const {
        std::vector<std::string> marked;
        for (const view::Widget* item : {&form1::mnu_matrix_2_ohm, &form1::mnu_matrix_3_ohm,
                                         &form1::mnu_valtek, &form1::mnu_mivra})
            if (view::checked(*item)) marked.push_back(item->name);
        return marked;
    }
    std::vector<std::string> marked_protocols() const {
        std::vector<std::string> marked;
        for (const view::Widget* item : protocols)
            if (view::checked(*item)) marked.push_back(item->name);
        return marked;
    }
    const std::vector<view::Widget*> protocols = {
        &form1::mnu_search,         &form1::mnu_KWP2000_fast,   &form1::mnu_KWP2000_slow,
        &form1::mnu_iso9141,        &form1::mnuCAN250KStandard, &form1::mnuCAN250KExtended,
        &form1::mnuCAN500KStandard, &form1::mnuCAN500KExtended, &form1::mnuJ1850vpw,
        &form1::mnuJ1850pwm};
};

struct Injector {
    int value;
    const char* on_activation;
    const char* by_the_dialog;
};

class InjectorMarks : public Marks, public testing::WithParamInterface<Injector> {
  protected:
    void expect(const std::string& name) {
        if (name.empty())
            EXPECT_THAT(marked_injectors(), testing::IsEmpty());
        else
            EXPECT_THAT(marked_injectors(), ElementsAre(name));
    }
};

TEST_P(InjectorMarks, FollowTheOpeningValueOnActivation) {
    crafted.set_word(154, GetParam().value);
    read_on_activation();
    expect(GetParam().on_activation);
}

TEST_P(InjectorMarks, FollowTheOpeningValueByTheDialog) {
    crafted.set_word(154, GetParam().value);
    read_by_dialog();
    expect(GetParam().by_the_dialog);
}

INSTANTIATE_TEST_SUITE_P(Values, InjectorMarks,
                         testing::Values(Injector{2100, "mnu_matrix_2_ohm", "mnu_matrix_2_ohm"},
                                         Injector{3900, "mnu_matrix_3_ohm", "mnu_matrix_3_ohm"},
                                         Injector{2700, "mnu_mivra", ""},
                                         Injector{2300, "", "mnu_mivra"}, Injector{4000, "", ""},
                                         Injector{0, "", ""}, Injector{2101, "", ""}));

TEST_F(Marks, AnotherValueTakesTheMarkOfTheReadBeforeAway) {
    crafted.set_word(154, 2100);
    read_on_activation();
    EXPECT_THAT(marked_injectors(), ElementsAre("mnu_matrix_2_ohm"));
    crafted.set_word(154, 1);
    inside_program([] {
        view::hide(form1::Form1);
        view::show(form1::Form1);
    });
    run_for(6000);
    EXPECT_THAT(marked_injectors(), testing::IsEmpty());
}

class ProtocolMarks : public Marks, public testing::WithParamInterface<int> {
  protected:
    void expect_mark() {
        const int code = GetParam();
        if (code > 10)
            EXPECT_THAT(marked_protocols(), testing::IsEmpty());
        else
            EXPECT_THAT(
                marked_protocols(),
                ElementsAre(protocols[static_cast<std::size_t>(std::max(code, 1) - 1)]->name));
    }
};

TEST_P(ProtocolMarks, FollowTheCodeOnActivation) {
    crafted.set_word(86, GetParam());
    read_on_activation();
    expect_mark();
}

TEST_P(ProtocolMarks, FollowTheCodeByTheDialog) {
    crafted.set_word(86, GetParam());
    read_by_dialog();
    expect_mark();
}

INSTANTIATE_TEST_SUITE_P(Codes, ProtocolMarks, testing::Range(0, 12));

TEST_F(Marks, TheDirectionIsInverseForOneAndNormalForAllElse) {
    for (const int direction : {1, 0, 257, 2}) {
        crafted.set_word(84, direction);
        if (direction == 1)
            read_on_activation();
        else
            inside_program([] {
                view::hide(form1::Form1);
                view::show(form1::Form1);
            });
        run_for(6000);
        EXPECT_EQ(link::mirrors.eobd_direction, direction);
        EXPECT_EQ(view::checked(form1::mnu_direction_inverse_eobd), direction == 1) << direction;
        EXPECT_EQ(view::checked(form1::mnu_direction_normal_eobd), direction != 1) << direction;
    }
}

TEST_F(Marks, TheYearIsTwoHundredAndItsDigitsWhateverTheYear) {
    const std::pair<int, std::string> years[] = {
        {5, "2005"}, {12, "20012"}, {0, "2000"}, {10, "20010"}, {120, "200120"}};
    bool first = true;
    for (const auto& [year, text] : years) {
        crafted.set_word(168, year);
        if (std::exchange(first, false))
            read_on_activation();
        else
            inside_program([] {
                view::hide(form1::Form1);
                view::show(form1::Form1);
            });
        run_for(6000);
        EXPECT_EQ(link::mirrors.last_check_year_text, text);
        EXPECT_THAT(view::text(form1::lbl_ore), HasSubstr(" / " + text + "  "));
    }
}

TEST_F(Marks, TheServiceLineReadsToTheLetterOnActivation) {
    for (const auto& [position, value] :
         {std::pair{160, 1203}, {162, 45}, {164, 9}, {166, 11}, {168, 7}})
        crafted.set_word(position, value);
    read_on_activation();
    EXPECT_EQ(view::text(form1::lbl_ore), "Time On GAS:    1203 hour - 45 min    - "
                                          "Date Last Check : 9 / 11 / 2007  ");
}

TEST_F(Marks, TheServiceLineOfTheDialogsSecondGroupHasItsOwnBlanks) {
    for (const auto& [position, value] :
         {std::pair{160, 1203}, {162, 45}, {164, 9}, {166, 11}, {168, 7}})
        crafted.set_word(position, value);
    read_by_dialog();
    EXPECT_EQ(view::text(form1::lbl_ore), "Time On GAS:    1203 hour - 45 min    -  "
                                          "Date Last Check : 9 / 11 / 2007");
}

TEST_F(Marks, ATankOfFreeValuesTicksTheBoxAndSelectsNoEntry) {
    crafted.set_word(78, 99);
    read_on_activation();
    EXPECT_TRUE(view::selected(form1::Check1));
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_EQ(form1::Combo_tank_level.look.items.size(), 6U);
    EXPECT_EQ(app::state.tank_type, 99);
    // The box has no guard: ticked by the program it writes as if ticked by the fitter.
    EXPECT_THAT(writes(), testing::Contains(Write(130, 99)));
}

TEST_F(Marks, ATankOfFreeValuesShowsAlikeByTheDialog) {
    crafted.set_word(78, 99);
    read_by_dialog();
    run_for(4000);
    EXPECT_TRUE(view::selected(form1::Check1));
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_EQ(app::state.tank_type, 99);
}

TEST_F(Marks, AnUnknownTankTypeSelectsNothingAndTicksNothing) {
    crafted.set_word(78, 6);
    read_on_activation();
    EXPECT_FALSE(view::selected(form1::Check1));
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_EQ(app::state.tank_type, 6);
}

TEST_F(Marks, AKindOfLambdaInputThatIsNeitherSelectsNothing) {
    crafted.set_word(150, 2);
    read_on_activation();
    EXPECT_FALSE(view::selected(form1::Option_tens));
    EXPECT_FALSE(view::selected(form1::Option_corr));
}

} // namespace
} // namespace zol::tests

// Menu ticks, options and lines that follow from the family or from one word of the image, on both
// paths of the first read.
#include "tests/unit/link/crafted_unit.h"

namespace zol::tests {
namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;
using Names = std::vector<std::string>;

class Marks : public CraftedUnitTest {
  protected:
    // The extended words of the long layout are read on both paths, and no others.
    Marks() { crafted.set_firmware(4, 6, 30); }

    static Names ticked(const std::vector<view::Widget*>& items) {
        Names names;
        for (const view::Widget* item : items)
            if (view::checked(*item)) names.push_back(item->name);
        return names;
    }
    static Names ticked_injectors() {
        return ticked({&form1::mnu_matrix_2_ohm, &form1::mnu_matrix_3_ohm, &form1::mnu_valtek,
                       &form1::mnu_mivra});
    }
};

// What an image word ticks. "" for nothing.
struct Tick {
    Path path;
    int value;
    std::string ticked;
    friend void PrintTo(const Tick& row, std::ostream* out) {
        *out << path_name(row.path) << " of " << row.value;
    }
};
Names names_of(const Tick& row) { return row.ticked.empty() ? Names{} : Names{row.ticked}; }

class InjectorTick : public Marks, public testing::WithParamInterface<Tick> {};

TEST_P(InjectorTick, FollowsTheOpeningValue) {
    crafted.set_word(154, GetParam().value);
    read_by(GetParam().path);
    EXPECT_THAT(ticked_injectors(), ElementsAreArray(names_of(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(
    Values, InjectorTick,
    testing::Values(Tick{Path::activation, 2100, "mnu_matrix_2_ohm"},
                    Tick{Path::activation, 3900, "mnu_matrix_3_ohm"},
                    Tick{Path::activation, 2700, "mnu_mivra"}, Tick{Path::activation, 2300, ""},
                    Tick{Path::activation, 4000, ""}, Tick{Path::activation, 0, ""},
                    Tick{Path::activation, 2101, ""}, Tick{Path::dialog, 2100, "mnu_matrix_2_ohm"},
                    Tick{Path::dialog, 3900, "mnu_matrix_3_ohm"}, Tick{Path::dialog, 2700, ""},
                    Tick{Path::dialog, 2300, "mnu_mivra"}, Tick{Path::dialog, 4000, ""},
                    Tick{Path::dialog, 0, ""}, Tick{Path::dialog, 2101, ""}));

TEST_F(Marks, InjectorTickGoesWithTheNextRead) {
    crafted.set_word(154, 2100);
    read_on_activation();
    EXPECT_THAT(ticked_injectors(), ElementsAreArray({"mnu_matrix_2_ohm"}));
    crafted.set_word(154, 1);
    read_again();
    EXPECT_THAT(ticked_injectors(), testing::IsEmpty());
}

class ProtocolTick : public Marks,
                     public testing::WithParamInterface<std::tuple<Path, int /* code */>> {};

TEST_P(ProtocolTick, FollowsTheCode) {
    const auto [path, code] = GetParam();
    const std::vector<view::Widget*> protocols = {
        &form1::mnu_search,         &form1::mnu_KWP2000_fast,   &form1::mnu_KWP2000_slow,
        &form1::mnu_iso9141,        &form1::mnuCAN250KStandard, &form1::mnuCAN250KExtended,
        &form1::mnuCAN500KStandard, &form1::mnuCAN500KExtended, &form1::mnuJ1850vpw,
        &form1::mnuJ1850pwm};
    crafted.set_word(86, code);
    read_by(path);
    Names expected; // codes 0 and 1 are the search, codes above 10 do not exist
    if (code <= 10) expected = {protocols[static_cast<std::size_t>(std::max(code, 1) - 1)]->name};
    EXPECT_EQ(ticked(protocols), expected);
}

INSTANTIATE_TEST_SUITE_P(Codes, ProtocolTick,
                         testing::Combine(testing::Values(Path::activation, Path::dialog),
                                          testing::Range(0, 12)));

TEST_F(Marks, DirectionIsInverseForOneOnly) {
    read_on_activation();
    for (const int direction : {1, 0, 257, 2}) {
        crafted.set_word(84, direction);
        read_again();
        EXPECT_EQ(link::mirrors.eobd_direction, direction);
        EXPECT_EQ(view::checked(form1::mnu_direction_inverse_eobd), direction == 1) << direction;
        EXPECT_EQ(view::checked(form1::mnu_direction_normal_eobd), direction != 1) << direction;
    }
}

TEST_F(Marks, YearTextIs200AndTheDigits) {
    const std::pair<int, std::string> years[] = {
        {5, "2005"}, {12, "20012"}, {0, "2000"}, {10, "20010"}, {120, "200120"}};
    read_on_activation();
    for (const auto& [year, text] : years) {
        crafted.set_word(168, year);
        read_again();
        EXPECT_EQ(link::mirrors.last_check_year_text, text);
        EXPECT_THAT(view::text(form1::lbl_ore), HasSubstr(" / " + text + "  "));
    }
}

class MarksOfPath : public Marks, public testing::WithParamInterface<Path> {};

// The box is ticked by the program and has no guard, so that it writes as if the operator had
// ticked it.
TEST_P(MarksOfPath, FreeTankValuesTickTheBox) {
    crafted.set_word(78, 99);
    read_by(GetParam());
    run_for(4000);
    EXPECT_TRUE(view::selected(form1::Check1));
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_EQ(form1::Combo_tank_level.look.items.size(), 6U);
    EXPECT_EQ(app::state.tank_type, 99);
    EXPECT_THAT(writes(), testing::Contains(Write(130, 99)));
}

// The dialog path has other blanks.
TEST_P(MarksOfPath, ServiceLineHasTheTextOfThePath) {
    crafted.set_words({{160, 1203}, {162, 45}, {164, 9}, {166, 11}, {168, 7}});
    read_by(GetParam());
    EXPECT_EQ(view::text(form1::lbl_ore), GetParam() == Path::activation
                                              ? "Time On GAS:    1203 hour - 45 min    - "
                                                "Date Last Check : 9 / 11 / 2007  "
                                              : "Time On GAS:    1203 hour - 45 min    -  "
                                                "Date Last Check : 9 / 11 / 2007");
}

INSTANTIATE_TEST_SUITE_P(Paths, MarksOfPath, testing::Values(Path::activation, Path::dialog),
                         [](const auto& path) { return path_name(path.param); });

TEST_F(Marks, UnknownTankTypeSelectsNothing) {
    crafted.set_word(78, 6);
    read_on_activation();
    EXPECT_FALSE(view::selected(form1::Check1));
    EXPECT_EQ(form1::Combo_tank_level.look.list_index, -1);
    EXPECT_EQ(app::state.tank_type, 6);
}

TEST_F(Marks, UnknownKindOfLambdaInputSelectsNothing) {
    crafted.set_word(150, 2);
    read_on_activation();
    EXPECT_FALSE(view::selected(form1::Option_tens));
    EXPECT_FALSE(view::selected(form1::Option_corr));
}

struct Features {
    Path path;
    int family;
    bool eobd_menu, lambda_button, diagnosis_button, current_option, tens_corr_frame;
    friend void PrintTo(const Features& row, std::ostream* out) {
        *out << path_name(row.path) << " of family " << row.family;
    }
};

class FeaturesOfFamily : public CraftedUnitTest, public testing::WithParamInterface<Features> {};

TEST_P(FeaturesOfFamily, AreShown) {
    crafted.family = GetParam().family;
    read_by(GetParam().path);
    EXPECT_EQ(view::enabled(form1::mnu_eobd), GetParam().eobd_menu);
    EXPECT_EQ(view::visible(form1::Command_lambda), GetParam().lambda_button);
    EXPECT_EQ(view::visible(form1::Command_diagnosi), GetParam().diagnosis_button);
    EXPECT_EQ(view::visible(form1::Option_corr), GetParam().current_option);
    EXPECT_EQ(view::visible(form1::Frame_L_C_T), GetParam().tens_corr_frame);
}

// On activation, families 2 and 3 keep what the window was designed with. In the dialog family 0
// loses its lambda button, and nothing is changed for families 2 to 4.
INSTANTIATE_TEST_SUITE_P(
    Families, FeaturesOfFamily,
    testing::Values(Features{Path::activation, 0, true, true, true, true, false},
                    Features{Path::activation, 1, false, true, false, false, true},
                    Features{Path::activation, 2, true, true, true, true, true},
                    Features{Path::activation, 3, true, true, true, true, true},
                    Features{Path::activation, 4, true, true, true, true, true},
                    Features{Path::dialog, 0, true, false, true, true, true},
                    Features{Path::dialog, 1, false, true, false, false, true},
                    Features{Path::dialog, 2, true, true, true, true, true},
                    Features{Path::dialog, 3, true, true, true, true, true},
                    Features{Path::dialog, 4, true, true, true, true, true}));

} // namespace
} // namespace zol::tests

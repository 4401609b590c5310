// Which words of the image the first read takes from each firmware. The thresholds of the
// activation path and of the dialog path differ on purpose.
#include "tests/support/image_oracle.h"
#include "tests/support/mirror_oracle.h"
#include "tests/unit/link/crafted_unit.h"

namespace zol::tests {
namespace {

enum class Extended { none, as_family_1, as_families_2_to_4, both };

struct Firmware {
    int family, version, revision;
    Extended extended;
};

void PrintTo(const Firmware& firmware, std::ostream* out) {
    *out << firmware.family << "." << firmware.version << "." << firmware.revision;
}

constexpr double untouched = -7;

class Thresholds : public CraftedUnitTest, public testing::WithParamInterface<Firmware> {
  protected:
    Thresholds() {
        crafted.family = family;
        crafted.version = GetParam().version;
        crafted.revision = GetParam().revision;
        for (const auto& row : oracle::mirrors_of_parameters)
            link::mirrors.*row.mirror = untouched;
    }

    std::vector<oracle::ImageWord> extended_words() const {
        const bool both = extended == Extended::both;
        return oracle::joined(
            {oracle::when(both || extended == Extended::as_family_1, oracle::extended_words_of_1),
             oracle::when(both || extended == Extended::as_families_2_to_4,
                          oracle::extended_words_of_2_to_4)});
    }

    // These words have reached their mirrors, and no other mirror has changed.
    static void expect_read(const std::vector<oracle::ImageWord>& words,
                            double lambda_input_kind = untouched) {
        link::ParameterMirrors expected;
        for (const auto& row : oracle::mirrors_of_parameters)
            expected.*row.mirror = untouched;
        expected.lambda_input_kind = lambda_input_kind;
        for (const oracle::ImageWord& word : words)
            expected.*oracle::mirror_of(word.parameter) = word_at(word.position);
        for (const auto& row : oracle::mirrors_of_parameters)
            EXPECT_EQ(link::mirrors.*row.mirror, expected.*row.mirror)
                << "the mirror of PAR_" << row.parameter;
    }

    void expect_service_line_of(int hours_position, const std::string& middle,
                                const std::string& end) {
        const auto text = [](int position) { return std::to_string(word_at(position)); };
        EXPECT_EQ(view::text(form1::lbl_ore),
                  "Time On GAS:    " + text(hours_position) + " hour - " +
                      text(hours_position + 2) + middle + text(hours_position + 4) + " / " +
                      text(hours_position + 6) + " / 200" + text(hours_position + 8) + end);
    }
    void expect_extended_widgets() const {
        EXPECT_EQ(view::visible(form1::Frame2), any_extended);
        EXPECT_EQ(view::visible(form1::lbl_ore), any_extended);
        EXPECT_EQ(view::visible(form1::lbl_min), any_extended);
        EXPECT_EQ(view::enabled(form1::mnu_check_car), any_extended);
        EXPECT_EQ(view::selected(form1::Opt_modulare_yes), any_extended); // the word is not 0
        EXPECT_FALSE(view::selected(form1::Opt_modulare_no));
        EXPECT_EQ(view::text(form1::lbl_ore).empty(), !any_extended);
    }

    const int family = GetParam().family;
    const bool is_long = family >= 2;
    const Extended extended = GetParam().extended;
    const bool any_extended = extended != Extended::none;
};

constexpr const char* middle = " min    - Date Last Check : ";

class OnActivation : public Thresholds {};

TEST_P(OnActivation, TakesTheWordsOfTheFirmwareOnly) {
    read_on_activation();
    const bool like_family_1 = family == 1 || family == 3;
    using namespace oracle;
    expect_read(joined({words_of_both_paths, activation_words, latency_word, cut_off_words,
                        when(like_family_1, lambda_words_of_1), when(!like_family_1, eobd_words),
                        when(is_long, lambda_words_of_2_to_4), extended_words()}),
                like_family_1 ? 0 : untouched);
    expect_extended_widgets();
    if (extended == Extended::as_family_1) expect_service_line_of(126, middle, "  ");
    if (extended == Extended::as_families_2_to_4) expect_service_line_of(160, middle, "  ");
}

INSTANTIATE_TEST_SUITE_P(
    Firmware, OnActivation,
    testing::Values(
        Firmware{0, 2, 71, Extended::none}, Firmware{0, 255, 255, Extended::none},
        Firmware{1, 2, 34, Extended::none}, Firmware{1, 2, 35, Extended::as_family_1},
        Firmware{1, 1, 35, Extended::none}, Firmware{1, 1, 255, Extended::none},
        Firmware{1, 6, 34, Extended::none}, Firmware{1, 6, 35, Extended::as_family_1},
        Firmware{1, 7, 0, Extended::as_family_1}, Firmware{2, 0, 0, Extended::as_families_2_to_4},
        Firmware{2, 7, 71, Extended::as_families_2_to_4},
        Firmware{3, 0, 0, Extended::as_families_2_to_4},
        Firmware{3, 7, 71, Extended::as_families_2_to_4}, Firmware{4, 6, 24, Extended::none},
        Firmware{4, 6, 25, Extended::as_families_2_to_4}, Firmware{4, 5, 25, Extended::none},
        Firmware{4, 5, 255, Extended::none}, Firmware{4, 7, 24, Extended::none},
        Firmware{4, 7, 25, Extended::as_families_2_to_4}));

class InTheDialog : public Thresholds {};

TEST_P(InTheDialog, TakesTheWordsOfTheFirmwareOnly) {
    read_by_dialog();
    using namespace oracle;
    expect_read(joined({words_of_both_paths, when(family == 1, latency_word),
                        when(family == 1, lambda_words_of_1), when(family == 1, lambda_input_word),
                        when(family != 1, eobd_words), when(is_long, lambda_words_of_2_to_4),
                        when(any_extended, cut_off_words), extended_words()}));
    expect_extended_widgets();
    if (extended == Extended::as_family_1) expect_service_line_of(126, middle, "  ");
    // The line of the second group, which is read last, has two blanks before the date and none
    // after it.
    if (extended == Extended::as_families_2_to_4 || extended == Extended::both)
        expect_service_line_of(160, " min    -  Date Last Check : ", "");
}

INSTANTIATE_TEST_SUITE_P(
    Firmware, InTheDialog,
    testing::Values(
        Firmware{0, 2, 71, Extended::none}, Firmware{0, 255, 255, Extended::none},
        Firmware{1, 1, 255, Extended::none}, Firmware{1, 2, 0, Extended::as_family_1},
        Firmware{1, 7, 71, Extended::as_family_1}, Firmware{2, 5, 255, Extended::none},
        Firmware{2, 6, 23, Extended::none}, Firmware{2, 6, 24, Extended::as_families_2_to_4},
        Firmware{2, 2, 35, Extended::none}, Firmware{2, 7, 71, Extended::as_families_2_to_4},
        Firmware{3, 5, 34, Extended::none}, Firmware{3, 0, 35, Extended::as_family_1},
        Firmware{3, 5, 35, Extended::as_family_1}, Firmware{3, 6, 23, Extended::none},
        Firmware{3, 6, 24, Extended::as_families_2_to_4},
        Firmware{3, 6, 34, Extended::as_families_2_to_4}, Firmware{3, 6, 35, Extended::both},
        Firmware{4, 5, 34, Extended::none}, Firmware{4, 5, 35, Extended::as_family_1},
        Firmware{4, 6, 24, Extended::as_families_2_to_4}, Firmware{4, 7, 71, Extended::both}));

} // namespace
} // namespace zol::tests

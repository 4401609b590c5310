// Which words of the image each firmware has read, on the two roads of the first read. The
// thresholds of the roads are not the same, and they are meant not to be.
#include "tests/unit/link/crafted_unit.h"
#include "tests/unit/link/image_words.h"

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

class Thresholds : public CraftedBench, public testing::WithParamInterface<Firmware> {
  protected:
    Thresholds() {
        crafted.family = GetParam().family;
        crafted.version = GetParam().version;
        crafted.revision = GetParam().revision;
        for (const Word& word : every_word)
            link::mirrors.*word.mirror = untouched;
    }

    bool extended() const { return GetParam().extended != Extended::none; }
    Words extended_words() const {
        switch (GetParam().extended) {
        case Extended::none: return {};
        case Extended::as_family_1: return extended_words_1;
        case Extended::as_families_2_to_4: return extended_words_2_to_4;
        case Extended::both: return joined({extended_words_1, extended_words_2_to_4});
        }
        return {};
    }

    void expect_read(const Words& words, double kind_of_its_own = untouched) {
        Mirrors expected;
        for (const Word& word : every_word)
            expected.*word.mirror = untouched;
        expected.lambda_input_kind = kind_of_its_own;
        for (const Word& word : words)
            expected.*word.mirror = word_at(word.position);
        for (const Word& word : every_word)
            EXPECT_EQ(link::mirrors.*word.mirror, expected.*word.mirror)
                << "the mirror of position " << word.position;
    }

    void expect_service_line_of(int hours_position, const std::string& middle,
                                const std::string& end) {
        const auto text = [](int position) { return std::to_string(word_at(position)); };
        EXPECT_EQ(view::text(form1::lbl_ore),
                  "Time On GAS:    " + text(hours_position) + " hour - " +
                      text(hours_position + 2) + middle + text(hours_position + 4) + " / " +
                      text(hours_position + 6) + " / 200" + text(hours_position + 8) + end);
    }
    void expect_extended_widgets() {
        EXPECT_EQ(view::visible(form1::Frame2), extended());
        EXPECT_EQ(view::visible(form1::lbl_ore), extended());
        EXPECT_EQ(view::visible(form1::lbl_min), extended());
        EXPECT_EQ(view::enabled(form1::mnu_check_car), extended());
        EXPECT_EQ(view::selected(form1::Opt_modulare_yes), extended()); // the word is not 0
        EXPECT_FALSE(view::selected(form1::Opt_modulare_no));
        EXPECT_EQ(view::text(form1::lbl_ore).empty(), !extended());
    }
};

constexpr const char* middle = " min    - Date Last Check : ";

class OnActivation : public Thresholds {};

TEST_P(OnActivation, TheWordsOfTheFirmwareAreReadAndNoOthers) {
    read_on_activation();
    const int family = GetParam().family;
    const bool like_family_1 = family == 1 || family == 3;
    const bool long_layout = family >= 2;
    expect_read(joined({words_on_both_roads, cut_off_words, latency_word, activation_words,
                        like_family_1 ? lambda_words_1 : eobd_words,
                        long_layout ? lambda_words_2_to_4 : Words{}, extended_words()}),
                like_family_1 ? 0 : untouched);
    expect_extended_widgets();
    if (GetParam().extended == Extended::as_family_1) expect_service_line_of(126, middle, "  ");
    if (GetParam().extended == Extended::as_families_2_to_4)
        expect_service_line_of(160, middle, "  ");
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

class ByTheDialog : public Thresholds {};

TEST_P(ByTheDialog, TheWordsOfTheFirmwareAreReadAndNoOthers) {
    read_by_dialog();
    const int family = GetParam().family;
    const bool long_layout = family >= 2;
    expect_read(
        joined({words_on_both_roads, family == 1 ? latency_word : Words{},
                family == 1 ? lambda_words_1 : eobd_words, family == 1 ? kind_word : Words{},
                long_layout ? lambda_words_2_to_4 : Words{}, extended() ? cut_off_words : Words{},
                extended_words()}));
    expect_extended_widgets();
    if (GetParam().extended == Extended::as_family_1) expect_service_line_of(126, middle, "  ");
    // Read last, the second group's line stays: two blanks before the date, none behind it.
    if (GetParam().extended == Extended::as_families_2_to_4 ||
        GetParam().extended == Extended::both)
        expect_service_line_of(160, " min    -  Date Last Check : ", "");
}

INSTANTIATE_TEST_SUITE_P(
    Firmware, ByTheDialog,
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

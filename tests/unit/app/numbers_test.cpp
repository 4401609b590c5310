// Numbers as the operator types and reads them, and as a frame takes them.
#include "app/numbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace zol::tests {
namespace {

using app::number_text;
using app::round_half_even;
using app::val;

TEST(TypedNumber, IsReadAsFarAsItGoes) {
    EXPECT_EQ(val("1200"), 1200);
    EXPECT_EQ(val("1200 rpm"), 1200);
    EXPECT_EQ(val("12.5"), 12.5);
    EXPECT_EQ(val("12.5.7"), 12.5);
    EXPECT_EQ(val("12,5"), 12) << "a comma ends it";
    EXPECT_EQ(val(".5"), 0.5);
    EXPECT_EQ(val("5."), 5);
    EXPECT_EQ(val("007"), 7);
    EXPECT_EQ(val("80%"), 80);
    EXPECT_EQ(val("3e2"), 3) << "no powers of ten";
}

TEST(TypedNumber, MayHaveBlanksAnywhere) {
    EXPECT_EQ(val("  42  "), 42);
    EXPECT_EQ(val("1 2 3"), 123);
    EXPECT_EQ(val("\t4\n2"), 42);
    EXPECT_EQ(val("- 5"), -5);
}

TEST(TypedNumber, MayHaveOneSignInFront) {
    EXPECT_EQ(val("-5"), -5);
    EXPECT_EQ(val("+5"), 5);
    EXPECT_EQ(val("-.25"), -0.25);
    EXPECT_EQ(val("--5"), 0);
    EXPECT_EQ(val("5-3"), 5);
}

TEST(TypedNumber, IsZeroWithoutDigitsInFront) {
    for (const char* text : {"", " ", "rpm", "-", "+", ".", "-.", "x5", "NaN", "inf", "--"}) {
        EXPECT_EQ(val(text), 0) << text;
        EXPECT_FALSE(std::signbit(val(text))) << text << ": a zero has no sign";
    }
    EXPECT_EQ(val(std::string_view("\0"
                                   "12",
                                   3)),
              0);
}

TEST(TypedNumber, HasAsciiDigitsOnly) {
    EXPECT_EQ(val("١٢"), 0);   // Arabic-Indic
    EXPECT_EQ(val("１２"), 0); // full width
    EXPECT_EQ(val("½"), 0);
    EXPECT_EQ(val("12µs"), 12);
    EXPECT_EQ(val("\xFF\xFE 5"), 0);
}

TEST(TypedNumber, MayHaveTenThousandDigits) {
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(val(std::string(10'000, '9')), largest);
    EXPECT_EQ(val("-" + std::string(10'000, '9')), -largest);
    EXPECT_EQ(val("000" + std::string(10'000, '9')), largest);
    EXPECT_EQ(val(std::string(10'000, '0')), 0);
    EXPECT_EQ(val(std::string(10'000, '0') + "7"), 7);
    EXPECT_EQ(val("0." + std::string(10'000, '0') + "1"), 0);
    EXPECT_EQ(val("." + std::string(10'000, '0') + "1"), 0);
    EXPECT_EQ(val(std::string(10'000, 'x')), 0);
    EXPECT_EQ(val(std::string(10'000, ' ') + "7"), 7);
    EXPECT_NEAR(val("0.3" + std::string(10'000, '3')), 1.0 / 3, 1e-15);
}

TEST(ShownNumber, IsTheShortestThatReadsBackTheSame) {
    EXPECT_EQ(number_text(12.6), "12.6");
    EXPECT_EQ(number_text(5 * 0.78), "3.9");
    EXPECT_EQ(number_text(0.1 + 0.2), "0.3");
    EXPECT_EQ(number_text(1200), "1200");
    EXPECT_EQ(number_text(-3.9), "-3.9");
    EXPECT_EQ(number_text(0.5), "0.5");
    EXPECT_EQ(number_text(100), "100");
    EXPECT_EQ(number_text(65535), "65535");
    EXPECT_EQ(number_text(1e15), "1000000000000000");
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text = number_text((byte - 128) * 0.78);
        EXPECT_LE(text.size(), 6u) << text;
        EXPECT_NEAR(val(text), (byte - 128) * 0.78, 1e-12);
    }
}

TEST(ShownNumber, HasNoNegativeZero) {
    EXPECT_EQ(number_text(0), "0");
    EXPECT_EQ(number_text(-0.0), "0");
}

TEST(ShownNumber, MayBeVeryLargeOrVerySmall) {
    EXPECT_EQ(number_text(std::numeric_limits<double>::max()).size(), 309u);
    EXPECT_EQ(val(number_text(std::numeric_limits<double>::max())),
              std::numeric_limits<double>::max());
    EXPECT_TRUE(number_text(std::numeric_limits<double>::denorm_min()).starts_with("0.000"));
}

TEST(NumberForAFrame, IsRoundedWithTiesToEven) {
    EXPECT_EQ(round_half_even(0.5), 0);
    EXPECT_EQ(round_half_even(1.5), 2);
    EXPECT_EQ(round_half_even(2.5), 2);
    EXPECT_EQ(round_half_even(3.5), 4);
    EXPECT_EQ(round_half_even(-0.5), 0);
    EXPECT_EQ(round_half_even(-1.5), -2);
    EXPECT_EQ(round_half_even(2.4999), 2);
    EXPECT_EQ(round_half_even(2.5001), 3);
    EXPECT_EQ(round_half_even(1200), 1200);
}

TEST(NumberForAFrame, IsRoundedToPlacesWithTiesToEven) {
    EXPECT_EQ(number_text(round_half_even(12.346, 2)), "12.35");
    EXPECT_EQ(number_text(round_half_even(0.125, 2)), "0.12");
    EXPECT_EQ(number_text(round_half_even(0.375, 2)), "0.38");
    EXPECT_EQ(number_text(round_half_even(12.6, 2)), "12.6");
    EXPECT_EQ(number_text(round_half_even(7, 2)), "7");
}

} // namespace
} // namespace zol::tests

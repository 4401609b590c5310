// The image of every family, position by position, and the factory values.
#include "tests/unit/simulator/workshop.h"

#include "tests/support/image_oracle.h"

namespace sim {
namespace {

using testing::SizeIs;
using zol::oracle::ImageWord;

class Image : public testing::TestWithParam<int> {
  protected:
    Workshop shop{{.family = GetParam()}};
};
INSTANTIATE_TEST_SUITE_P(EveryFamily, Image, testing::Range(0, 5));

TEST_P(Image, HasItsLengthAndHead) {
    const Bytes image = shop.ask(1);
    const std::size_t length = GetParam() == 0 ? 107 : GetParam() == 1 ? 155 : 191;
    ASSERT_THAT(image, SizeIs(length));
    EXPECT_EQ(image[0], 'P');
    EXPECT_EQ(image[1], 'C');
    EXPECT_EQ(image[2] * 256u + image[3], length);
    EXPECT_EQ(image[4], 1);
}

TEST_P(Image, HoldsEachParameterAtItsPosition) {
    for (const auto& [place, parameter] : zol::oracle::layout_of_family(GetParam())) {
        // Each value is used once, and none is the number of a parameter.
        shop.write(parameter, 0x4000 + place);
        const Bytes image = shop.ask(1);
        EXPECT_EQ(Workshop::word(image, static_cast<std::size_t>(place)), 0x4000 + place)
            << "PAR_" << parameter << " at " << place;
        shop.unit.memory().set(par::coil_filter, 1500);
    }
}

TEST_P(Image, HoldsTheInverseDirectionAsWritten) {
    if (GetParam() == 1) return;
    shop.write(142, 257);
    EXPECT_EQ(Workshop::word(shop.ask(1), 84), 257);
}

TEST(LongImage, RepeatsWordsOfTheShortLayout) {
    Workshop shop({.family = 3});
    constexpr ImageWord again[] = {{110, 36},  {112, 12}, {116, 200}, {118, 22},
                                   {120, 202}, {122, 23}, {126, 27},  {128, 28},
                                   {130, 29},  {132, 39}, {136, 41}};
    for (const auto& [place, parameter] : again) {
        shop.write(parameter, 7000 + place);
        EXPECT_EQ(Workshop::word(shop.ask(1), static_cast<std::size_t>(place)), 7000 + place)
            << "PAR_" << parameter;
    }
}

TEST(FactoryValues, AreThoseOfTheFactoryReset) {
    const Memory memory;
    for (const auto& row : zol::oracle::factory_values)
        EXPECT_EQ(memory[row.parameter], row.value) << "PAR_" << row.parameter;
    for (const int cell : zol::oracle::correction_cells())
        EXPECT_EQ(memory[cell], zol::oracle::correction_cell_value) << "PAR_" << cell;
}

TEST(FactoryValues, OfOtherParametersAreTheSimulatedUnitsOwn) {
    const Memory memory;
    for (const auto& [number, value] : {std::pair{5, 2502}, {29, 0}, {99, 0}, {110, 20}})
        EXPECT_EQ(memory[number], value) << "PAR_" << number;
}

} // namespace
} // namespace sim

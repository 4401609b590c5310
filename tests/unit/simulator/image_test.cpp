// The image of every family, place by place.
#include "tests/unit/simulator/workshop.h"

#include <map>

namespace sim {
namespace {

using testing::SizeIs;

using Layout = std::map<int, int>; // place of the high byte, parameter

// Every family has these.
const Layout base = {{6, 1},    {8, 3},    {10, 4},   {12, 5},   {14, 6},   {16, 10},  {18, 15},
                     {20, 30},  {22, 31},  {24, 32},  {26, 33},  {28, 34},  {30, 35},  {32, 50},
                     {34, 51},  {36, 52},  {38, 60},  {40, 61},  {42, 101}, {44, 102}, {46, 103},
                     {48, 104}, {50, 105}, {52, 106}, {54, 107}, {56, 110}, {58, 120}, {60, 121},
                     {62, 122}, {64, 123}, {66, 124}, {68, 125}, {70, 126}, {72, 127}, {74, 128},
                     {76, 129}, {78, 130}};
const Layout diagnosis = {{80, 140},  {82, 141},  {84, 142},  {86, 143}, {88, 144},
                          {90, 145},  {92, 146},  {94, 147},  {96, 148}, {98, 149},
                          {100, 150}, {102, 151}, {104, 152}, {106, 153}};
const Layout lambda_family = {{96, 11},   {106, 16}, {110, 36}, {112, 12}, {116, 200}, {118, 22},
                              {120, 202}, {122, 23}, {126, 27}, {128, 28}, {130, 29},  {132, 39},
                              {134, 40},  {136, 41}, {148, 47}, {150, 21}, {154, 53}};
const Layout long_family = {{124, 11}, {134, 16}, {138, 36},  {140, 12}, {146, 200}, {148, 20},
                            {150, 21}, {152, 22}, {154, 202}, {156, 23}, {160, 27},  {162, 28},
                            {164, 29}, {166, 39}, {168, 40},  {170, 41}, {180, 47},  {186, 53}};

class Image : public testing::TestWithParam<int> {
  protected:
    Workshop shop{{.family = GetParam()}};
    Layout layout() const {
        Layout all = base;
        if (GetParam() == 1)
            all.insert(lambda_family.begin(), lambda_family.end());
        else
            all.insert(diagnosis.begin(), diagnosis.end());
        if (GetParam() >= 2) all.insert(long_family.begin(), long_family.end());
        return all;
    }
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

TEST_P(Image, ShowsWhatWasWrittenAtItsOwnPlace) {
    for (const auto& [place, parameter] : layout()) {
        // Each value is used once, and 256 times as large in the high byte as a number could be.
        shop.write(parameter, 0x4000 + place);
        const Bytes image = shop.ask(1);
        EXPECT_EQ(Workshop::word(image, static_cast<std::size_t>(place)), 0x4000 + place)
            << "PAR_" << parameter << " at " << place;
        shop.unit.memory().set(par::coil_filter, 1500);
    }
}

TEST_P(Image, TheInverseDirectionIsReadBackAsWritten) {
    if (GetParam() == 1) return;
    shop.write(142, 257);
    EXPECT_EQ(Workshop::word(shop.ask(1), 84), 257);
}

TEST(LongImage, RepeatsWhatOldReadersLookForWhereThePlaceIsFree) {
    Workshop shop({.family = 3});
    const Layout again = {{110, 36}, {112, 12}, {116, 200}, {118, 22}, {120, 202}, {122, 23},
                          {126, 27}, {128, 28}, {130, 29},  {132, 39}, {136, 41}};
    for (const auto& [place, parameter] : again) {
        shop.write(parameter, 7000 + place);
        EXPECT_EQ(Workshop::word(shop.ask(1), static_cast<std::size_t>(place)), 7000 + place)
            << "PAR_" << parameter;
    }
}

TEST(FactoryValues, AreThoseOfAUnitFromTheBox) {
    const Workshop shop;
    const std::map<int, int> values = {
        {106, 50},  {51, 50},   {52, 2},     {30, 3900},   {31, 4200},  {32, 3},     {33, 25},
        {34, 50},   {35, 75},   {61, 0},     {23, 0},      {101, 20},   {103, 50},   {104, 1200},
        {1, 10},    {107, 800}, {120, 1},    {121, 1400},  {123, 500},  {124, 1500}, {125, 1500},
        {127, 0},   {128, 0},   {129, 1001}, {215, 30000}, {202, 2000}, {201, 8000}, {140, 15},
        {141, 15},  {54, 60},   {55, 20},    {45, 1},      {14, 5},     {19, 250},   {20, 0},
        {21, 0},    {22, 800},  {5, 2502},   {29, 0},      {74, 100},   {98, 100},   {108, 100},
        {109, 100}, {111, 100}, {119, 100},  {159, 100},   {170, 100},  {99, 0},     {110, 20}};
    for (const auto& [number, value] : values)
        EXPECT_EQ(shop.unit.parameter(number), value) << "PAR_" << number;
}

} // namespace
} // namespace sim

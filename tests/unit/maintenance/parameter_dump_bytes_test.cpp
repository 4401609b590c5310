// The parameter dump to the last byte. The files of `files/` were written by hand from the list of
// labels and from the bytes below; nothing that makes a dump had a part in them.
#include "tests/unit/maintenance/dump_bench.h"

#include <fstream>
#include <iterator>
#include <numeric>

namespace zol::tests {
namespace {

struct Pair {
    std::uint8_t high, low;
};

struct Word {
    int parameter;
    std::uint8_t high, low;
};

// Family 0: a car on LPG with six faults, no value twice.
constexpr Word car_on_lpg[] = {
    {1, 0, 12},    {3, 4, 226},   {4, 4, 26},    {5, 6, 64},    {6, 23, 112},   {10, 0, 1},
    {15, 0, 35},   {30, 15, 60},  {31, 16, 104}, {32, 0, 3},    {33, 0, 25},    {34, 0, 50},
    {35, 0, 75},   {50, 0, 0},    {51, 0, 51},   {52, 0, 2},    {60, 1, 244},   {61, 0, 61},
    {101, 0, 20},  {102, 0, 102}, {103, 0, 103}, {104, 4, 176}, {105, 0, 105},  {106, 7, 208},
    {107, 3, 32},  {110, 0, 110}, {120, 0, 5},   {121, 5, 120}, {122, 0, 4},    {123, 1, 245},
    {124, 5, 220}, {125, 5, 221}, {126, 0, 126}, {127, 0, 127}, {128, 11, 184}, {129, 3, 233},
    {130, 0, 99},  {140, 0, 15},  {141, 0, 16},  {142, 1, 1},   {143, 0, 7},    {144, 0, 92},
    {145, 3, 1},   {146, 1, 71},  {147, 1, 72},  {148, 1, 30},  {149, 4, 20},   {150, 20, 1},
    {151, 0, 6},   {152, 4, 225}, {153, 0, 8},
};

// Family 1: the edges of numbers, of their digits and of their bytes.
constexpr Pair edges[] = {
    {0, 0},   {0, 1},     {0, 9},   {0, 10},    {0, 99},    {0, 100},   {0, 127},  {0, 128},
    {0, 255}, {1, 0},     {1, 1},   {3, 231},   {3, 232},   {1, 255},   {2, 0},    {39, 15},
    {39, 16}, {127, 255}, {128, 0}, {128, 1},   {255, 255}, {255, 254}, {255, 0},  {254, 255},
    {78, 32}, {117, 48},  {0, 254}, {10, 10},   {10, 13},   {13, 10},   {32, 32},  {48, 49},
    {26, 26}, {0, 26},    {80, 67}, {67, 80},   {1, 3},     {3, 1},     {16, 0},   {15, 255},
    {64, 0},  {63, 255},  {192, 0}, {191, 255}, {195, 80},  {234, 96},  {156, 64}, {25, 0},
    {100, 0}, {0, 200},   {200, 0},
};

// A reply to command 1 with these words first, as long as the family's images are.
template <typename Words>
link::Bytes image_of(const Words& words, std::size_t length) {
    link::Bytes image = {80, 67, 0, 0, 1};
    for (const auto& word : words)
        image.insert(image.end(), {word.high, word.low});
    image.resize(length, 7);
    return image;
}

link::Bytes image_of_family_0() { return image_of(car_on_lpg, 107); }

// What stands behind byte 107 has no line.
link::Bytes image_of_family_1() { return image_of(edges, 155); }

// Family 2: every byte is its own place in the reply, counted from 1.
link::Bytes image_of_family_2() {
    link::Bytes image(187);
    std::iota(image.begin(), image.end(), std::uint8_t{1});
    image[4] = 1; // the echo
    return image;
}

struct Dump {
    int family;
    link::Bytes image;
    friend void PrintTo(const Dump& dump, std::ostream* out) { *out << "family " << dump.family; }
};

class DumpBytes : public DumpBench {
  protected:
    static std::string written_by_hand(int family) {
        std::ifstream in(ZOL_SOURCE_DIR "/tests/unit/maintenance/files/dump_family_" +
                             std::to_string(family) + ".txt",
                         std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void expect_bytes_of_family(int family) {
        const std::string expected = written_by_hand(family);
        ASSERT_EQ(std::count(expected.begin(), expected.end(), '\n'), 51);
        EXPECT_EQ(read_text(dump_file), expected);
    }
};

class DumpBytesOfImage : public DumpBytes, public testing::WithParamInterface<Dump> {};

TEST_P(DumpBytesOfImage, AreThoseOfTheFileWrittenByHand) {
    start_quietly(GetParam().family);
    answer_everything_with(GetParam().image);
    fitter_dumps();
    expect_bytes_of_family(GetParam().family);
}

// Family 1 has other words from byte 80 on; the labels stay what they are.
INSTANTIATE_TEST_SUITE_P(Families, DumpBytesOfImage,
                         testing::Values(Dump{0, image_of_family_0()}, Dump{1, image_of_family_1()},
                                         Dump{2, image_of_family_2()}));

// The whole way: the same car's values in the unit's own memory, handed out by the unit itself.
TEST_F(DumpBytes, OfAUnitThatHoldsTheCarsValues) {
    start_quietly(0);
    for (const Word& word : car_on_lpg)
        unit->memory().set(word.parameter, static_cast<std::uint16_t>(word.high * 256 + word.low));
    fitter_dumps();
    expect_bytes_of_family(0);
}

} // namespace
} // namespace zol::tests

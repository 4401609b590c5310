// The parameter dump, byte for byte. The files of `files/` were written by hand from the list of
// labels and from the bytes below, not by a program.
#include "tests/support/frames.h"
#include "tests/unit/maintenance/dump_fixture.h"

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
    link::Bytes image = frame_bytes(1);
    for (const auto& word : words)
        image.insert(image.end(), {word.high, word.low});
    return of_length(image, length, 7);
}

// Family 2: every byte is its own position in the reply, counted from 1.
link::Bytes image_of_positions() {
    link::Bytes image(187);
    std::iota(image.begin(), image.end(), std::uint8_t{1});
    image[4] = 1; // the echo
    return image;
}

class DumpBytes : public DumpTest {
  protected:
    void expect_bytes_of_family(int family) {
        std::ifstream in(ZOL_SOURCE_DIR "/tests/unit/maintenance/files/dump_family_" +
                             std::to_string(family) + ".txt",
                         std::ios::binary);
        const std::string expected{std::istreambuf_iterator<char>(in), {}};
        ASSERT_EQ(std::ranges::count(expected, '\n'), 51);
        EXPECT_EQ(read_text(dump_file), expected);
    }
};

struct Dump {
    int family;
    link::Bytes image;
    friend void PrintTo(const Dump& dump, std::ostream* out) { *out << "family " << dump.family; }
};

class DumpBytesOfImage : public DumpBytes, public testing::WithParamInterface<Dump> {};

TEST_P(DumpBytesOfImage, AreThoseOfTheFileWrittenByHand) {
    use_unit({.family = GetParam().family, .version = 7, .revision = 71});
    start_quietly();
    image_is(GetParam().image);
    operator_dumps();
    expect_bytes_of_family(GetParam().family);
}

// The words of family 1 differ from byte 80 on; the labels do not. Bytes after 107 have no line.
INSTANTIATE_TEST_SUITE_P(Families, DumpBytesOfImage,
                         testing::Values(Dump{0, image_of(car_on_lpg, 107)},
                                         Dump{1, image_of(edges, 155)},
                                         Dump{2, image_of_positions()}));

TEST_F(DumpBytes, AreThoseOfTheUnitsOwnImage) {
    start_quietly();
    for (const Word& word : car_on_lpg)
        unit->memory().set(word.parameter, static_cast<std::uint16_t>(word.high * 256 + word.low));
    operator_dumps();
    expect_bytes_of_family(0);
}

} // namespace
} // namespace zol::tests

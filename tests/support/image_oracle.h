// What the tests expect of the control unit's parameters: where each firmware family has them in
// its image, and what a factory reset writes. Parameters are numbers here. The tables were written
// from the description of the unit; nothing of the program or of the simulated unit takes part in
// them, so that a mistake in either fails a test. The mirrors that the program fills are in
// mirror_oracle.h.
#pragma once

#include <initializer_list>
#include <span>
#include <vector>

namespace zol::oracle {

// A word of the image, the reply to command 1: the position of its high byte, counted from 1, and
// the parameter that it holds.
struct ImageWord {
    int position;
    int parameter;
};
using ImageWords = std::span<const ImageWord>;

// --- Bytes 6 to 79, the same in every family

// Both paths of the first read take these from every family.
inline constexpr ImageWord words_of_both_paths[] = {
    {6, 1},    {8, 3},    {10, 4},   {12, 5},   {14, 6},   {16, 10}, {18, 15}, {20, 30},
    {22, 31},  {24, 32},  {26, 33},  {28, 34},  {30, 35},  {32, 50}, {36, 52}, {42, 101},
    {50, 105}, {52, 106}, {56, 110}, {74, 128}, {76, 129}, {78, 130}};
// The activation path takes these from every family, the dialog path never.
inline constexpr ImageWord activation_words[] = {{48, 104}, {62, 122}};
// The activation path takes it from every family, the dialog path from family 1.
inline constexpr ImageWord latency_word[] = {{54, 107}};
// The activation path takes these from every family, the dialog path together with extended words.
inline constexpr ImageWord cut_off_words[] = {{60, 121}, {64, 123}, {66, 124}};
inline constexpr ImageWord unread_words[] = {{34, 51},  {38, 60},  {40, 61},  {44, 102}, {46, 103},
                                             {58, 120}, {68, 125}, {70, 126}, {72, 127}};

// --- From byte 80 on, by family

// Family 0 ends with these; families 2 to 4 have them too.
inline constexpr ImageWord eobd_words[] = {{84, 142}, {86, 143}, {88, 144}};
inline constexpr ImageWord unread_eobd_words[] = {{80, 140},  {82, 141},  {90, 145}, {92, 146},
                                                  {94, 147},  {96, 148},  {98, 149}, {100, 150},
                                                  {102, 151}, {104, 152}, {106, 153}};

inline constexpr ImageWord lambda_words_of_1[] = {{96, 11}, {106, 16}, {110, 36}, {112, 12}};
// Of family 1, on the dialog path only. The lambda words of families 2 to 4 include it.
inline constexpr ImageWord lambda_input_word[] = {{150, 21}};
inline constexpr ImageWord lambda_words_of_2_to_4[] = {{124, 11}, {134, 16}, {138, 36},
                                                       {140, 12}, {148, 20}, {150, 21}};

// Only newer firmware has these read.
inline constexpr ImageWord extended_words_of_1[] = {{118, 22},  {148, 47},  {154, 53}, {122, 23},
                                                    {116, 200}, {120, 202}, {126, 27}, {128, 28},
                                                    {130, 29},  {132, 39},  {134, 40}, {136, 41}};
inline constexpr ImageWord extended_words_of_2_to_4[] = {
    {152, 22}, {180, 47}, {186, 53}, {156, 23}, {146, 200}, {154, 202},
    {160, 27}, {162, 28}, {164, 29}, {166, 39}, {168, 40},  {170, 41}};

// The lists one after the other. Of two words for one parameter the later one is read last.
inline std::vector<ImageWord> joined(std::initializer_list<ImageWords> lists) {
    std::vector<ImageWord> all;
    for (const ImageWords list : lists)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

// The list if `condition` holds, else none.
inline ImageWords when(bool condition, ImageWords list) { return condition ? list : ImageWords{}; }

// Every word that the first read can take from a family.
inline std::vector<ImageWord> read_words_of_family(int family) {
    const bool is_long = family >= 2;
    return joined({words_of_both_paths, activation_words, latency_word, cut_off_words,
                   when(family != 1, eobd_words), when(family == 1, lambda_words_of_1),
                   when(family == 1, lambda_input_word), when(family == 1, extended_words_of_1),
                   when(is_long, lambda_words_of_2_to_4), when(is_long, extended_words_of_2_to_4)});
}

// Those, and the words that only the parameter dump shows.
inline std::vector<ImageWord> layout_of_family(int family) {
    return joined(
        {read_words_of_family(family), unread_words, when(family != 1, unread_eobd_words)});
}

// --- Factory values

// `mirror` is the parameter whose mirror takes the value when the tool writes it; 0 for none.
struct FactoryValue {
    int parameter;
    int value;
    int mirror;
};

// In the order in which the factory reset writes them. Four of them end in one mirror.
inline constexpr FactoryValue factory_values[] = {
    {106, 50, 106},   {51, 50, 51},     {52, 2, 52},      {30, 3900, 30},   {31, 4200, 31},
    {32, 3, 32},      {33, 25, 33},     {34, 50, 34},     {35, 75, 35},     {61, 0, 0},
    {23, 0, 23},      {101, 20, 101},   {103, 50, 103},   {104, 1200, 104}, {1, 10, 1},
    {107, 800, 107},  {120, 1, 0},      {121, 1400, 121}, {123, 500, 123},  {124, 1500, 0},
    {125, 1500, 0},   {127, 0, 0},      {128, 0, 128},    {129, 1001, 128}, {215, 30000, 215},
    {202, 2000, 128}, {201, 8000, 128}, {140, 15, 0},     {141, 15, 0},     {54, 60, 0},
    {55, 20, 0},      {45, 1, 0},       {143, 0, 0},      {14, 5, 0},       {19, 250, 0},
    {20, 0, 0},       {21, 0, 0},       {22, 800, 0}};

// The 48 correction cells, in the order in which the factory reset writes them.
inline std::vector<int> correction_cells() {
    constexpr struct { int first, last; } runs[] = {{74, 98}, {108, 109}, {111, 119}, {159, 170}};
    std::vector<int> cells;
    for (const auto& run : runs)
        for (int cell = run.first; cell <= run.last; ++cell)
            cells.push_back(cell);
    return cells;
}
inline constexpr int correction_cell_value = 100;

} // namespace zol::oracle

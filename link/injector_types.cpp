#include "link/injector_types.h"

namespace zol::link {
namespace {

// Time constant, constant, opening, wait, held opening; marks at activation, by dialog or menu.
constexpr InjectorType types[] = {
    {form1::mnu_matrix_2_ohm, 3000, 30, 2100, 200, 2000, OpeningMarks{2100, 2100}},
    {form1::mnu_matrix_3_ohm, 20000, 40, 3900, 300, 3800, OpeningMarks{3900, 3900}},
    {form1::mnu_valtek, 8000, 60, 4000, 200, std::nullopt, std::nullopt},
    {form1::mnu_mivra, 3000, 27, 2700, 200, std::nullopt, OpeningMarks{2700, 2300}},
};

} // namespace

std::span<const InjectorType> injector_types() { return types; }

} // namespace zol::link

// The gas injectors of the menu: what a choice writes, what the tool then holds as the opening
// value, and which opening value marks the item on which occasion.
#pragma once

#include "view/windows/form1.h"

#include <optional>
#include <span>

namespace zol::link {

// The opening values that mark an item. The third item has one of its own at activation.
struct OpeningMarks {
    double at_activation;
    double by_dialog_or_menu; // the dialog path of the first read, and a choice in the menu
};

struct InjectorType {
    view::Widget& item;
    double time_constant;
    double constant;
    double opening;
    int wait_after_write_ms;
    // What the mirror of the opening holds after the choice, if that is not what it held before.
    // The value written is not taken: the marks follow at the next read of the unit.
    std::optional<double> held_opening;
    std::optional<OpeningMarks> marks; // none: never marked, and the choice shows no work
};

std::span<const InjectorType> injector_types();

} // namespace zol::link

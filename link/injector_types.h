// The gas injectors of the menu: what a choice writes, what the mirror of the opening value holds
// afterwards, and which opening values tick the menu item (the injector marks).
#pragma once

#include "view/windows/form1.h"

#include <optional>
#include <span>

namespace zol::link {

// The opening values that tick an item. MIVRA has a different one at activation.
struct OpeningMarks {
    double at_activation;
    double by_dialog_or_menu; // the dialog path of the first read, and a choice in the menu
};

struct InjectorType {
    view::Widget& item;
    double time_constant; // the three values that are written, in this order
    double constant;
    double opening;
    int wait_after_write_ms;
    // The mirror of the opening after the choice; nothing: it keeps its value. It differs from the
    // written value, so the ticks follow at the next read of the unit.
    std::optional<double> held_opening;
    std::optional<OpeningMarks> marks; // none: never ticked, and no hourglass
};

std::span<const InjectorType> injector_types();

} // namespace zol::link

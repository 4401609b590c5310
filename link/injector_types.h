// The gas injectors of the menu: what a choice writes, what the mirror of the opening value holds
// afterwards, and which value of that mirror ticks the menu item (the injector marks).
#pragma once

#include "view/windows/form1.h"

#include <optional>
#include <span>

namespace zol::link {

// The opening values that tick an item. Only those of MIVRA differ.
struct OpeningMarks {
    double at_activation;
    double by_dialog_or_menu; // the dialog path of the first read, and a choice in the menu
};

struct InjectorType {
    view::Widget& item;
    // The three values that are written, in this order.
    double time_constant; // par::injector_time_constant
    double constant;      // par::injector_constant
    double opening;       // par::injector_opening
    int wait_after_write_ms;
    // The value of the opening's mirror after the choice; nothing: the mirror does not change. It
    // is not the written value, so the item is ticked only at the next read of the unit.
    std::optional<double> held_opening;
    std::optional<OpeningMarks> marks; // none: never ticked, and no hourglass
};

std::span<const InjectorType> injector_types();

} // namespace zol::link

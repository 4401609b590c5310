#include "view/qt/tab_order.h"

#include <algorithm>

namespace zol::view::qt {
namespace {

// Controls whose upper edges lie closer than this stand in one line.
constexpr double one_line_twips = 200;

std::vector<Widget*> children(const Widget& window, const Widget& parent) {
    std::vector<Widget*> found;
    for (Widget* w : window.controls)
        if (w->parent == &parent) found.push_back(w);
    const auto top = [](const Widget* w) { return w->design.place.top; };
    const auto left = [](const Widget* w) { return w->design.place.left; };
    std::stable_sort(found.begin(), found.end(), [&](auto* a, auto* b) { return top(a) < top(b); });
    for (auto line = found.begin(); line != found.end();) {
        const auto end = std::find_if(
            line, found.end(), [&](auto* w) { return top(w) - top(*line) >= one_line_twips; });
        std::stable_sort(line, end, [&](auto* a, auto* b) { return left(a) < left(b); });
        line = end;
    }
    return found;
}

void append(std::vector<Widget*>& order, const Widget& window, const Widget& parent) {
    for (Widget* w : children(window, parent)) {
        order.push_back(w);
        append(order, window, *w);
    }
}

} // namespace

std::vector<Widget*> reading_order(const Widget& window) {
    std::vector<Widget*> order;
    append(order, window, window);
    return order;
}

} // namespace zol::view::qt

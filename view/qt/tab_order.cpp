#include "view/qt/tab_order.h"

#include <algorithm>
#include <tuple>

namespace zol::view::qt {
namespace {

// Whether `a` is to the left of `b` and on the same line.
bool is_left_of(const Place& a, const Place& b) {
    return a.left + a.width <= b.left && a.top < b.top + b.height && b.top < a.top + a.height;
}

// From top to bottom, but no control before one to its left: a tall control follows the lines to
// its left.
std::vector<Widget*> children(const Widget& window, const Widget& parent) {
    std::vector<Widget*> remaining, order;
    for (Widget* w : window.controls)
        if (w->parent == &parent) remaining.push_back(w);
    std::stable_sort(remaining.begin(), remaining.end(), [](const Widget* a, const Widget* b) {
        const Place &first = a->design.place, &second = b->design.place;
        return std::tie(first.top, first.left) < std::tie(second.top, second.left);
    });
    while (!remaining.empty()) {
        // There always is one: the control that ends furthest to the left has no other to its left.
        const auto next = std::find_if(remaining.begin(), remaining.end(), [&](const Widget* w) {
            return std::none_of(remaining.begin(), remaining.end(), [&](const Widget* other) {
                return is_left_of(other->design.place, w->design.place);
            });
        });
        order.push_back(*next);
        remaining.erase(next);
    }
    return order;
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

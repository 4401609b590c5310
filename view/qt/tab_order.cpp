#include "view/qt/tab_order.h"

#include <algorithm>
#include <tuple>

namespace zol::view::qt {
namespace {

// Whether `a` stands beside `b`, to its left.
bool is_left_of(const Place& a, const Place& b) {
    return a.left + a.width <= b.left && a.top < b.top + b.height && b.top < a.top + a.height;
}

// From top to bottom, but nothing before what stands to its left: a tall control comes behind the
// lines beside it.
std::vector<Widget*> children(const Widget& window, const Widget& parent) {
    std::vector<Widget*> left, order;
    for (Widget* w : window.controls)
        if (w->parent == &parent) left.push_back(w);
    std::stable_sort(left.begin(), left.end(), [](const Widget* a, const Widget* b) {
        const Place &first = a->design.place, &second = b->design.place;
        return std::tie(first.top, first.left) < std::tie(second.top, second.left);
    });
    while (!left.empty()) {
        // The one that reaches furthest to the left always qualifies.
        const auto next = std::find_if(left.begin(), left.end(), [&](const Widget* w) {
            return std::none_of(left.begin(), left.end(), [&](const Widget* other) {
                return is_left_of(other->design.place, w->design.place);
            });
        });
        order.push_back(*next);
        left.erase(next);
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

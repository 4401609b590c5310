#include "view/operator.h"

#include "view/screen.h"
#include "view/view.h"

#include <algorithm>

namespace zol::view::operator_acts {
namespace {

std::vector<const Widget*>& acts = view_state.acts;

// Counts an act while it runs. The destructor also runs when the end of the program unwinds the
// stack.
class Act {
  public:
    explicit Act(const Widget& widget)
        : begun_(reachable(widget) && acts.size() < std::size_t{deepest_acts}) {
        if (begun_) acts.push_back(&widget);
    }
    ~Act() {
        if (begun_) acts.pop_back();
    }
    Act(const Act&) = delete;
    Act& operator=(const Act&) = delete;
    explicit operator bool() const { return begun_; }

  private:
    const bool begun_;
};

bool takes_focus(const Widget& w) {
    switch (w.kind) {
    case Kind::command_button:
    case Kind::option_button:
    case Kind::check_box:
    case Kind::text_box:
    case Kind::combo_box:
    case Kind::slider: return true;
    default: return false;
    }
}

} // namespace

bool takes_focus_by_tab(const Widget& w) {
    return takes_focus(w) || (w.kind == Kind::label && (w.on.click || w.on.double_click));
}

bool click(Widget& w) {
    const Act act(w);
    if (!act) return false;
    if (takes_focus(w)) set_focus(w);
    if (w.kind == Kind::check_box) {
        select_and_run_handler(w, !selected(w));
        return true;
    }
    if (w.kind == Kind::option_button && !selected(w)) {
        select_and_run_handler(w);
        return true;
    }
    run(w.on.click);
    return true;
}

bool double_click(Widget& w) {
    const Act act(w);
    if (!act) return false;
    run(w.on.double_click);
    return true;
}

bool drag_on(Widget& slider, double value) {
    const Act act(slider);
    if (!act) return false;
    set_focus(slider);
    const double before = slider.look.value;
    // The program may show a value outside the designed range, which extends the range. The
    // operator can only choose a value inside it.
    if (value != before)
        place_value(slider, std::clamp(value, slider.design.min, slider.design.max));
    if (slider.look.value != before) run(slider.on.scroll);
    return true;
}

bool end_drag(Widget& slider, double before) {
    const Act act(slider);
    if (!act) {
        // No handler has written this value to the unit, so it must not stay on the screen.
        if (reachable(slider)) place_value(slider, before);
        return false;
    }
    if (slider.look.value != before) run(slider.on.change);
    run(slider.on.click);
    return true;
}

bool drag_to(Widget& slider, double value) {
    const double before = slider.look.value;
    return drag_on(slider, value) && end_drag(slider, before);
}

bool choose(Widget& combo, int index) {
    const Act act(combo);
    if (!act) return false;
    set_focus(combo);
    if (!set_list_index(combo, index)) return false;
    run(combo.on.click);
    return true;
}

bool type(Widget& text_box, const std::string& whole_text) {
    const Act act(text_box);
    if (!act) return false;
    set_text(text_box, whole_text);
    return true;
}

bool key(Widget& window, int code, int shift) {
    const Act act(window);
    if (!act) return false;
    if (window.on.key) window.on.key(code, shift);
    const Widget* focused = view::focus();
    if (!focused || focused->window != &window || focused == &window) return true;
    if (reachable(*focused) && focused->on.key) focused->on.key(code, shift);
    return true;
}

bool focus(Widget& control) {
    const Act act(control);
    if (!act || !takes_focus_by_tab(control)) return false;
    set_focus(control);
    return true;
}

bool open(Widget& list) {
    const Act act(list);
    if (!act) return false;
    run(list.on.opens);
    return true;
}

bool close(Widget& window) {
    if (!reachable(window)) return false;
    unload(window);
    return true;
}

} // namespace zol::view::operator_acts

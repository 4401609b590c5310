#include "app/field_marking.h"

#include "view/view.h"

namespace zol::app {

void begin_field_edit(view::Widget& field) {
    view::set_edit_marker(field, true);
    view::set_back(field, view::light_red);
    view::set_text(field, "");
}

void end_field_edit(view::Widget& field) {
    view::set_edit_marker(field, false);
    view::set_back(field, view::white);
}

} // namespace zol::app

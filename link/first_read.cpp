#include "link/first_read.h"

#include "app/app_state.h"
#include "link/ecu_frames.h"
#include "link/image_layout.h"
#include "link/read_marks.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::link {
namespace {

using app::state;

// Whether the firmware sends the extended words in the layout of family 1.
bool extended_as_family_1() {
    return (state.ecu_family == 1 && state.ecu_version >= 2) ||
           (state.ecu_family >= 3 && state.ecu_revision >= 35);
}

// Whether it sends them in the layout of families 2 to 4. If both hold, the values read with this
// layout replace the others.
bool extended_as_families_2_to_4() {
    return state.ecu_family >= 2 && state.ecu_version >= 6 && state.ecu_revision >= 24;
}

void take_extended(const Reply& image) {
    if (extended_as_family_1()) {
        take_words(image, WordGroup::cut_off);
        take_words(image, WordGroup::extended, &Positions::family_1);
        mirrors.last_check_year_text = year_text_of_image();
        tick_injector(&OpeningMarks::by_dialog_or_menu);
        show_modular_pair();
        show_service_line(service_line_middle, "  ");
    }
    if (extended_as_families_2_to_4()) {
        take_words(image, WordGroup::cut_off);
        take_words(image, WordGroup::extended, &Positions::families_2_to_4);
        mirrors.last_check_year_text = year_text_of_image();
        tick_injector(&OpeningMarks::by_dialog_or_menu);
        show_modular_pair();
        show_service_line(" min    -  Date Last Check : ", "");
    }
}

void take_image(const Reply& image) {
    take_words(image, WordGroup::base);
    if (state.ecu_family == 1) take_word(image, parameter(par::injector_latency));
    take_tank_type();
    if (state.ecu_family == 1) {
        take_words(image, WordGroup::lambda, &Positions::family_1);
        select_lambda_kind();
    } else {
        take_words(image, WordGroup::eobd);
        tick_eobd_direction();
        tick_eobd_protocol();
    }
    if (state.ecu_family >= 2 && state.ecu_family <= 4) {
        take_words(image, WordGroup::lambda, &Positions::families_2_to_4);
        tick_debug_pair();
        select_lambda_kind();
        view::set_visible(form1::Frame_L_C_T, true);
    }
    take_extended(image);
}

} // namespace

bool read_version() {
    send_command(Command::version);
    wait_ms(1600);
    const Reply reply = read_reply();
    if (!reply.echoes(Command::version)) return false;
    // A number that did not arrive keeps its old value and is left out of the text.
    state.firmware_text.clear();
    const auto family = reply.byte(7), version = reply.byte(9), revision = reply.byte(11);
    take(family, state.ecu_family);
    take(version, state.ecu_version);
    take(revision, state.ecu_revision);
    if (family) state.firmware_text += std::to_string(*family);
    if (version) state.firmware_text += "." + std::to_string(*version);
    if (revision) state.firmware_text += "." + std::to_string(*revision);
    return true;
}

void read_for_dialog() {
    while (!read_version()) {}
    if (state.ecu_family == 1) offer_lambda_only();
    if (state.ecu_family == 0) offer_diagnosis(false);
    for (int attempt = 1; attempt <= 3; ++attempt) {
        send_command(Command::read_image);
        wait_ms(1800);
        const Reply image = read_reply();
        if (!image.echoes(Command::read_image)) continue;
        state.ui_loading = true;
        take_image(image);
        return;
    }
}

} // namespace zol::link

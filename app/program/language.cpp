#include "app/program/language.h"

#include "app/app_state.h"
#include "app/captions.h"
#include "app/helper_texts.h"
#include "app/settings_file.h"
#include "link/port_tips.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::app {
namespace {

struct Language {
    view::Widget& item;
    const char* code;
};

const Language languages[] = {
    {form1::it, "it"}, {form1::uk, "uk"}, {form1::pl, "pl"}, {form1::fr, "fr"}, {form1::de, "de"},
};

void show_helper_texts() {
    apply_helper_texts();
    apply_own_captions();
    link::refresh_port_tips();
}

} // namespace

void set_language(const std::string& code) {
    for (const Language& each : languages)
        view::set_checked(each.item, each.code == code);
    state.current_language = code;
    write_language(code);
    apply_panel_captions();
    apply_control_captions();
    show_helper_texts();
}

void load_language() {
    const std::string stored = read_setting("LANGUAGE", "");
    for (const Language& each : languages) {
        if (stored != each.code) continue;
        view::set_checked(each.item, true);
        state.current_language = stored;
    }
    show_helper_texts();
}

void connect_language_menu() {
    for (const Language& each : languages)
        each.item.on.click = [code = std::string(each.code)] { set_language(code); };
}

} // namespace zol::app

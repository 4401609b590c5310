#include "link/port_tips.h"

#include "app/port_menu.h"
#include "link/connection_dialog.h"
#include "link/port_devices.h"
#include "view/view.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

#include <string>
#include <vector>

namespace zol::link {
namespace {

// The item's own number, as in its caption. The help text follows, if there is one.
void refresh_menu() {
    for (int number = 1; view::Widget* item = app::port_menu_item(number); ++number) {
        const std::string& help = item->help.text;
        view::set_tip(*item, port_tip(number) + (help.empty() ? "" : "\n" + help));
    }
}

// Each entry's tip shows its device. The list's own tip shows all of them, because the closed list
// shows one entry only.
void refresh_list() {
    view::Widget& list = centralina_attiva::Combo1;
    std::vector<std::string> tips;
    std::vector<view::ItemNote> notes;
    std::string all;
    for (std::size_t entry = 0; entry < list.look.items.size(); ++entry) {
        const int number = static_cast<int>(port_of_entry(static_cast<int>(entry)));
        tips.push_back(port_tip(number));
        const PortDevice device = port_device(number);
        notes.push_back({device.name, !device.is_there});
        all += (entry > 0 ? "\n" : "") + tips.back();
    }
    view::set_item_tips(list, tips);
    view::set_item_notes(list, notes);
    view::set_tip(list, all);
}

} // namespace

void refresh_port_tips() {
    refresh_menu();
    refresh_list();
}

void connect_port_tips() {
    form1::mnu_Porta_Seriale.on.opens = refresh_menu;
    centralina_attiva::Combo1.on.opens = refresh_list;
}

} // namespace zol::link

#include "app/port_menu.h"

#include "app/settings_file.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <array>

namespace zol::app {
namespace {

const std::array<view::Widget*, 8> items = {&form1::com1, &form1::com2, &form1::com3, &form1::com4,
                                            &form1::com5, &form1::com6, &form1::com7, &form1::com8};

} // namespace

view::Widget* port_menu_item(double port_number) {
    for (std::size_t i = 0; i < items.size(); ++i)
        if (port_number == static_cast<double>(i + 1)) return items[i];
    return nullptr;
}

void connect_port_menu() {
    for (std::size_t i = 0; i < 7; ++i)
        items[i]->on.click = [i] {
            for (std::size_t other = 0; other < 7; ++other)
                view::set_checked(*items[other], other == i);
            // write_port() expects a list position, so COM3 stores 4 and COM7 stores 8. The open
            // port does not change until the next start.
            write_port(static_cast<double>(i + 1));
        };
}

} // namespace zol::app

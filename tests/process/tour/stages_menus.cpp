#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

struct Injector {
    const char* item;
    int constant, time_constant, opening;
};

// The one that later visits find again comes last; so does the car.
constexpr Injector injectors[] = {{"mnu_mivra", 27, 3000, 2700},
                                  {"mnu_matrix_2_ohm", 30, 3000, 2100},
                                  {"mnu_valtek", 60, 8000, 4000},
                                  {"mnu_matrix_3_ohm", 40, 20000, 3900}};

struct Car {
    const char* item;
    int time_constant;
};

constexpr Car cars[] = {{"type_a", 20000}, {"type_c", 1500}, {"type_b", 5000}};

struct Port {
    const char* item;
    const char* stored; // from COM3 on the menu stores one more than it says
};

constexpr Port ports[] = {{"com2", "COM=2"}, {"com4", "COM=5"}, {"com5", "COM=6"},
                          {"com6", "COM=7"}, {"com7", "COM=8"}, {"com1", "COM=1"}};

void settle(Hands& hands) {
    hands.until_idle();
    Hands::rest(200);
}

} // namespace

void choose_injectors(Hands& hands, UnitProcess& unit) {
    hands.menu({"mnu_Impostazioni", "mnu_type_injector_gas"});
    hands.picture("injector-menu");
    hands.leave_menus();
    for (const Injector& injector : injectors) {
        const std::string name = injector.item;
        hands.menu({"mnu_Impostazioni", "mnu_type_injector_gas", injector.item});
        settle(hands);
        given(hands, unit, name, 202, injector.opening);
        given(hands, unit, name + ", its constant", 200, injector.constant);
        given(hands, unit, name + ", its time", 201, injector.time_constant);
    }
    for (const Car& car : cars) {
        hands.menu({"mnu_Impostazioni", "mnu_type_car", car.item});
        settle(hands);
        given(hands, unit, car.item, 201, car.time_constant);
    }
    Hands::rest(600);
}

void choose_ports(Hands& hands, UnitProcess& unit) {
    hands.menu({"mnu_Impostazioni", "mnu_Porta_Seriale"});
    hands.picture("port-menu");
    hands.leave_menus();
    for (const Port& port : ports) {
        hands.menu({"mnu_Impostazioni", "mnu_Porta_Seriale", port.item});
        hands.see(std::string(port.item) + " is stored", hands.until([&] {
            return whole_file("\\setting.ini").find(port.stored) != std::string::npos;
        }));
        hands.see(std::string(port.item) + " alone is ticked", hands.ticked(port.item));
        for (const Port& other : ports)
            if (&other != &port) hands.see("no other is", !hands.ticked(other.item));
    }
    hands.menu({"mnu_Impostazioni", "mnu_Porta_Seriale", "com8"});
    Hands::rest(300);
    hands.see("the last port does nothing", hands.ticked("com1") && !hands.ticked("com8"));
    hands.see("the open port stays as it is until the next start", values_flow(hands, unit));
}

} // namespace zol::tour

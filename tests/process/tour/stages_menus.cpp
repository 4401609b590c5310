#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

struct Injector {
    const char* item;
    int constant, time_constant, opening;
};

// Later visits find the last injector and the last car.
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
    const char* stored; // from COM4 on, one more than the item's number
};

constexpr Port ports[] = {{"com2", "COM=2"}, {"com4", "COM=5"}, {"com5", "COM=6"},
                          {"com6", "COM=7"}, {"com7", "COM=8"}, {"com1", "COM=1"}};

void screenshot_menu(Ui& ui, const QStringList& path, const char* name) {
    ui.menu(path);
    ui.screenshot(name);
    ui.close_menus();
}

} // namespace

void choose_injectors(Ui& ui) {
    screenshot_menu(ui, {"mnu_Impostazioni", "mnu_type_injector_gas"}, "injector-menu");
    for (const Injector& injector : injectors) {
        const std::string name = injector.item;
        ui.menu({"mnu_Impostazioni", "mnu_type_injector_gas", injector.item});
        ui.settle();
        ui.given(name + ", opening", 202, injector.opening);
        ui.given(name + ", constant", 200, injector.constant);
        ui.given(name + ", time constant", 201, injector.time_constant);
    }
    for (const Car& car : cars) {
        ui.menu({"mnu_Impostazioni", "mnu_type_car", car.item});
        ui.settle();
        ui.given(car.item, 201, car.time_constant);
    }
    rest(600);
}

void choose_ports(Ui& ui) {
    const auto choose = [&](const char* item) {
        ui.menu({"mnu_Impostazioni", "mnu_Porta_Seriale", item});
    };
    screenshot_menu(ui, {"mnu_Impostazioni", "mnu_Porta_Seriale"}, "port-menu");
    for (const Port& port : ports) {
        choose(port.item);
        ui.expect(std::string(port.item) + " is stored", [&] {
            return whole_file("\\setting.ini").find(port.stored) != std::string::npos;
        });
        for (const Port& other : ports)
            ui.check(std::string("only ") + port.item + " is ticked",
                     ui.ticked(other.item) == (&other == &port));
    }
    choose("com8");
    rest(300);
    ui.check("COM8 does nothing", ui.ticked("com1") && !ui.ticked("com8"));
    ui.check("the open port is used until the next start", ui.values_flow());
}

void choose_languages(Ui& ui) {
    struct Panel {
        const char *button, *frame, *name;
    };
    constexpr Panel panels[] = {{"Command_impostazioni", "Frame_impostazioni", "settings"},
                                {"Command_lambda", "Frame_Lambda", "lambda"},
                                {"Command_diagnosi", "Frame_diagnosi", "diagnosis"},
                                {"Command_engine", "frame_engine", "engine"}};
    for (const std::string code : {"it", "pl", "fr", "de", "uk"}) {
        ui.menu({"mnu_Lingua", QString::fromStdString(code)});
        rest(300);
        ui.check("the language is ticked: " + code, ui.ticked(QString::fromStdString(code)));
        for (const Panel& panel : panels) {
            ui.go_to(panel.button, panel.frame);
            // Closing the changeover window loads the captions of the main window.
            if (&panel == &panels[0]) {
                ui.click("Command303");
                ui.wait_shown("Form3");
                rest(300);
                ui.screenshot(code + "-changeover");
                ui.click("Command1", "Form3");
                ui.wait_gone("Form3");
                rest(400);
            }
            ui.screenshot(code + "-" + panel.name);
        }
    }
    ui.check("the captions are English again", ui.text("Command_engine") == "ENGINE");
}

} // namespace zol::tour

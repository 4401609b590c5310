#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

constexpr auto ctrl = Qt::ControlModifier;

// For handlers that leave the start of the polling to the watchdog, which does not run after a
// start without the connection dialog.
void poll_again(Ui& ui) {
    ui.settle(300); // while the timer is on, the button takes the polling as running
    ui.click("Command_engine");
    rest(700);
}

int dragged(Ui& ui, const QString& slider, int value) {
    ui.drag(slider, value);
    ui.wait_idle();
    return ui.value(slider);
}

} // namespace

void move_gains(Ui& ui) {
    const int gain = dragged(ui, "Slider_ktar", 1500);
    ui.check("the gain is dragged to about 1500, not " + std::to_string(gain),
             gain > 1490 && gain < 1510);
    ui.given("the gain is dragged", 3, gain);
    ui.given("on LPG the power gain follows", 4, gain - 200);
    ui.check("the slider's tip shows the gain above 1001",
             ui.tip("Slider_ktar") == QString::number(gain - 1001));
    ui.expect("the unit gets the present pressure", [&] {
        const int pressure = ui.unit.parameter(104);
        return pressure > 1300 && pressure < 1450;
    });
    rest(500);
    ui.screenshot("gain-dragged");
    for (const auto& [button, value] : {std::pair{"Command8", gain - 100}, {"Command7", gain}}) {
        ui.click(button);
        ui.wait_idle();
        ui.given(button, 3, value);
    }
    ui.given("the power gain is dragged", 4, dragged(ui, "Slider_power", 1400));
    ui.check("the power gain does not move the gain", ui.value("Slider_ktar") == gain);
    const int attenuation = dragged(ui, "Slider_attenuazione", 60);
    ui.given("the attenuation is dragged", 101, attenuation);
    ui.check("the attenuation is shown",
             ui.text("Label_attenuazione") == QString::number(attenuation) + "- ");
    poll_again(ui);
    ui.click("Command_rpm_meno");
    ui.given("RPM -", 1, 15);
    poll_again(ui);
    ui.expect("the shown engine speed is lower",
              [&] { return ui.text("Label_rpm").toInt() < 700; });
    ui.click("Command_rpm_piu");
    ui.given("RPM +", 1, 10);
    poll_again(ui);
}

void use_keys(Ui& ui) {
    const int gain = ui.value("Slider_ktar"), power = ui.value("Slider_power");
    const int attenuation = ui.value("Slider_attenuazione");
    struct Key {
        Qt::Key key;
        int number, value;
    };
    for (const Key& each :
         {Key{Qt::Key_PageUp, 4, power + 10}, Key{Qt::Key_PageDown, 4, power},
          Key{Qt::Key_Right, 3, gain + 10}, Key{Qt::Key_Left, 3, gain},
          Key{Qt::Key_Down, 101, attenuation + 5}, Key{Qt::Key_Up, 101, attenuation}}) {
        ui.press(each.key);
        ui.settle(500);
        ui.given("key " + std::to_string(each.key), each.number, each.value);
    }
    ui.given("on LPG the power gain follows", 4, gain - 200);
    poll_again(ui);
    for (const char* fuel : {"PETROL", "LPG"}) {
        ui.press(Qt::Key_Space);
        ui.expect(
            std::string("Space changes over to ") + fuel,
            [&] { return ui.text("Label_carburante") == fuel; }, 15000);
    }
    for (const auto& [answer, value] : {std::pair{"Yes", 1}, {"No", 0}}) {
        ui.press(Qt::Key_F, ctrl);
        ui.screenshot_box("forced-start");
        ui.answer_box("Forced start", answer);
        ui.given(std::string("Ctrl+F, ") + answer, 122, value);
        poll_again(ui);
    }
    const int speed = ui.text("Label_rpm").toInt();
    ui.press(Qt::Key_G, ctrl);
    ui.wait_until([&] { return ui.box_open(); });
    const int asked = ui.box_text().section(' ', -1).toInt();
    ui.check("Ctrl+G asks for the present speed", asked > speed - 100 && asked < speed + 100);
    ui.answer_box("changeover speed", "Yes");
    ui.given("Ctrl+G, Yes", 121, asked);
    poll_again(ui);
    ui.press(Qt::Key_V, ctrl);
    ui.screenshot_box("edit-parameter");
    ui.answer_box("Digita il Parametro da Modificare", "OK", "102");
    ui.answer_box("Inserisci il valore da assegnare al Parametro : 102", "OK", "45");
    ui.given("Ctrl+V", 102, 45);
    poll_again(ui);
}

void tune(Ui& ui) {
    dragged(ui, "Slider_ktar", 1470); // near the end, so that few rounds are needed
    ui.press(Qt::Key_T, ctrl);
    ui.answer_box("Automatic Tuning System", "Yes");
    ui.expect("the tuning line appears", [&] { return ui.visible("lbl_tuning"); });
    rest(3000);
    ui.screenshot("tuning");
    ui.expect(
        "the tuning run ends with a box", [&] { return ui.box_open(); }, 180000);
    ui.screenshot("tuned");
    ui.answer_box("AUTO READY TO GO!!!", "OK");
    ui.expect("the tuning line disappears", [&] { return !ui.visible("lbl_tuning"); });
    ui.given("the tuned gain", 3, ui.value("Slider_ktar"));
    ui.given("its power gain", 4, ui.value("Slider_power"));
    rest(2500); // the run's last wait
}

} // namespace zol::tour

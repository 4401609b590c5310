#include "tests/process/tour/stages.h"

namespace zol::tour {
namespace {

constexpr auto ctrl = Qt::ControlModifier;

// After what leaves the polling to the watchdog, which a direct start does not have.
void poll_again(Hands& hands) {
    hands.until_idle();
    // A handler that ends with the timer on would make the button think that the polling runs.
    Hands::rest(300);
    hands.click("Command_engine");
    Hands::rest(700);
}

void key(Hands& hands, Qt::Key which) {
    hands.press(which);
    hands.until_idle();
    Hands::rest(500);
}

void edit_parameter(Hands& hands, const QString& number, const QString& value) {
    hands.press(Qt::Key_V, ctrl);
    hands.until([&] { return hands.box_on_view(); });
    hands.picture("edit-parameter");
    answer_box(hands, "Digita il Parametro da Modificare", "OK", number);
    answer_box(hands, "Inserisci il valore da assegnare al Parametro : " + number, "OK", value);
}

} // namespace

void move_gains(Hands& hands, UnitProcess& unit) {
    hands.drag("Slider_ktar", 1500);
    hands.until_idle();
    const int dragged = hands.value("Slider_ktar");
    hands.see("the gain is dragged to about 1500, not " + std::to_string(dragged),
              dragged > 1490 && dragged < 1510);
    given(hands, unit, "the gain is dragged", 3, dragged);
    given(hands, unit, "the power gain follows on LPG", 4, dragged - 200);
    hands.see("the slider's tip tells the gain above one",
              hands.tip("Slider_ktar") == QString::number(dragged - 1001));
    hands.see("the pressure at which the gain was set is kept", hands.until([&] {
        const int pressure = unit.parameter(104);
        return pressure > 1300 && pressure < 1450;
    }));
    Hands::rest(500);
    hands.picture("gain-dragged");
    hands.click("Command8");
    hands.until_idle();
    given(hands, unit, "-100", 3, dragged - 100);
    hands.click("Command7");
    hands.until_idle();
    given(hands, unit, "+100", 3, dragged);
    hands.drag("Slider_power", 1400);
    hands.until_idle();
    given(hands, unit, "the power gain is dragged", 4, hands.value("Slider_power"));
    hands.see("and leaves the other gain alone", hands.value("Slider_ktar") == dragged);
    hands.drag("Slider_attenuazione", 60);
    hands.until_idle();
    given(hands, unit, "the attenuation is dragged", 101, hands.value("Slider_attenuazione"));
    hands.see("the attenuation is written out",
              hands.text("Label_attenuazione") ==
                  QString::number(hands.value("Slider_attenuazione")) + "- ");
    poll_again(hands);
    hands.click("Command_rpm_meno");
    given(hands, unit, "the shown speed is lowered", 1, 15);
    poll_again(hands);
    hands.see("the engine speed is shown lower",
              hands.until([&] { return hands.text("Label_rpm").toInt() < 700; }));
    hands.click("Command_rpm_piu");
    given(hands, unit, "the shown speed is raised", 1, 10);
    poll_again(hands);
}

void use_keys(Hands& hands, UnitProcess& unit) {
    const int gain = hands.value("Slider_ktar"), damping = hands.value("Slider_attenuazione");
    key(hands, Qt::Key_Right);
    given(hands, unit, "Right", 3, gain + 10);
    key(hands, Qt::Key_Left);
    given(hands, unit, "Left", 3, gain);
    const int power = hands.value("Slider_power");
    key(hands, Qt::Key_PageUp);
    given(hands, unit, "Page Up", 4, power + 10);
    key(hands, Qt::Key_PageDown);
    given(hands, unit, "Page Down", 4, power);
    key(hands, Qt::Key_Down);
    given(hands, unit, "Down", 101, damping + 5);
    key(hands, Qt::Key_Up);
    given(hands, unit, "Up", 101, damping);
    poll_again(hands);
    const auto fuel_is = [&](const QString& fuel) {
        return hands.until([&] { return hands.text("Label_carburante") == fuel; }, 15000);
    };
    hands.press(Qt::Key_Space);
    hands.see("space goes over to petrol", fuel_is("PETROL"));
    hands.press(Qt::Key_Space);
    hands.see("space goes back to gas", fuel_is("LPG"));
    hands.press(Qt::Key_F, ctrl);
    hands.until([&] { return hands.box_on_view(); });
    hands.picture("forced-start");
    answer_box(hands, "Forced start", "Yes");
    given(hands, unit, "Ctrl+F, Yes", 122, 1);
    poll_again(hands);
    hands.press(Qt::Key_F, ctrl);
    answer_box(hands, "Forced start", "No");
    given(hands, unit, "Ctrl+F, No", 122, 0);
    poll_again(hands);
    const int speed = hands.text("Label_rpm").toInt();
    hands.press(Qt::Key_G, ctrl);
    hands.until([&] { return hands.box_on_view(); });
    const int asked = hands.box_text().section(' ', -1).toInt();
    hands.see("Ctrl+G asks for the present speed", asked > speed - 100 && asked < speed + 100);
    answer_box(hands, "changeover speed", "Yes");
    given(hands, unit, "Ctrl+G, Yes", 121, asked);
    poll_again(hands);
    edit_parameter(hands, "102", "45");
    given(hands, unit, "Ctrl+V", 102, 45);
    poll_again(hands);
}

void tune(Hands& hands, UnitProcess& unit) {
    // Near the end, so that few rounds are needed.
    hands.drag("Slider_ktar", 1470);
    hands.until_idle();
    hands.press(Qt::Key_T, ctrl);
    answer_box(hands, "Automatic Tuning System", "Yes");
    hands.see("the tuning line comes on view",
              hands.until([&] { return hands.visible("lbl_tuning"); }));
    Hands::rest(3000);
    hands.picture("tuning");
    hands.see("the tuning run ends with a box",
              hands.until([&] { return hands.box_on_view(); }, 180000));
    hands.picture("tuned");
    answer_box(hands, "AUTO READY TO GO!!!", "OK");
    hands.see("the tuning line goes again",
              hands.until([&] { return !hands.visible("lbl_tuning"); }));
    given(hands, unit, "the tuned gain", 3, hands.value("Slider_ktar"));
    given(hands, unit, "its power gain", 4, hands.value("Slider_power"));
    Hands::rest(2500); // the run's last wait
}

} // namespace zol::tour

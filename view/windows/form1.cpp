// The rows of the main window. Their order is that of Form1.controls and of the Tab key.
//
// All controls lie within 8010 twips of height: scaling fits that height between the menu bar and
// the bottom of the screen.
#include "view/windows/form1.h"

#include "view/windows/style.h"

namespace zol::form1 {

using namespace zol::windows;

namespace {

// 41 lamps in one row, without a gap for the missing index 33. Each overlaps the next by a fifth of
// its width.
Design lamp(int index) {
    const double place_in_row = index < 33 ? index : index - 1;
    return control(Kind::shape, "led_rpm", Form1, {120 + 120 * place_in_row, 120, 150, 150})
        .colours(view::green);
}

// The tank gauge: row 0 is the bottom row.
constexpr double gauge_row_height = 420;
constexpr double gauge_row_top(int row) { return 840 + gauge_row_height * (4 - row); }
constexpr Place gauge_lower_bound(int row) { return {120, gauge_row_top(row), 600, 240}; }
constexpr Place gauge_upper_bound(int row) { return {3240, gauge_row_top(row), 540, 240}; }
// A voltage belongs to the border between two rows. Border 0 is the bottom of the gauge, border 5
// its top.
constexpr Place gauge_voltage(int border) {
    return {4290, gauge_row_top(border) + gauge_row_height - 180, 510, 240};
}

// The scale beside the voltages, from the bottom to the top of the gauge.
std::vector<view::Stroke> gauge_scale() {
    constexpr Colour scale_grey = rgb(110, 117, 124);
    constexpr double line_left = 4140, mark_right = 4260;
    constexpr auto border_top = [](int border) { return gauge_voltage(border).top + 120; };
    constexpr auto line = view::Stroke::Shape::line;
    std::vector strokes{
        view::Stroke{line, line_left, border_top(5), line_left, border_top(0), scale_grey}};
    for (int border = 0; border <= 5; ++border)
        strokes.push_back(
            {line, line_left, border_top(border), mark_right, border_top(border), scale_grey});
    return strokes;
}

Design gauge_slider(int row) {
    return slider("Slider1", Frame_tank, {780, gauge_row_top(row) - 60, 2400, 360})
        .range(0, 100)
        .starts_at(row == 0 ? 80 : 79)
        .steps(1, 2);
}

Design gauge_lamp(int row) {
    return control(Kind::shape, "Shape1", Frame_tank, {3840, gauge_row_top(row), 240, 240})
        .colours(row == 0 ? view::red : view::green);
}

Design gain_slider(std::string_view name, Place place) {
    return slider(name, frame_TARATURA, place)
        .range(1001, 1800)
        .starts_at(1200)
        .steps(1, 100, 50)
        .tip("199")
        .runs_change_on_assignment();
}

// An option button with the custom pointer of the command buttons.
Design pointed_option(std::string_view name, Widget& parent, Place place, std::string text) {
    return option(name, parent, place, std::move(text)).pointer(Pointer::custom);
}

Design fault_code(std::string_view name, double left, double top) {
    return reading(name, Frame_diagnosi, {left, top, 1920, 540}, "", 14);
}

constexpr Place first_line = {180, 300, 1740, 300}, second_line = {180, 660, 1740, 300};
constexpr Place panel = {120, 2880, 9900, 4260};

} // namespace

Widget Form1{window("Form1", "ZOL-INJECTION", {0, 0, 10125, 9000}).colours(paper, ink)};

#include "view/windows/form1_menu.inc"

// Live values.
WidgetArray led_rpm(0, 41, 33, lamp);
Widget lbl_rpm{title("lbl_rpm", Form1, {120, 330, 1680, 240}, "RPM")};
Widget Label_rpm{figure("Label_rpm", Form1, {120, 570, 1680, 660}, "0", 26)};
Widget lbl_tinj{title("lbl_tinj", Form1, {1860, 330, 1680, 240}, "TINJ  µs")};
Widget Label_tinj{figure("Label_tinj", Form1, {1860, 570, 1680, 660}, "0", 26)};
Widget lbl_press{title("lbl_press", Form1, {3600, 330, 1680, 240}, "PRESS  mbar")};
Widget LabeL_pressure{figure("LabeL_pressure", Form1, {3600, 570, 1680, 660}, "0", 26)};
Widget lbl_temp{title("lbl_temp", Form1, {120, 1290, 1680, 240}, "TEMP  °C")};
Widget Label_temp{figure("Label_temp", Form1, {120, 1530, 1680, 660}, "0", 26)};
Widget lbl_lambda{title("lbl_lambda", Form1, {1860, 1290, 1680, 240}, "LAMBDA")};
Widget Label_lambda{figure("Label_lambda", Form1, {1860, 1530, 1680, 660}, "0", 26)};
Widget Label22{
    caption("Label22", Form1, {3600, 1290, 1680, 240}, "TANK  mV").aligned(Align::centre)};
Widget label_liv2{figure("label_liv2", Form1, {3600, 1530, 1680, 660}, "0", 26)};
Widget Picture1{
    control(Kind::picture, "Picture1", Form1, {5400, 120, 4620, 1440}).colours(slate, cream)};
Widget Shape2{
    control(Kind::shape, "Shape2", Form1, {5400, 1740, 300, 300}).colours(view::dark_red)};
Widget Label_carburante{figure("Label_carburante", Form1, {5760, 1620, 1980, 570}, "--", 12)};
Widget Label20{figure("Label20", Form1, {7800, 1620, 2220, 570}, "", 11).hidden()};

// Panel buttons.
Widget Command_engine{
    button("Command_engine", Form1, {120, 2280, 1500, 540}, "MOTORE").opens(frame_engine)};
Widget Command_impostazioni{
    button("Command_impostazioni", Form1, {1680, 2280, 1500, 540}, "IMPOSTAZIONI")
        .opens(Frame_impostazioni)};
Widget Command_lambda{
    button("Command_lambda", Form1, {3240, 2280, 1500, 540}, "LAMBDA").opens(Frame_Lambda)};
Widget Command_diagnosi{
    button("Command_diagnosi", Form1, {4800, 2280, 1500, 540}, "DIAGNOSI").opens(Frame_diagnosi)};
Widget Command5{button("Command5", Form1, {6360, 2280, 1500, 540}, "TINJ MAX.")};
Widget Command_exit{button("Command_exit", Form1, {7920, 2280, 1500, 540}, "EXIT")};
Widget ShockwaveFlash1{control(Kind::movie, "ShockwaveFlash1", Form1, {9480, 2280, 540, 540})};

// Engine panel.
Widget frame_engine{group("frame_engine", Form1, panel, "MOTORE")};
Widget frame_TARATURA{group("frame_TARATURA", frame_engine, {120, 300, 6720, 3840}, "TARATURA")};
Widget Label45{caption("Label45", frame_TARATURA, {120, 360, 1740, 360}, "NORMAL").font(12, true)};
Widget Label27{figure("Label27", frame_TARATURA, {1920, 300, 1200, 480}, "1200", 18)};
Widget Command8{button("Command8", frame_TARATURA, {3300, 300, 780, 480}, "-100")};
Widget Command7{button("Command7", frame_TARATURA, {4140, 300, 780, 480}, "+100")};
Widget Slider_ktar{gain_slider("Slider_ktar", {120, 840, 4800, 540})};
Widget Label46{caption("Label46", frame_TARATURA, {120, 1560, 1740, 360}, "POWER").font(12, true)};
Widget Label44{figure("Label44", frame_TARATURA, {1920, 1500, 1200, 480}, "1200", 18)};
Widget Slider_power{gain_slider("Slider_power", {120, 2040, 4800, 540})};
Widget Label24{caption("Label24", frame_TARATURA, {5040, 300, 1620, 240}, "ATTENUATION")
                   .aligned(Align::centre)};
Widget Label_attenuazione{
    caption("Label_attenuazione", frame_TARATURA, {5100, 600, 1500, 420}, "0- ")
        .font(16, true)
        .aligned(Align::centre)};
Widget Label25{caption("Label25", frame_TARATURA, {6120, 1065, 420, 240}, "0")};
Widget Slider_attenuazione{slider("Slider_attenuazione", frame_TARATURA, {5670, 1080, 420, 2640})
                               .range(0, 150)
                               .steps(10, 10, 10)
                               .upright()
                               .runs_change_on_assignment()};
Widget Label26{caption("Label26", frame_TARATURA, {6120, 3495, 420, 240}, "150")};
Widget Label12{caption("Label12", frame_TARATURA, {120, 2760, 2100, 240}, "RPM MULTIPLIER")};
Widget Command_rpm_meno{
    button("Command_rpm_meno", frame_TARATURA, {2340, 2640, 1260, 480}, "RPM -")};
Widget Command_rpm_piu{button("Command_rpm_piu", frame_TARATURA, {3660, 2640, 1260, 480}, "RPM +")};
Widget lbl_ktar{caption("lbl_ktar", frame_TARATURA, {120, 3180, 1200, 240}, "KTAR")};
Widget Label_ktar{reading("Label_ktar", frame_TARATURA, {120, 3420, 1200, 360}, "0", 14)};
Widget Label28{caption("Label28", frame_TARATURA, {1500, 3180, 1680, 240}, "Press.Tar.")};
Widget Label_pressione_taratura{
    reading("Label_pressione_taratura", frame_TARATURA, {1500, 3420, 1200, 360}, "0", 14)};
Widget Label39{caption("Label39", frame_TARATURA, {2760, 3480, 600, 240}, "mbar")};
Widget lbl_ct{caption("lbl_ct", frame_TARATURA, {3420, 3180, 1500, 240}, "CT").hidden()};
Widget Label_ct{reading("Label_ct", frame_TARATURA, {3420, 3420, 1200, 360}, "0", 14).hidden()};
Widget Label18{caption("Label18", frame_engine, {6960, 300, 2820, 300}, "EOBD").font(10, true)};
Widget Label1{figure("Label1", frame_engine, {6960, 660, 2820, 600}, "--", 13)};
Widget Label16{title("Label16", frame_engine, {6960, 1320, 1380, 240}, "FAST")};
Widget Label13{figure("Label13", frame_engine, {6960, 1560, 1380, 660}, "--", 14)};
Widget Label19{title("Label19", frame_engine, {8400, 1320, 1380, 240}, "LONG")};
Widget Label14{figure("Label14", frame_engine, {8400, 1560, 1380, 660}, "--", 14)};
Widget Label43{title("Label43", frame_engine, {6960, 2280, 1380, 240}, "LAMBDA")};
Widget Label42{figure("Label42", frame_engine, {6960, 2520, 1380, 660}, "--", 14)};
Widget Label48{title("Label48", frame_engine, {8400, 2280, 1380, 240}, "CAN VISUAL ")};
Widget Label49{figure("Label49", frame_engine, {8400, 2520, 1380, 660}, "--", 14)};
Widget Command31{button("Command31", frame_engine, {6960, 3660, 2820, 480}, "START READING")};

// Settings panel.
Widget Frame_impostazioni{group("Frame_impostazioni", Form1, panel, "IMPOSTAZIONI").hidden()};
Widget Frame_tank{
    group("Frame_tank", Frame_impostazioni, {120, 300, 5400, 3840}, "Gestione Serbatoio")
        .drawn(gauge_scale())};
Widget Combo_tank_level{
    control(Kind::combo_box, "Combo_tank_level", Frame_tank, {120, 300, 2520, 330})
        .colours(view::white, ink)};
Widget Check1{
    control(Kind::check_box, "Check1", Frame_tank, {2820, 300, 2460, 300}, "Configurazione Manuale")
        .colours(paper, ink)};
WidgetArray Slider1(0, 4, -1, gauge_slider);
WidgetArray Shape1(0, 4, -1, gauge_lamp);
Widget Label11{caption("Label11", Frame_tank, gauge_lower_bound(4), "--").aligned(Align::right)};
Widget Label10{caption("Label10", Frame_tank, gauge_lower_bound(3), "--").aligned(Align::right)};
Widget Label9{caption("Label9", Frame_tank, gauge_lower_bound(2), "--").aligned(Align::right)};
Widget Label8{caption("Label8", Frame_tank, gauge_lower_bound(1), "--").aligned(Align::right)};
Widget Label7{caption("Label7", Frame_tank, gauge_lower_bound(0), "0").aligned(Align::right)};
Widget Label_led4{caption("Label_led4", Frame_tank, gauge_upper_bound(4), "100%")};
Widget Label_led3{caption("Label_led3", Frame_tank, gauge_upper_bound(3), "--")};
Widget Label_led2{caption("Label_led2", Frame_tank, gauge_upper_bound(2), "--")};
Widget Label_led1{caption("Label_led1", Frame_tank, gauge_upper_bound(1), "--")};
Widget Label_led0{caption("Label_led0", Frame_tank, gauge_upper_bound(0), "--")};
Widget lbl_200{caption("lbl_200", Frame_tank, gauge_voltage(5), "--").aligned(Align::right)};
Widget lbl_201{caption("lbl_201", Frame_tank, gauge_voltage(4), "--").aligned(Align::right)};
Widget lbl_202{caption("lbl_202", Frame_tank, gauge_voltage(3), "--").aligned(Align::right)};
Widget lbl_203{caption("lbl_203", Frame_tank, gauge_voltage(2), "--").aligned(Align::right)};
Widget lbl_204{caption("lbl_204", Frame_tank, gauge_voltage(1), "--").aligned(Align::right)};
Widget lbl_205{caption("lbl_205", Frame_tank, gauge_voltage(0), "--").aligned(Align::right)};
Widget Label3{caption("Label3", Frame_tank, {4860, 660, 360, 240}, "mV")};
Widget Label6{caption("Label6", Frame_tank, {120, 3060, 600, 240}, "MIN.").aligned(Align::right)};
Widget Text_min_tank{entry("Text_min_tank", Frame_tank, {780, 3000, 960, 360})};
Widget lbl205{caption("lbl205", Frame_tank, {1800, 3060, 420, 240}, "mV")};
Widget Label5{caption("Label5", Frame_tank, {2280, 3060, 600, 240}, "MAX.").aligned(Align::right)};
Widget Text_max_tank{entry("Text_max_tank", Frame_tank, {2940, 3000, 960, 360})};
Widget lbl204{caption("lbl204", Frame_tank, {3960, 3060, 420, 240}, "mV")};
Widget Label_livello_att{
    caption("Label_livello_att", Frame_tank, {120, 3480, 2700, 240}, "Livello attuale")
        .aligned(Align::right)};
Widget Label_level_attuale{
    reading("Label_level_attuale", Frame_tank, {2940, 3420, 960, 360}, "0", 12)};
Widget Label38{caption("Label38", Frame_tank, {3960, 3480, 420, 240}, "mV")};
Widget Frame_carburante{
    group("Frame_carburante", Frame_impostazioni, {5640, 300, 2040, 1020}, "Carburante")};
Widget Option_gpl{pointed_option("Option_gpl", Frame_carburante, first_line, "GPL")};
Widget Option_metano{pointed_option("Option_metano", Frame_carburante, second_line, "METANO")};
Widget Frame_pressione{
    group("Frame_pressione", Frame_impostazioni, {7740, 300, 2040, 1020}, "Sensore Pressione")};
Widget Option_press_yes{pointed_option("Option_press_yes", Frame_pressione, first_line, "YES")};
Widget Option_press_no{pointed_option("Option_press_no", Frame_pressione, second_line, "NO")};
Widget Frame_temperatura{
    group("Frame_temperatura", Frame_impostazioni, {5640, 1380, 2040, 780}, "Temp. Comm.")};
Widget text_temp_comm{entry("text_temp_comm", Frame_temperatura, {180, 300, 900, 360})};
Widget Label2{caption("Label2", Frame_temperatura, {1140, 360, 480, 240}, "°C")};
Widget Frame_tempo{
    group("Frame_tempo", Frame_impostazioni, {7740, 1380, 2040, 780}, "Tempo Comm.")};
Widget Text_time_comm{entry("Text_time_comm", Frame_tempo, {180, 300, 900, 360})};
Widget Label4{caption("Label4", Frame_tempo, {1140, 360, 480, 240}, "sec.")};
Widget Frame2{group("Frame2", Frame_impostazioni, {5640, 2220, 2040, 1020}, "MOD COMM").hidden()};
Widget Opt_modulare_yes{pointed_option("Opt_modulare_yes", Frame2, first_line, "yes")};
Widget Opt_modulare_no{pointed_option("Opt_modulare_no", Frame2, second_line, "no")};
Widget Frame1{
    group("Frame1", Frame_impostazioni, {7740, 2220, 2040, 1920}, "Correzione Temperatura")};
Widget lbl_low{caption("lbl_low", Frame1, {1110, 285, 480, 240}, "0")};
Widget Slider3{slider("Slider3", Frame1, {660, 300, 420, 1500})
                   .range(0, 10)
                   .steps(1, 1, 1)
                   .upright()
                   .runs_change_on_assignment()};
Widget Lbl_fast{caption("Lbl_fast", Frame1, {1110, 1575, 480, 240}, "10")};
Widget Command303{
    button("Command303", Frame_impostazioni, {5640, 3300, 2040, 840}, "COMMUTAZIONE..")};

// Lambda panel.
Widget Frame_Lambda{group("Frame_Lambda", Form1, panel, "LAMBDA CONTROL").hidden()};
Widget frame_type_lambd{
    group("frame_type_lambd", Frame_Lambda, {120, 300, 3060, 1020}, "Tipo Lambda")};
Widget lambda_dir{option("lambda_dir", frame_type_lambd, {180, 300, 2760, 300}, "Lambda Diritta")};
Widget lambda_inv{
    option("lambda_inv", frame_type_lambd, {180, 660, 2760, 300}, "Lambda Invertita")};
Widget Frame_abilita_controllo_lambda{group("Frame_abilita_controllo_lambda", Frame_Lambda,
                                            {3240, 300, 3480, 1020}, "Lambda control")};
Widget Option_abi_controllo_lambda{option("Option_abi_controllo_lambda",
                                          Frame_abilita_controllo_lambda, {180, 300, 3180, 300},
                                          "Abilita Controllo lambda")};
Widget Option_disa_controllo_lambda{option("Option_disa_controllo_lambda",
                                           Frame_abilita_controllo_lambda, {180, 660, 3180, 300},
                                           "Disabilita Controllo lambda")};
Widget Frame_L_C_T{
    group("Frame_L_C_T", Frame_Lambda, {6780, 300, 3000, 1020}, "Lambda Tens / Current")};
Widget Option_tens{option("Option_tens", Frame_L_C_T, {180, 300, 2700, 300}, "Lambda Tensione")};
Widget Option_corr{option("Option_corr", Frame_L_C_T, {180, 660, 2700, 300}, "Lambda Corrente")};
Widget Label_medio_closed_loop{caption("Label_medio_closed_loop", Frame_Lambda,
                                       {300, 1620, 3060, 240}, "Valore MAX Lambda Closed Loop")};
Widget Text_lambda_closed_loop{
    entry("Text_lambda_closed_loop", Frame_Lambda, {3420, 1560, 1060, 360})};
Widget Label_lambda_open_loop{caption("Label_lambda_open_loop", Frame_Lambda,
                                      {300, 2160, 3060, 240}, "Valore MAX Lambda Open Loop")};
Widget Text_lambda_open_loop{entry("Text_lambda_open_loop", Frame_Lambda, {3420, 2100, 1060, 360})};
Widget Label32{caption("Label32", Frame_Lambda, {300, 2880, 3060, 240}, "SCALE")};
Widget Command_meno{
    button("Command_meno", Frame_Lambda, {3420, 2760, 1060, 480}, "-").font(12, true)};
Widget Label35{reading("Label35", Frame_Lambda, {4540, 2760, 1060, 480}, "1", 14)};
Widget Command_piu{
    button("Command_piu", Frame_Lambda, {5660, 2760, 1060, 480}, "+").font(12, true)};
Widget Label31{
    caption("Label31", Frame_Lambda, {6780, 1500, 3000, 240}, "LAMBDA").aligned(Align::centre)};
Widget label_lambda_2{figure("label_lambda_2", Frame_Lambda, {6780, 1740, 3000, 1080}, "0", 36)};
Widget Label29{
    caption("Label29", Frame_Lambda, {6780, 2940, 3000, 240}, "STATE").aligned(Align::centre)};
Widget Label_stato{reading("Label_stato", Frame_Lambda, {6780, 3180, 3000, 600}, "0", 18)};

// Diagnosis panel.
Widget Frame_diagnosi{group("Frame_diagnosi", Form1, panel, "DIAGNOSIS").hidden()};
Widget cmd_richiesta_par_diagnosi{button("cmd_richiesta_par_diagnosi", Frame_diagnosi,
                                         {120, 300, 3900, 540}, "Richiesta Parametri Diagnosi")};
Widget Command10{
    button("Command10", Frame_diagnosi, {120, 900, 3900, 540}, "Cancella ERRORI SISTEMA")};
Widget Label21{caption("Label21", Frame_diagnosi, {120, 1590, 2640, 240}, "Number of faults")};
Widget lbl_num_errori{reading("lbl_num_errori", Frame_diagnosi, {2880, 1500, 1140, 420}, "0", 14)};
Widget Label23{caption("Label23", Frame_diagnosi, {120, 1980, 3900, 240}, "EOBD codes")};
Widget lbl_par_1{fault_code("lbl_par_1", 120, 2280)};
Widget lbl_par_2{fault_code("lbl_par_2", 2100, 2280)};
Widget lbl_par_3{fault_code("lbl_par_3", 120, 2880)};
Widget lbl_par_4{fault_code("lbl_par_4", 2100, 2880)};
Widget lbl_par_5{fault_code("lbl_par_5", 120, 3480)};
Widget lbl_par_6{fault_code("lbl_par_6", 2100, 3480)};
Widget Label33{caption("Label33", Frame_diagnosi, {4200, 300, 5580, 300}, "Descrizione Codice EOBD")
                   .font(10, true)};
Widget Text_note_error{entry("Text_note_error", Frame_diagnosi, {4200, 660, 5580, 3360})};

// Bottom of the window.
Widget lbl_tuning{control(Kind::label, "lbl_tuning", Form1, {120, 7200, 4800, 360})
                      .colours(straw, ink)
                      .font(12, true)
                      .aligned(Align::centre)
                      .hidden()};
Widget Command1{button("Command1", Form1, {5040, 7200, 1020, 360}, "START").hidden()};
Widget Command2{button("Command2", Form1, {6120, 7200, 1020, 360}, "STOP").hidden()};
Widget Command_hyperterminal{
    button("Command_hyperterminal", Form1, {7200, 7200, 1020, 360}, "Hypert.").hidden()};
Widget Command_scarico{
    button("Command_scarico", Form1, {8280, 7200, 1020, 360}, "SCARICO").hidden()};
Widget Label_sfondo{reading("Label_sfondo", Form1, {9360, 7200, 660, 360}, "0", 8.25).hidden()};
Widget lbl_min{caption("lbl_min", Form1, {120, 7650, 1260, 240}, "SERVICE").hidden()};
Widget lbl_ore{caption("lbl_ore", Form1, {1440, 7650, 8580, 240}, "").fore(graphite).hidden()};

// One pixel each: they only hold the keyboard focus.
Widget Text2{control(Kind::text_box, "Text2", Form1, {10065, 60, 15, 15})
                 .colours(paper, paper)
                 .no_tab_stop()};
Widget cmd_focus{control(Kind::command_button, "cmd_focus", Form1, {10065, 120, 15, 15})
                     .colours(steel, ink)
                     .no_tab_stop()};

view::Timer Timer_stato_sistema(Form1, "Timer_stato_sistema", 50);
view::Timer Timer_chiusura_stato(Form1, "Timer_chiusura_stato", 200);
view::Timer Timer1(Form1, "Timer1", 3000);
view::Timer Timer2(Form1, "Timer2", 0);
view::Timer Timer3(Form1, "Timer3", 100);
view::Timer Timer4(Form1, "Timer4", 2000, true);
view::Timer Timer5(Form1, "Timer5", 2000, true);
view::Timer Timer6(Form1, "Timer6", 500);
view::Timer Timer_rpm(Form1, "Timer_rpm", 300);

} // namespace zol::form1

#include "maintenance/parameter_dump.h"

#include "app/application_folder.h"
#include "app/numbers.h"
#include "app/whole_file.h"
#include "link/parameter_catalogue.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::maintenance {
namespace {

using link::Command;
using link::Parameter;
using link::parameter;
using link::wait_ms;
using view::Pointer;
namespace par = link::par;

struct Line {
    const Parameter& parameter;
    const char* label;
};

// In the order of the words. The labels must not change, blanks included: other programs read these
// files. \xE0 is a with grave accent in Latin-1.
constexpr Line lines[] = {
    {parameter(par::rpm_multiplier), "   moltiplicatore giri (x1/10) "},
    {parameter(par::ktar_low), " KT inferiore (x1/1000) "},
    {parameter(par::ktar_high), " KT superiore (x1/1000)"},
    {parameter(par::tinj_lower), " tempo iniezione inferiore (us) "},
    {parameter(par::tinj_upper), "tempo iniezione superiore (us) "},
    {parameter(par::fuel_type), "    tipo carburante (1 GPL / 0 METANO) "},
    {parameter(par::changeover_temperature), "   temperatura partenza (C) "},
    {parameter(par::tank_min_mv), "  livello serbatoio inferiore (mV) "},
    {parameter(par::tank_max_mv), " livello serbatoio superiore (mV) "},
    {parameter(par::tank_threshold_1), "   livello riserva (%) "},
    {parameter(par::tank_threshold_2), "   livello 1/4 (%) "},
    {parameter(par::tank_threshold_3), "   livello 2/4 (%) "},
    {parameter(par::tank_threshold_4), "   livello 3/4 (%) "},
    {parameter(par::pressure_sensor), "    sensore pressione (1 si / 0 no) "},
    {parameter(par::calibration_temperature), "   temperatura taratura (C) "},
    {parameter(par::temperature_correction), "    coeff. corr. temperatura (x1/1000/C) "},
    {parameter(par::air_conditioning_delay), "    ritardo clima da cutoff (ms) "},
    {parameter(par::simulated_changeover_delay), "  Ritardo Commutazione Finta "},
    {parameter(par::attenuation), "  molt. correttore delta (x1/10) "},
    {parameter(par::start_distance_change), "  variaz. dist. in avv. (%) "},
    {parameter(par::main_pulse_change), "  variaz. durata imp. princ. (%) "},
    {parameter(par::calibration_pressure), "pressione GAS (mbar) "},
    {parameter(par::auto_changeover), "   commutazione automatica (1 attivata / 0 disattivata) "},
    {parameter(par::low_pressure_delay), "ritardo comm. press. insuff. (ms) "},
    {parameter(par::injector_latency), " latenza iniettore (us) "},
    {parameter(par::changeover_time), " tempo commutazione iniziale (sec) "},
    {parameter(par::emergency_start_pulses), "  numero impulsi partenza emergenza "},
    {parameter(par::changeover_rpm), "  soglia giri comm. (ms)"},
    {parameter(par::forced_start_mode), "  partenza forzata (1 si / 0 no / 3 ACCELERAZIONE)"},
    {parameter(par::cut_off_inj_time), "  Tempo Fittizio Iniezione. (ms)"},
    {parameter(par::cut_off_rpm), "  Inizio Giri cut-off per tempo iniezione fittizio"},
    {parameter(par::coil_signal_filter), "  Filtro per le impurit\xE0 nel seglale bobina(us)"},
    {parameter(par::coil_signal_direction), "  0 bobina verso il basso / 1 bobina verso l'alto"},
    {parameter(par::warm_up_pulses), "    Durata max. impulsi di warm-up pre-riscaldamento"},
    {parameter(par::reference_inj_threshold), "  soglia iniezione di riferimento inferiore (us)"},
    {parameter(par::reference_ktar), "    Valore KTAR riferimento Par 128 (x1/1000)"},
    {parameter(par::tank_sensor_par), "    tipo tank"},
    {parameter(par::eobd_correction), "    Fattore di correzzione delta KTAR EOBD (%)"},
    {parameter(par::eobd_period), "    Periodo di Polling EOBD DIAGNOSI (sec/10)"},
    {parameter(par::eobd_direction), "    Fattore Inversione KTAR EOBD (0 diritto - 1 invertito)"},
    {parameter(par::eobd_protocol), "    TIPO PROTOCOLLO EOBD"},
    {parameter(par::fuel_offset), "    Fuel offset EOBD 100 = 0"},
    {parameter(par::fault_1), "    EOBD ERROR 1"},
    {parameter(par::fault_2), "    EOBD ERROR 2"},
    {parameter(par::fault_3), "    EOBD ERROR 3"},
    {parameter(par::fault_4), "    EOBD ERROR 4"},
    {parameter(par::fault_5), "    EOBD ERROR 5"},
    {parameter(par::fault_6), "    EOBD ERROR 6"},
    {parameter(par::fault_count), "    Numero Errori EOBD Presenti"},
    {parameter(par::ktar_low_copy), "    KTAR INFERIORE FISSO COPIA PAR_3"},
    {parameter(par::fault_clearing),
     "    Cancellazione ERRORI EOBD AUTOM. (0 NON ATTIVA - 1 ATTIVA)"},
};

// Numbers of one digit get a blank more. The last line repeats the number of the line before it, as
// in all existing files.
std::string prefix(const Parameter& named) {
    const int number = named.number == par::fault_clearing ? par::ktar_low_copy : named.number;
    return "Par " + std::to_string(number) + (number < 10 ? "  = " : " = ");
}

link::Reply image_of_unit() {
    for (;;) {
        wait_ms(link::telegram_end_ms);
        link::send_command(Command::read_image);
        wait_ms(1400);
        const link::Reply image = link::read_reply();
        if (image.echoes(Command::read_image)) return image;
    }
}

constexpr const char* edit_title = "Modifica Parametro";

} // namespace

std::string dump_text(const link::Reply& image) {
    std::string text;
    for (const Line& line : lines) {
        const auto word = image.word(line.parameter.positions.eobd);
        if (!word) break;
        text += prefix(line.parameter) + std::to_string(*word) + "  " + line.label + "\n";
    }
    return text;
}

void dump_parameters() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling();
    if (form1::Timer_stato_sistema.is_on()) monitor::stop_polling();
    const std::string text = dump_text(image_of_unit());
    app::replace_file(app::application_file("\\log\\setting.txt"), text);
    view::set_pointer(form1::Form1, Pointer::normal);
}

void edit_parameter() {
    view::set_pointer(form1::Form1, Pointer::hourglass);
    monitor::stop_polling();
    const double number =
        app::val(view::input_box("Digita il Parametro da Modificare", edit_title));
    const double value = app::val(view::input_box(
        "Inserisci il valore da assegnare al Parametro : " + app::number_text(number), edit_title));
    link::write_parameter(number, value);
    wait_ms(link::send_settle_ms);
    view::set_pointer(form1::Form1, Pointer::normal);
}

void connect_parameter_dump() { form1::mnu_dump_parametri.on.click = dump_parameters; }

} // namespace zol::maintenance

#include "maintenance/parameter_dump.h"

#include "app/application_folder.h"
#include "app/numbers.h"
#include "app/whole_file.h"
#include "monitor/polling.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::maintenance {
namespace {

using link::Command;
using link::wait_ms;
using view::Pointer;

struct Line {
    const char* prefix;
    const char* label;
};

constexpr std::size_t first_word_position = 6;

// For each word from the first one on. Letters, blanks and the number that stands twice at the end
// are what readers of old files know; \xE0 is the a grave of one-byte text.
constexpr Line lines[] = {
    {"Par 1  = ", "   moltiplicatore giri (x1/10) "},
    {"Par 3  = ", " KT inferiore (x1/1000) "},
    {"Par 4  = ", " KT superiore (x1/1000)"},
    {"Par 5  = ", " tempo iniezione inferiore (us) "},
    {"Par 6  = ", "tempo iniezione superiore (us) "},
    {"Par 10 = ", "    tipo carburante (1 GPL / 0 METANO) "},
    {"Par 15 = ", "   temperatura partenza (C) "},
    {"Par 30 = ", "  livello serbatoio inferiore (mV) "},
    {"Par 31 = ", " livello serbatoio superiore (mV) "},
    {"Par 32 = ", "   livello riserva (%) "},
    {"Par 33 = ", "   livello 1/4 (%) "},
    {"Par 34 = ", "   livello 2/4 (%) "},
    {"Par 35 = ", "   livello 3/4 (%) "},
    {"Par 50 = ", "    sensore pressione (1 si / 0 no) "},
    {"Par 51 = ", "   temperatura taratura (C) "},
    {"Par 52 = ", "    coeff. corr. temperatura (x1/1000/C) "},
    {"Par 60 = ", "    ritardo clima da cutoff (ms) "},
    {"Par 61 = ", "  Ritardo Commutazione Finta "},
    {"Par 101 = ", "  molt. correttore delta (x1/10) "},
    {"Par 102 = ", "  variaz. dist. in avv. (%) "},
    {"Par 103 = ", "  variaz. durata imp. princ. (%) "},
    {"Par 104 = ", "pressione GAS (mbar) "},
    {"Par 105 = ", "   commutazione automatica (1 attivata / 0 disattivata) "},
    {"Par 106 = ", "ritardo comm. press. insuff. (ms) "},
    {"Par 107 = ", " latenza iniettore (us) "},
    {"Par 110 = ", " tempo commutazione iniziale (sec) "},
    {"Par 120 = ", "  numero impulsi partenza emergenza "},
    {"Par 121 = ", "  soglia giri comm. (ms)"},
    {"Par 122 = ", "  partenza forzata (1 si / 0 no / 3 ACCELERAZIONE)"},
    {"Par 123 = ", "  Tempo Fittizio Iniezione. (ms)"},
    {"Par 124 = ", "  Inizio Giri cut-off per tempo iniezione fittizio"},
    {"Par 125 = ", "  Filtro per le impurit\xE0 nel seglale bobina(us)"},
    {"Par 126 = ", "  0 bobina verso il basso / 1 bobina verso l'alto"},
    {"Par 127 = ", "    Durata max. impulsi di warm-up pre-riscaldamento"},
    {"Par 128 = ", "  soglia iniezione di riferimento inferiore (us)"},
    {"Par 129 = ", "    Valore KTAR riferimento Par 128 (x1/1000)"},
    {"Par 130 = ", "    tipo tank"},
    {"Par 140 = ", "    Fattore di correzzione delta KTAR EOBD (%)"},
    {"Par 141 = ", "    Periodo di Polling EOBD DIAGNOSI (sec/10)"},
    {"Par 142 = ", "    Fattore Inversione KTAR EOBD (0 diritto - 1 invertito)"},
    {"Par 143 = ", "    TIPO PROTOCOLLO EOBD"},
    {"Par 144 = ", "    Fuel offset EOBD 100 = 0"},
    {"Par 145 = ", "    EOBD ERROR 1"},
    {"Par 146 = ", "    EOBD ERROR 2"},
    {"Par 147 = ", "    EOBD ERROR 3"},
    {"Par 148 = ", "    EOBD ERROR 4"},
    {"Par 149 = ", "    EOBD ERROR 5"},
    {"Par 150 = ", "    EOBD ERROR 6"},
    {"Par 151 = ", "    Numero Errori EOBD Presenti"},
    {"Par 152 = ", "    KTAR INFERIORE FISSO COPIA PAR_3"},
    {"Par 152 = ", "    Cancellazione ERRORI EOBD AUTOM. (0 NON ATTIVA - 1 ATTIVA)"},
};

link::Reply image_of_unit() {
    for (;;) {
        wait_ms(400);
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
    std::size_t position = first_word_position;
    for (const Line& line : lines) {
        const auto word = image.word(position);
        if (!word) break;
        text += line.prefix + std::to_string(*word) + "  " + line.label + "\n";
        position += 2;
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
    wait_ms(400);
    view::set_pointer(form1::Form1, Pointer::normal);
}

void connect_parameter_dump() { form1::mnu_dump_parametri.on.click = dump_parameters; }

} // namespace zol::maintenance

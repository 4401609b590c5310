#include "logbook/words.h"

#include "app/numbers.h"
#include "link/parameter_catalogue.h"
#include "link/telegram_positions.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace zol::logbook {
namespace {

using At = link::TelegramPosition;
using LiveAt = link::LiveDataPosition;
using link::Command;

const link::Parameter* row_of(int number) {
    const auto& rows = link::parameter_catalogue;
    const auto row = std::find_if(std::begin(rows), std::end(rows),
                                  [&](const auto& one) { return one.number == number; });
    return row == std::end(rows) ? nullptr : &*row;
}

// "0, 1", "0-5, 99": the values themselves, which the meaning explains.
bool lists_values(std::string_view unit) {
    return unit.find_first_not_of("0123456789,- ") == unit.npos;
}

bool is_scale(std::string_view unit) {
    return unit.find('/') != unit.npos || (!unit.empty() && unit[0] >= '0' && unit[0] <= '9');
}

struct CommandName {
    Command command;
    const char* name;
};
constexpr std::array<CommandName, 12> command_names = {
    {{Command::read_image, "image"},
     {Command::write_parameter, "write"},
     {Command::status, "status"},
     {Command::to_petrol, "over to petrol"},
     {Command::reset, "reset"},
     {Command::presence, "presence test"},
     {Command::version, "version"},
     {Command::eobd_faults, "faults"},
     {Command::eobd_live, "live data"},
     {Command::terminal, "hand-over to a terminal"},
     {Command::download, "hand-over for a download"},
     {Command::to_gas, "over to gas"}}};

struct StatusField {
    Field field;
    std::size_t position;
};
constexpr std::array<StatusField, 10> status_table = {
    {{{"Engine speed", "rpm"}, At::rpm},
     {{"Injection time", "µs"}, At::injection_time},
     {{"Gas pressure", "mbar"}, At::pressure},
     {{"Lambda signal", "mV"}, At::lambda},
     {{"Gain in use", "1/1000"}, At::ktar},
     {{"Temperature", "°C"}, At::temperature},
     {{"State number", ""}, At::state_number},
     {{"Tank sender", "mV"}, At::tank},
     {{"Fuel", ""}, At::fuel_state},
     {{"Battery", "V"}, At::battery}}};

constexpr std::array<Field, 10> status_names = [] {
    std::array<Field, 10> names{};
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = status_table[i].field;
    return names;
}();

constexpr std::array<Field, 5> live_names = {{{"Loop", ""},
                                              {"Fast trim", "%"},
                                              {"Long trim", "%"},
                                              {"CAN VISUAL", ""},
                                              {"Lambda (diagnosis)", "mV"}}};

std::string decimal(double number, char point) {
    std::string text = app::number_text(app::round_half_even(number, 2));
    std::replace(text.begin(), text.end(), '.', point);
    return text;
}

std::string fuel_text(int state) {
    switch (state) {
    case 0: return "petrol";
    case 1: return "gas";
    case 2: return "gas requested";
    case 5: return "no pressure";
    default: return "changeover " + std::to_string(state);
    }
}

std::string loop_text(int state) {
    switch (state) {
    case 0: return "open";
    case 2: return "closed";
    case 4: return "open, transient";
    case 255: return "connection lost";
    default: return std::to_string(state);
    }
}

std::string fields_text(std::span<const Field> fields, const std::vector<std::string>& values) {
    std::string all;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (values[i].empty()) continue;
        all += (all.empty() ? ": " : ", ") + std::string(fields[i].name) + " " + values[i];
        if (fields[i].unit[0] != 0) all += std::string(" ") + fields[i].unit;
    }
    return all;
}

// A fault is two bytes of two decimal digits each: 3 and 1 is P0301.
std::string faults_text(const link::Reply& reply) {
    std::string all = ": " + std::to_string(reply.word(18).value_or(0)) + " stored";
    for (std::size_t at = 6; at <= 16; at += 2) {
        const int fault = reply.byte(at).value_or(0) * 100 + reply.byte(at + 1).value_or(0);
        char code[16];
        std::snprintf(code, sizeof code, ", P%04d", fault);
        if (fault != 0) all += code;
    }
    return all;
}

} // namespace

std::string parameter_name(int number) {
    if (const link::Parameter* row = row_of(number)) return row->meaning;
    for (const link::CellRun& run : link::correction_cell_runs)
        if (number >= run.first && number <= run.last)
            return "Correction cell " + std::to_string(number);
    return "Parameter " + std::to_string(number);
}

std::string parameter_unit(int number) {
    const link::Parameter* row = row_of(number);
    return !row || lists_values(row->unit) ? "" : row->unit;
}

std::string value_text(int number, int value) {
    const std::string unit = parameter_unit(number);
    if (unit.empty()) return std::to_string(value);
    return std::to_string(value) + (is_scale(unit) ? " (" + unit + ")" : " " + unit);
}

std::string write_text(const Decoded& write) {
    const auto& [command, number, value] = write.request;
    const std::string before =
        write.old_value ? " " + std::to_string(*write.old_value) + " → " : " set to ";
    return parameter_name(number) + before + value_text(number, value);
}

std::string command_name(int command) {
    for (const CommandName& one : command_names)
        if (static_cast<int>(one.command) == command) return one.name;
    return "command " + std::to_string(command);
}

std::span<const Field> status_fields() { return status_names; }
std::span<const Field> live_fields() { return live_names; }

std::vector<std::string> status_values(const link::Reply& reply, char point) {
    std::vector<std::string> values;
    for (const StatusField& one : status_table) {
        const auto word = reply.word(one.position);
        if (!word)
            values.emplace_back();
        else if (one.position == At::fuel_state)
            values.push_back(fuel_text(*word));
        else if (one.position == At::battery)
            values.push_back(decimal(link::battery_volts(*word), point));
        else
            values.push_back(std::to_string(*word));
    }
    return values;
}

std::vector<std::string> live_values(const link::Reply& reply, char point) {
    std::vector<std::string> values(live_names.size());
    if (reply.length() < link::live_data_length) return values;
    const int fast = *reply.byte(LiveAt::fast_trim), slow = *reply.byte(LiveAt::long_trim);
    if (fast == link::no_trim) {
        values[0] = "connection lost";
        return values;
    }
    if (fast == 0 && slow == 0) {
        values[0] = "connecting";
        return values;
    }
    values[0] = loop_text(*reply.byte(LiveAt::loop_state));
    values[1] = decimal(link::trim_percent(fast), point);
    values[2] = decimal(link::trim_percent(slow), point);
    values[3] = std::to_string(*reply.word(LiveAt::can_visual));
    values[4] = std::to_string(*reply.word(LiveAt::lambda));
    return values;
}

std::string reply_text(const Decoded& answer) {
    const std::string name = command_name(answer.request.command);
    switch (static_cast<Command>(answer.request.command)) {
    case Command::status: return name + fields_text(status_fields(), status_values(answer.reply));
    case Command::eobd_live: return name + fields_text(live_fields(), live_values(answer.reply));
    case Command::version: return name + ": " + version_text(version_of(answer.reply));
    case Command::eobd_faults: return name + faults_text(answer.reply);
    default: return name + ": " + std::to_string(answer.reply.length()) + " bytes";
    }
}

std::string time_text(std::int64_t at_us) {
    char text[40];
    std::snprintf(text, sizeof text, "%10.3f", static_cast<double>(at_us) / 1e6);
    return text;
}

} // namespace zol::logbook

#include "simulator/console.h"

#include "simulator/control_unit.h"
#include "simulator/report.h"
#include "simulator/words.h"

#include <cmath>
#include <vector>

namespace sim {
namespace {

struct Call {
    ControlUnit& unit;
    std::vector<std::string_view> words; // after the command's name
    std::int64_t now_us;

    std::size_t count() const { return words.size(); }
    bool is(std::size_t index, std::string_view word) const {
        return index < words.size() && words[index] == word;
    }
    template <class Number>
    std::optional<Number> number(std::size_t index, Number low, Number high) const {
        if (index >= words.size()) return std::nullopt;
        return number_in<Number>(words[index], low, high);
    }
};

// The text to show. Nothing if the values do not fit the command; then nothing was changed.
using Answer = std::optional<std::string>;

Answer set_number(const Call& call, double& goal, double low, double high) {
    const auto value = call.number(0, low, high);
    if (call.count() != 1 || !value) return std::nullopt;
    goal = *value;
    return "";
}

Answer set_count(const Call& call, int& goal, int low, int high) {
    const auto value = call.number(0, low, high);
    if (call.count() != 1 || !value) return std::nullopt;
    goal = *value;
    return "";
}

// A number, or "auto", with which the car sets the value itself again.
Answer set_or_auto(const Call& call, std::optional<double>& goal, double low, double high) {
    double value = 0;
    if (call.count() == 1 && call.is(0, "auto")) {
        goal.reset();
        return "";
    }
    const Answer answer = set_number(call, value, low, high);
    if (answer) goal = value;
    return answer;
}

Answer set_switch(const Call& call, bool& goal, std::string_view on = "on",
                  std::string_view off = "off") {
    if (call.count() != 1 || (!call.is(0, on) && !call.is(0, off))) return std::nullopt;
    goal = call.is(0, on);
    return "";
}

Answer set_next(const Call& call, std::optional<int>& goal, int high) {
    int value = 0;
    const Answer answer = set_count(call, value, 0, high);
    if (answer) goal = value;
    return answer;
}

Answer engine(const Call& call) {
    bool on = false;
    const Answer answer = set_switch(call, on);
    Engine& car = call.unit.engine();
    if (!answer) return answer;
    if (!on)
        car.stop();
    else if (!car.running) {
        car.running = true;
        call.unit.gas().power_up();
        call.unit.diagnosis().power_up();
    }
    return answer;
}

Answer gas(const Call& call) {
    bool on = false;
    const Answer answer = set_switch(call, on);
    if (answer && on) call.unit.gas().ask_for_gas();
    if (answer && !on) call.unit.gas().ask_for_petrol();
    return answer;
}

Answer mixture(const Call& call) {
    double percent = 0;
    const Answer answer = set_number(call, percent, 30, 300);
    if (answer) call.unit.gas().richness = percent / 100;
    return answer;
}

Answer fault(const Call& call) {
    if (call.count() == 0) return fault_report(call.unit);
    if (call.count() == 1 && call.is(0, "clear")) {
        clear_faults(call.unit.memory());
        return "";
    }
    const auto number = call.number(1, 1, 9999);
    if (call.count() != 2 || !call.is(0, "add") || !number) return std::nullopt;
    return add_fault(call.unit.memory(), *number)
               ? ""
               : "This fault is stored already, or all six places are taken.";
}

Answer protocol(const Call& call) {
    return set_count(call, call.unit.diagnosis().car_protocol, 2, 10);
}

Answer telegram(const Call& call) {
    if (call.count() != 1 || (!call.is(0, "27") && !call.is(0, "29"))) return std::nullopt;
    call.unit.quirks().status_length = call.is(0, "27") ? 27 : 29;
    return "";
}

Answer unplug(const Call& call) {
    if (call.count() != 0) return std::nullopt;
    call.unit.plug(false);
    return "";
}

Answer plug(const Call& call) {
    if (call.count() != 0) return std::nullopt;
    call.unit.plug(true);
    return "";
}

Answer log(const Call& call) {
    bool on = false;
    const Answer answer = set_switch(call, on);
    if (answer) call.unit.log(on);
    return answer;
}

Answer memory(const Call& call) {
    if (call.count() == 0) return memory_report(call.unit.memory());
    const auto number = call.number(0, 0, Memory::size - 1);
    if (!number || call.count() > 2) return std::nullopt;
    if (call.count() == 2) {
        const auto value = call.number(1, 0, 65535);
        if (!value) return std::nullopt;
        call.unit.set_parameter(*number, static_cast<std::uint16_t>(*value));
    }
    return memory_line(call.unit.memory(), *number);
}

Answer state(const Call& call) {
    if (call.count() != 0) return std::nullopt;
    return state_report(call.unit);
}

Answer restart(const Call& call) {
    if (call.count() != 0) return std::nullopt;
    call.unit.restart(call.now_us);
    return "";
}

Answer help(const Call& call) {
    if (call.count() != 0) return std::nullopt;
    return command_help();
}

struct Command {
    std::string_view name;
    std::string_view usage;  // an example
    std::string_view effect; // what it does, and the range of its number
    Answer (*run)(const Call&);
};

constexpr Command commands[] = {
    {"help", "help", "shows this list", help},
    {"state", "state", "shows car, gas side and unit", state},
    {"memory", "memory 3", "shows all parameters or one (0 to 255), or sets one: memory 3 1250",
     memory},
    {"throttle", "throttle 40", "sets the accelerator pedal, 0 to 100 percent",
     [](const Call& c) { return set_number(c, c.unit.engine().throttle_set, 0, 100); }},
    {"coolant", "coolant 85", "sets the water temperature, -30 to 130 degrees",
     [](const Call& c) { return set_number(c, c.unit.engine().coolant_c, -30, 130); }},
    {"ambient", "ambient 15", "sets the air temperature, -30 to 50 degrees",
     [](const Call& c) { return set_number(c, c.unit.engine().ambient_c, -30, 50); }},
    {"engine", "engine off", "stops or starts the engine, on or off", engine},
    {"gas", "gas on", "operates the changeover switch, on or off", gas},
    {"tank", "tank 30", "fills or empties the tank, 0 to 100 percent",
     [](const Call& c) { return set_number(c, c.unit.gas().tank_percent, 0, 100); }},
    {"sender", "sender 2", "sets the type of the tank sender, 0 to 5",
     [](const Call& c) { return set_count(c, c.unit.gas().sender, 0, 5); }},
    {"pressure", "pressure 1200", "sets the regulator's pressure, 0 to 4000 mbar, or auto",
     [](const Call& c) { return set_or_auto(c, c.unit.gas().regulator_mbar, 0, 4000); }},
    {"mixture", "mixture 80", "makes the gas leaner or richer, 30 to 300 percent", mixture},
    {"battery", "battery 12.6", "sets the battery voltage, 0 to 20 volts, or auto",
     [](const Call& c) { return set_or_auto(c, c.unit.engine().battery_fixed_v, 0, 20); }},
    {"lambda", "lambda silent", "sets the lambda probe, silent or normal",
     [](const Call& c) {
         return set_switch(c, c.unit.engine().lambda_silent, "silent", "normal");
     }},
    {"fault", "fault add 301", "shows, adds (1 to 9999) or clears faults: fault clear", fault},
    {"protocol", "protocol 4", "sets the protocol of the car's diagnosis, 2 to 10", protocol},
    {"diagnosis", "diagnosis off", "connects the unit to the car's diagnosis, on or off",
     [](const Call& c) { return set_switch(c, c.unit.diagnosis().cable); }},
    {"silence", "silence on", "stops all answers, on or off",
     [](const Call& c) { return set_switch(c, c.unit.quirks().silence); }},
    {"echo", "echo on", "returns every byte that the tool sends, on or off",
     [](const Call& c) { return set_switch(c, c.unit.quirks().echo); }},
    {"acknowledge", "acknowledge on", "answers writes too, on or off",
     [](const Call& c) { return set_switch(c, c.unit.quirks().acknowledge); }},
    {"garble", "garble 5", "changes bytes in the next answers, 0 to 1000000 of them",
     [](const Call& c) { return set_count(c, c.unit.quirks().garble, 0, 1000000); }},
    {"late", "late 300", "delays every answer, 0 to 60000 ms",
     [](const Call& c) { return set_count(c, c.unit.quirks().late_ms, 0, 60000); }},
    {"length", "length 20", "cuts or fills the next answer, 0 to 1000 bytes",
     [](const Call& c) { return set_next(c, c.unit.quirks().length, 1000); }},
    {"wrong-echo", "wrong-echo 9", "sets the echo (byte 5) of the next answer, 0 to 255",
     [](const Call& c) { return set_next(c, c.unit.quirks().wrong_echo, 255); }},
    {"telegram", "telegram 27", "sets the length of the status: 29 bytes, or 27 without battery",
     telegram},
    {"reset-answer", "reset-answer 5", "sets the length of the answer to command 5, 1 to 20 bytes",
     [](const Call& c) { return set_count(c, c.unit.quirks().reset_length, 1, 20); }},
    {"unplug", "unplug", "disconnects the serial cable", unplug},
    {"plug", "plug", "connects the serial cable", plug},
    {"restart", "restart", "interrupts the unit's power supply briefly", restart},
    {"log", "log on", "shows requests and answers, on or off", log},
};

} // namespace

std::string command_help() {
    std::string all;
    for (const Command& command : commands) {
        std::string line = "  " + std::string(command.usage);
        line.resize(std::max<std::size_t>(line.size() + 2, 20), ' ');
        all += line + std::string(command.effect) + "\n";
    }
    all.pop_back();
    return all;
}

std::string run_command(ControlUnit& unit, std::string_view line, std::int64_t now_us) {
    std::vector<std::string_view> words = split_words(line);
    if (words.empty() || words[0].front() == '#') return "";
    const std::string_view name = words[0];
    for (const Command& command : commands) {
        if (command.name != name) continue;
        words.erase(words.begin());
        if (auto answer = command.run({unit, std::move(words), now_us})) return *std::move(answer);
        return "Error: " + std::string(name) +
               ": wrong or missing value. Type, for example: " + std::string(command.usage) + " (" +
               std::string(command.effect) + ").";
    }
    return "Error: there is no command " + quoted(name) + ". Type help for the list.";
}

} // namespace sim

#include "simulator/report.h"

#include "simulator/control_unit.h"
#include "simulator/text.h"

namespace sim {
namespace {

const char* mode_name(ControlUnit::Mode mode) {
    switch (mode) {
    case ControlUnit::Mode::normal: return "on the line";
    case ControlUnit::Mode::restarting: return "restarting";
    case ControlUnit::Mode::terminal: return "in terminal mode until restarted";
    case ControlUnit::Mode::download: return "sending its memory until restarted";
    }
    return "";
}

const char* loop_name(Engine::Loop loop) {
    switch (loop) {
    case Engine::Loop::open: return "open";
    case Engine::Loop::closed: return "closed";
    case Engine::Loop::transient: return "transient";
    }
    return "";
}

} // namespace

std::string memory_line(const Memory& memory, int number) {
    std::string line = text("PAR_%d = %u", number, static_cast<unsigned>(memory[number]));
    const std::string meaning(parameter_meaning(number));
    return meaning.empty() ? line : line + "  " + meaning;
}

std::string memory_report(const Memory& memory) {
    std::string all;
    for (int number = 0; number < Memory::size; ++number)
        if (memory[number] != 0 || !parameter_meaning(number).empty())
            all += (all.empty() ? "" : "\n") + memory_line(memory, number);
    return all;
}

std::string fault_report(ControlUnit& unit) {
    std::string all;
    int count = 0;
    for (int slot = 1; slot <= 6; ++slot) {
        const int fault = stored_fault(unit.memory(), slot);
        if (fault == 0) continue;
        ++count;
        all += text(" P%04d", fault);
    }
    if (count == 0) return "no faults";
    return text("%d fault%s:", count, count == 1 ? "" : "s") + all;
}

std::string state_report(ControlUnit& unit) {
    const Engine& engine = unit.engine();
    const Gas& gas = unit.gas();
    const Memory& memory = unit.memory();
    const int band = gas.gauge_band(memory);
    std::string lamps = band == 0 ? "R" : "-";
    for (int lamp = 1; lamp <= 4; ++lamp)
        lamps += lamp <= band ? " *" : " -";
    return text("engine   %s, %.0f rpm, throttle %.0f %%, water %.1f C, battery %.1f V\n",
                engine.running ? "running" : "stopped", engine.rpm, engine.throttle,
                engine.coolant_c, engine.battery_v) +
           text("petrol   injection %.0f us, loop %s, trim %+.1f %%, learnt %+.1f %%, lambda %.0f "
                "mV\n",
                engine.injection_us, loop_name(engine.loop), engine.trim * 100,
                engine.long_trim * 100, engine.lambda_mv) +
           text("gas      %s (%s), %.0f mbar, gain %.0f, opening %.0f us, mixture %.0f %%\n",
                std::string(fuel_name(gas.fuel)).c_str(),
                std::string(stage_name(gas.stage(engine, memory))).c_str(), gas.pressure_mbar,
                gas.gain, gas.gas_time_us, gas.mixture * 100) +
           text("tank     %.1f %%, sender %d at %d mV, read as %.0f %%, lamps %s\n",
                gas.tank_percent, gas.sender, gas.sender_mv(), gas.level_percent(memory),
                lamps.c_str()) +
           text("on gas   %d h %d min\n", memory[par::hours_on_gas], memory[par::minutes_on_gas]) +
           text("unit     %d.%d.%d, %s, %s", unit.options().family, unit.options().version,
                unit.options().revision, mode_name(unit.mode()), fault_report(unit).c_str());
}

} // namespace sim

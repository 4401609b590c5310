#include "simulator/diagnosis.h"

#include <algorithm>

namespace sim {
namespace {

constexpr int slots = 6;

// Measures how long a condition holds. True in the one step in which it has lasted long enough.
bool lasted(bool holds, double& time_s, double enough_s) {
    const double before = time_s;
    time_s = holds ? time_s + step_s : 0;
    return before < enough_s && time_s >= enough_s;
}

} // namespace

int stored_fault(const Memory& memory, int slot) {
    if (slot < 1 || slot > slots) return 0;
    const int word = memory[par::first_fault + slot - 1];
    return word / 256 * 100 + word % 256;
}

bool add_fault(Memory& memory, int fault) {
    if (fault < 1 || fault > 9999) return false;
    int free_slot = 0;
    int count = 0;
    for (int slot = slots; slot >= 1; --slot) {
        const int stored = stored_fault(memory, slot);
        if (stored == fault) return false;
        if (stored == 0)
            free_slot = slot;
        else
            ++count;
    }
    if (free_slot == 0) return false;
    memory.set(par::first_fault + free_slot - 1,
               static_cast<std::uint16_t>(fault / 100 * 256 + fault % 100));
    memory.set(par::fault_count, static_cast<std::uint16_t>(count + 1));
    return true;
}

void clear_faults(Memory& memory) {
    for (int number = par::first_fault; number <= par::fault_count; ++number)
        memory.set(number, 0);
}

void Diagnosis::power_up() {
    search_left_s_ = 0;
    begin_left_s_ = begin_s;
}

void Diagnosis::protocol_written(int value) { search_left_s_ = value == 1 ? search_s : 0; }

Diagnosis::Link Diagnosis::link(const Engine& engine, const Memory& memory) const {
    if (!engine.running || !cable) return Link::lost;
    if (search_left_s_ > 0 || begin_left_s_ > 0) return Link::beginning;
    const int protocol = memory[par::eobd_protocol];
    return protocol == 0 || protocol == car_protocol ? Link::up : Link::lost;
}

void Diagnosis::step(const Engine& engine, const Gas& gas, Memory& memory) {
    begin_left_s_ = std::max(0.0, begin_left_s_ - step_s);
    if (search_left_s_ > 0) {
        search_left_s_ -= step_s;
        if (search_left_s_ <= 0)
            memory.set(par::eobd_protocol, static_cast<std::uint16_t>(car_protocol));
    }
    const bool looping = engine.loop == Engine::Loop::closed && gas.fuel == Gas::Fuel::gas;
    if (lasted(looping && engine.trim > 0.2, lean_s_, lean_rich_s)) add_fault(memory, 171);
    if (lasted(looping && engine.trim < -0.2, rich_s_, lean_rich_s)) add_fault(memory, 172);
    const bool silent = engine.lambda_silent && engine.running && engine.running_s > 60;
    if (lasted(silent, silent_s_, silent_probe_s)) add_fault(memory, 130);
    if (lasted(engine.battery_v < 10.5, low_battery_now_s_, low_battery_s)) add_fault(memory, 562);
    const bool clearing = memory[par::auto_clear] == 1 && memory[par::fault_count] > 0;
    clear_in_s_ = clearing ? clear_in_s_ - step_s : auto_clear_s;
    if (clear_in_s_ <= 0) clear_faults(memory);
}

} // namespace sim

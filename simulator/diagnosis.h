// The unit's link to the car's own diagnosis, and its stored faults.
#pragma once

#include "simulator/engine.h"
#include "simulator/gas.h"
#include "simulator/memory.h"

namespace sim {

// The six faults and their number are parameters; a fault n is stored as n div 100 and n mod 100.
// Returns false and stores nothing if the fault is stored already, all six places are taken, or the
// number is outside 1 to 9999.
bool add_fault(Memory& memory, int fault);
void clear_faults(Memory& memory);
// The number of the fault in `slot`, 1 to 6; 0 if the slot is empty.
int stored_fault(const Memory& memory, int slot);

struct Diagnosis {
    enum class Link { lost, beginning, up };

    static constexpr double search_s = 6; // search for the protocol
    static constexpr double begin_s = 3;  // start of the link after the unit's start
    // How long a condition must last to store its fault.
    static constexpr double lean_rich_s = 20;    // trim near its limit: 171 lean, 172 rich
    static constexpr double silent_probe_s = 10; // no probe signal, engine hot: 130
    static constexpr double low_battery_s = 10;  // below 10.5 V: 562
    // How long faults stay when the unit clears them by itself.
    static constexpr double auto_clear_s = 10;

    int car_protocol = 7; // of the car, 2 to 10
    bool cable = true;    // the unit is connected to the car's diagnosis

    void power_up();
    // Call after a write of the protocol parameter: 1 starts a search.
    void protocol_written(int value);
    Link link(const Engine& engine, const Memory& memory) const;
    void step(const Engine& engine, const Gas& gas, Memory& memory);

  private:
    double search_left_s_ = 0;
    double begin_left_s_ = begin_s;
    double lean_s_ = 0;
    double rich_s_ = 0;
    double silent_s_ = 0;
    double low_battery_now_s_ = 0;
    double clear_in_s_ = auto_clear_s;
};

} // namespace sim

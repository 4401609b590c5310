// The unit's link to the car's own diagnosis, and the store of faults.
#pragma once

#include "simulator/engine.h"
#include "simulator/gas.h"
#include "simulator/memory.h"

namespace sim {

// The six faults and their count are parameters: each fault n is kept as n div 100 and n mod 100.
// A fault that is there already is not stored twice; a seventh is lost. False for these and for a
// number outside 1 to 9999.
bool add_fault(Memory& memory, int fault);
void clear_faults(Memory& memory);
// The number of the fault in `slot`, 1 to 6; 0 if the slot is empty.
int stored_fault(const Memory& memory, int slot);

struct Diagnosis {
    enum class Link { lost, beginning, up };

    static constexpr double search_s = 6;        // a search for the protocol
    static constexpr double begin_s = 3;         // after the unit's start
    static constexpr double lean_rich_s = 20;    // the loop at its stop: 171 lean, 172 rich
    static constexpr double silent_probe_s = 10; // 130, in a hot engine
    static constexpr double low_battery_s = 10;  // below 10.5 V: 562
    static constexpr double auto_clear_s = 10;

    int car_protocol = 7; // what the car speaks, 2 to 10
    bool cable = true;    // the diagnosis plug of the car is in

    void power_up();
    // What a write of the protocol parameter sets off: 1 begins a search.
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

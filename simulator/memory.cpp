#include "simulator/memory.h"

namespace sim {
namespace {

struct Entry {
    int number;
    std::uint16_t factory;
    std::string_view meaning;
};

// The factory values. The injection points are those of a unit whose injection time was never
// acquired. The 48 correction cells, all 100, are not in the table.
constexpr Entry entries[] = {
    {1, 10, "divider of the rpm signal, tenths"},
    {3, 1200, "lower gain, thousandths"},
    {4, 1001, "upper gain, thousandths"},
    {5, 2502, "lower injection time, us"},
    {6, 8004, "upper injection time, us"},
    {7, 3603, "third injection time, us"},
    {10, 1, "fuel, 1 LPG, 0 methane"},
    {11, 0, "lambda control, 1 on"},
    {12, 1, "lambda direction, 1 direct, 0 inverted"},
    {14, 5, ""},
    {15, 40, "changeover temperature, degrees Celsius"},
    {16, 400, "lambda value in open loop"},
    {19, 250, ""},
    {20, 0, "debug, 1 on"},
    {21, 0, "lambda input, 1 current, 0 voltage"},
    {22, 800, "changeover pressure, mbar"},
    {23, 0, "modular changeover, 1 on"},
    {27, 0, "time on gas, hours"},
    {28, 0, "time on gas, minutes"},
    {29, 0, "last check, day"},
    {30, 3900, "tank sender empty, mV"},
    {31, 4200, "tank sender full, mV"},
    {32, 3, "tank reserve, percent"},
    {33, 25, "tank one quarter, percent"},
    {34, 50, "tank one half, percent"},
    {35, 75, "tank three quarters, percent"},
    {36, 400, "lambda value in closed loop"},
    {39, 0, "last check, month"},
    {40, 0, "last check, year"},
    {41, 2, "gas cut-off, 7 by injection time, 5 by rpm, 2 none"},
    {45, 1, ""},
    {47, 0, "petrol above this speed, tens of rpm, 0 never"},
    {50, 1, "pressure sensor, 1 fitted"},
    {51, 50, "calibration temperature, degrees Celsius"},
    {52, 2, "temperature correction, thousandths a degree"},
    {53, 1, "petrol above that speed for, tenths of a second"},
    {54, 60, ""},
    {55, 20, ""},
    {60, 500, "air-conditioning delay after cut-off, ms"},
    {61, 0, "delay of the changeover, ms"},
    {101, 20, "multiplier of the delta corrector, tenths"},
    {102, 50, "spread at acceleration, percent"},
    {103, 50, "main pulse variation, percent"},
    {104, 1200, "calibration pressure, mbar"},
    {105, 1, "automatic changeover, 1 on"},
    {106, 50, "delay on low pressure, ms"},
    {107, 800, "injector latency, us"},
    {110, 20, "changeover time after the start, seconds"},
    {120, 1, "pulses of the emergency start"},
    {121, 1400, "changeover speed, rpm"},
    {122, 0, "forced start, 0 normal, 1 always, 3 on acceleration"},
    {123, 500, "injection time shown in cut-off"},
    {124, 1500, "cut-off speed, rpm"},
    {125, 1500, "coil signal filter, us"},
    {126, 0, "coil signal, 1 upwards, 0 downwards"},
    {127, 0, "longest warm-up pulse"},
    {128, 0, "lower reference injection time, us, 0 none"},
    {129, 1001, "gain below the reference, thousandths"},
    {130, 0, "tank sender type, 99 set by hand"},
    {140, 15, "share of the fuel trim in the gas time, percent"},
    {141, 15, "period of the diagnosis, tenths of a second"},
    {142, 0, "direction of the fuel trim, not 0 inverted"},
    {143, 0, "diagnosis protocol, 0 automatic, 1 search"},
    {144, 100, "fuel offset, percent, 100 none"},
    {145, 0, "fault 1"},
    {146, 0, "fault 2"},
    {147, 0, "fault 3"},
    {148, 0, "fault 4"},
    {149, 0, "fault 5"},
    {150, 0, "fault 6"},
    {151, 0, "number of faults"},
    {152, 1200, "copy of the lower gain, thousandths"},
    {153, 0, "faults clear themselves, 1 on"},
    {200, 60, "injector constant"},
    {201, 8000, "injector time constant"},
    {202, 2000, "injector opening"},
    {215, 30000, ""},
};

constexpr bool correction_cell(int number) {
    return (number >= 74 && number <= 98) || number == 108 || number == 109 ||
           (number >= 111 && number <= 119) || (number >= 159 && number <= 170);
}

constexpr bool service_record(int number) {
    return (number >= par::hours_on_gas && number <= par::check_day) ||
           number == par::check_month || number == par::check_year;
}

} // namespace

void Memory::restore_factory_values() {
    for (int number = 0; number < size; ++number)
        if (!service_record(number)) set(number, correction_cell(number) ? 100 : 0);
    for (const Entry& entry : entries)
        if (!service_record(entry.number)) set(entry.number, entry.factory);
}

std::string_view parameter_meaning(int number) {
    if (correction_cell(number)) return "correction cell, percent";
    for (const Entry& entry : entries)
        if (entry.number == number) return entry.meaning;
    return {};
}

} // namespace sim

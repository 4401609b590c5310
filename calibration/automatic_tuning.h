// The automatic tuning. It measures the car's injection time on petrol, then on gas, and corrects
// the gain at low load by the ratio of the two, in rounds, until the gas time is 150 to 450 µs
// below the petrol time.
#pragma once

#include <array>

namespace zol::calibration {

// The results of the measurements, in µs.
struct TuningMeasures {
    std::array<double, 20> tinj_samples{}; // of the present or last measurement
    double tinj_petrol_avg = 0;
    double tinj_gas_adjusted = 0; // the mean on gas plus 150
};

inline TuningMeasures tuning;

// Asks the operator and, if the answer is yes, runs the tuning. Only the end of the program stops
// it: while the engine is cold or the unit is silent, it waits without limit. It may return before
// the tuning has begun, see monitor/polling_pass.h.
void tune_automatically();

} // namespace zol::calibration

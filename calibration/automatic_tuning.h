// The Automatic Tuning System. The car's own injection time is the instrument: measured on petrol,
// then on gas, it corrects the gain at low load by the ratio of the two, round by round, until the
// gas time lies 150 to 450 below the petrol time.
#pragma once

#include <array>

namespace zol::calibration {

// What the measuring passes found, in the unit of the telegram's injection time.
struct TuningMeasures {
    std::array<double, 20> tinj_samples{}; // of the pass at hand, on petrol or on gas
    double tinj_petrol_avg = 0;
    double tinj_gas_adjusted = 0; // the mean on gas and 150
};

inline TuningMeasures tuning;

// Asks, and runs to one of its ends. Nothing but the end of the program stops it: a cold engine or
// a silent unit holds it for as long as it lasts.
void tune_automatically();

} // namespace zol::calibration

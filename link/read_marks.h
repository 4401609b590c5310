// The marks and lines that follow from the words of an image, alike on both roads of the first
// read.
#pragma once

#include "link/injector_types.h"

#include <string>

namespace zol::link {

// Both gains on their sliders, each marked from the slider's lower end up to its value.
void show_gains();
// The menus and buttons of a unit without the car's diagnosis (family 1), and of one that has it.
// Which of the other families are offered it, and the lambda panel beside it, differs by road.
void offer_lambda_only();
void offer_diagnosis(bool lambda_too);
// The direction pair: 1 marks "Inverse", any other value "Normal".
void tick_eobd_direction();
// The protocol's own item of eleven codes, 0 and 1 both "Search..."; an unknown code changes
// nothing.
void tick_eobd_protocol();
// The debug pair: 1 marks "Yes", any other value "No".
void tick_debug_pair();
// The item of the injector whose opening value the unit has, of the values for this occasion
// (link/injector_types.h), such as &OpeningMarks::at_activation. Another value marks none.
void tick_injector(double OpeningMarks::*occasion);
// The type of the tank's sender, if it is a preset; 99 ticks the box of free values, whose handler
// takes it from there.
void take_tank_type();
// Voltage or current.
void select_lambda_kind();
// The modular pair, and its frame on view.
void show_modular_pair();
// "200" and the two digits of the year, whatever the year: one of 12 reads "20012".
std::string year_text_of_image();
// Time on gas and last check, from the mirrors, with `middle` between minutes and day and `end`
// behind the year text; both lines on view and the car menu enabled.
void show_service_line(const char* middle, const char* end);
constexpr const char* service_line_middle = " min    - Date Last Check : ";

} // namespace zol::link

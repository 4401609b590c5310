// Menu ticks, options and labels derived from the parameter image, the same on both paths of the
// first read.
#pragma once

#include "link/injector_types.h"

#include <string>

namespace zol::link {

// Shows both gains on their sliders, highlighted from the slider's lower end to the value.
void show_gains();
// Shows the menus and buttons of a unit without access to the car's diagnosis (family 1), and of a
// unit that has it. `lambda_too` shows the lambda panel's button, else hides it. The two paths call
// these for different families.
void offer_lambda_only();
void offer_diagnosis(bool lambda_too);
// Ticks "Inverse" if the mirror holds 1, else "Normal".
void tick_eobd_direction();
// Ticks the item of the protocol code, 0 to 10; 0 and 1 both tick "Search...". An unknown code
// changes nothing.
void tick_eobd_protocol();
// Ticks "Yes" if the mirror holds 1, else "No".
void tick_debug_pair();
// Ticks the injector whose opening value the mirror holds; `occasion` chooses the set of values,
// such as &OpeningMarks::at_activation. Any other value ticks none.
void tick_injector(double OpeningMarks::*occasion);
// Shows the type of the tank sender and stores it in `state.tank_type`. For 99 it ticks the box of
// free values, whose handler stores and writes it.
void take_tank_type();
// Selects the kind of lambda sensor, voltage or current.
void select_lambda_kind();
// Shows the frame of the modular changeover and selects its option.
void show_modular_pair();
// "200" followed by the year's number, whatever it is: 12 gives "20012".
std::string year_text_of_image();
// Shows time on gas and last check from the mirrors, with `middle` between minutes and day and
// `end` after the year. Also shows the line's heading and enables the car menu.
void show_service_line(const char* middle, const char* end);
// The usual `middle`; the long layout of the dialog path has one more blank.
constexpr const char* service_line_middle = " min    - Date Last Check : ";

} // namespace zol::link

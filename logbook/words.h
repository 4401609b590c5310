// Texts for parameters, requests and replies, with names and units of the parameter catalogue. In
// English only.
#pragma once

#include "logbook/decoder.h"

#include <span>
#include <string>
#include <vector>

namespace zol::logbook {

// "Gain at low load (NORMAL)"; "Correction cell 74"; "Parameter 99" for one that is not in the
// catalogue.
std::string parameter_name(int number);
// The unit or scale, "mV" or "1/1000"; empty if the value has none.
std::string parameter_unit(int number);
// "1250 (1/1000)", "3900 mV", "1".
std::string value_text(int number, int value);
// "Gain at low load (NORMAL) 1200 → 1250 (1/1000)"; "... set to 1250 (1/1000)" if the previous
// value is unknown.
std::string write_text(const Decoded& write);

// "over to petrol", "status"; "command 99" for an unknown one.
std::string command_name(int command);

struct Field {
    const char* name;
    const char* unit; // empty for none
};
// The fields of the status telegram and of the live data, in the order of their values.
std::span<const Field> status_fields();
std::span<const Field> live_fields();
// The text of each field; empty if the reply does not contain it. `point` is the decimal separator.
std::vector<std::string> status_values(const link::Reply& reply, char point = '.');
std::vector<std::string> live_values(const link::Reply& reply, char point = '.');

// The contents of a reply in one line: "status: Engine speed 850 rpm, ..."
std::string reply_text(const Decoded& answer);

// "    12.345" seconds.
std::string time_text(std::int64_t at_us);

} // namespace zol::logbook

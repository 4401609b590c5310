// The texts that change with the language: numbered messages in one plain file per language, and
// the texts of the EOBD trouble codes in another.
//
// Each lookup reads its file from the first line, so a corrected file takes effect at once. A file
// of more than 4 MiB is treated as unreadable, and a text is cut after 2000 bytes. No call reports
// a failure to the operator.
#pragma once

#include "view/widget.h"

#include <optional>
#include <string>
#include <string_view>

namespace zol::app {

// The message numbers, named after what the messages say.
namespace messages {

constexpr int save = 1035;
constexpr int serial_port = 1044;
constexpr int engine = 1058;
constexpr int petrol = 1102;
constexpr int changeover = 1134;
constexpr int fuel = 1161;
constexpr int changeover_time = 1165;
constexpr int changeover_temperature = 1167;
constexpr int changeover_speed = 1168;
constexpr int lpg = 1171;
constexpr int methane = 1172;
constexpr int settings = 1240;
constexpr int calibration = 1241;
constexpr int pressure_sensor = 1242;
constexpr int tank_gauge = 1244;
constexpr int present_level = 1245;
constexpr int language = 1246;
constexpr int screen = 1247;
constexpr int information = 1248;
constexpr int text_colour = 1249;
constexpr int reset_unit = 1250;
constexpr int version = 1251;
constexpr int reset_question = 1252;
constexpr int close = 1253;
constexpr int forced_start_question = 1254;
constexpr int changeover_speed_question = 1255;
constexpr int temperature_correction = 1258;
constexpr int tank_0_to_90_ohm = 1259;
constexpr int tank_resistive = 1260;
constexpr int tank_toroidal = 1261;
constexpr int tank_methane = 1262;
constexpr int tank_hall = 1263;
constexpr int tank_cylinder = 1264;
constexpr int lambda_direct = 1265;
constexpr int lambda_inverted = 1266;
constexpr int lambda_control_on = 1267;
constexpr int lambda_control_off = 1268;
constexpr int lambda_voltage = 1269;
constexpr int lambda_current = 1270;
constexpr int lambda_closed_loop_max = 1271;
constexpr int lambda_open_loop_max = 1272;
constexpr int reset_last_check = 1273;
constexpr int reset_time_on_gas = 1274;
constexpr int read_faults = 1275;
constexpr int clear_faults = 1276;

} // namespace messages

// The text in the line after "[key]" in "\language\Mivra_<language>.ini", not trimmed. A missing
// number gives a fixed Italian text that says so; an empty file gives an empty text. Nothing if the
// file cannot be read or "[key]" is its last line.
std::optional<std::string> message(int key);
// The same for the content of such a file.
std::optional<std::string> message_in(std::string_view content, int key);

// Sets the control's text to the message followed by `suffix`. If there is no message, the control
// keeps its text.
void set_message(view::Widget& control, int key, const std::string& suffix = "");

// The short description of a trouble code, from the language's file or, if that does not exist, the
// English one. Also puts the long note into Text_note_error. Empty if the code has no entry;
// nothing if the file cannot be read or "[code]" is its last line.
std::optional<std::string> trouble_code_text(const std::string& code);
// The same for the content of such a file.
std::optional<std::string> trouble_code_in(std::string_view content, const std::string& code);
// The long note alone, from the same files; empty if there is none.
std::string trouble_code_note(const std::string& code);

} // namespace zol::app

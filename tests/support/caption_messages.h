// Which message is the caption of which control of the main window: a list of the tests' own, so
// that a mistake in the program's list fails a test.
#pragma once

#include <utility>

namespace zol::tests {

inline constexpr std::pair<const char*, int> caption_messages[] = {
    {"Command_engine", 1058},
    {"Command_impostazioni", 1240},
    {"frame_engine", 1058},
    {"Frame_impostazioni", 1240},
    {"frame_TARATURA", 1241},
    {"Frame_pressione", 1242},
    {"Frame_carburante", 1161},
    {"Frame_temperatura", 1167},
    {"Frame_tempo", 1165},
    {"Frame_tank", 1244},
    {"Label_livello_att", 1245},
    {"Frame1", 1258},
    {"lambda_dir", 1265},
    {"lambda_inv", 1266},
    {"Option_abi_controllo_lambda", 1267},
    {"Option_disa_controllo_lambda", 1268},
    {"Option_tens", 1269},
    {"Option_corr", 1270},
    {"Label_medio_closed_loop", 1271},
    {"Label_lambda_open_loop", 1272},
    {"cmd_richiesta_par_diagnosi", 1275},
    {"Command10", 1276},
    {"mnu_Porta_Seriale", 1044},
    {"mnu_Impostazioni", 1240},
    {"mnu_Lingua", 1246},
    {"mnu_Schermo", 1247},
    {"MNU_INFOMATION", 1248},
    {"mnu_color_testo", 1249},
    {"mnu_reset_centralina", 1250},
    {"MNU_VERSIONE", 1251},
    {"mnu_reset_check", 1273},
    {"mnu_reset_time_ongas", 1274}};

} // namespace zol::tests

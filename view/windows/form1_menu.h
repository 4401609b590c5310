// The menus of the main window, in their order on the screen.
#pragma once

#include "view/widget.h"

namespace zol::form1 {

extern view::Widget mnu_Impostazioni;
extern view::Widget mnu_Porta_Seriale, com1, com2, com3, com4, com5, com6, com7, com8;
extern view::Widget mnu_type_injector_gas;
extern view::Widget mnu_matrix_2_ohm, mnu_matrix_3_ohm, mnu_valtek, mnu_mivra;
extern view::Widget barra2, mnu_type_car, type_a, type_b, type_c;
extern view::Widget min, mnu_check_car, mnu_reset_check, mnu_reset_time_ongas;
extern view::Widget barra3, mnu_reset_centralina;

extern view::Widget mnu_Lingua, it, uk, pl, fr, de;

extern view::Widget barra1; // opens the parameter window

extern view::Widget mnu_eobd;
extern view::Widget mnu_setting_eobd, mnu_direction_normal_eobd, mnu_direction_inverse_eobd;
extern view::Widget barra5, mnu_debug_error, mnu_debug_yes, mnu_debug_no;
extern view::Widget mnu_line, mnu_search, mnu_KWP2000_fast, mnu_KWP2000_slow, mnu_iso9141;
extern view::Widget mnuCAN250KStandard, mnuCAN250KExtended;
extern view::Widget mnuCAN500KStandard, mnuCAN500KExtended;
extern view::Widget mnuJ1850vpw, mnuJ1850pwm;

extern view::Widget mnu_Schermo, mnu_color_testo;
extern view::Widget MNU_INFOMATION, MNU_VERSIONE, mnu_dump_parametri;
extern view::Widget MNU_HELP, mnu_Manual;

} // namespace zol::form1

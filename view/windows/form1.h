// The main window. The rows of its controls are in form1.cpp, those of its menus in form1_menu.inc.
#pragma once

#include "view/timers.h"
#include "view/widget.h"
#include "view/windows/form1_menu.h"

namespace zol::form1 {

extern view::Widget Form1;

// Engine speed bar: indices 0 to 41, without 33.
extern view::WidgetArray led_rpm;

// Live values, visible with every panel. Title first, then value.
extern view::Widget lbl_rpm, Label_rpm;
extern view::Widget lbl_tinj, Label_tinj;
extern view::Widget lbl_press, LabeL_pressure;
extern view::Widget lbl_temp, Label_temp;
extern view::Widget lbl_lambda, Label_lambda;
extern view::Widget Label22, label_liv2; // tank sensor
extern view::Widget Picture1;            // lambda trace
extern view::Widget Shape2;              // changes colour with each telegram
extern view::Widget Label_carburante;    // fuel state
extern view::Widget Label20;             // battery

// Buttons that show a panel or a window, and the exit button.
extern view::Widget Command_engine, Command_impostazioni, Command_lambda, Command_diagnosi;
extern view::Widget Command5, Command_exit;
extern view::Widget ShockwaveFlash1;

// Engine panel: calibration of the gas gains.
extern view::Widget frame_engine, frame_TARATURA;
extern view::Widget Label45, Label27, Command8, Command7, Slider_ktar;
extern view::Widget Label46, Label44, Slider_power;
extern view::Widget Label24, Label_attenuazione, Label25, Slider_attenuazione, Label26;
extern view::Widget Label12, Command_rpm_meno, Command_rpm_piu;
extern view::Widget lbl_ktar, Label_ktar, lbl_ct, Label_ct;
extern view::Widget Label28, Label_pressione_taratura, Label39;
// Engine panel: data from the car's diagnosis line. Label18 is its heading.
extern view::Widget Label18, Label1, Label16, Label13, Label19, Label14;
extern view::Widget Label43, Label42, Label48, Label49;
extern view::Widget Command31;

// Settings panel: tank gauge.
extern view::Widget Frame_impostazioni, Frame_tank, Combo_tank_level, Check1;
extern view::WidgetArray Slider1, Shape1;                     // rows 0 (bottom) to 4 (top)
extern view::Widget Label11, Label10, Label9, Label8, Label7; // lower bounds, top row first
extern view::Widget Label_led4, Label_led3, Label_led2, Label_led1, Label_led0;   // upper bounds
extern view::Widget lbl_200, lbl_201, lbl_202, lbl_203, lbl_204, lbl_205, Label3; // millivolts
extern view::Widget Label6, Text_min_tank, lbl205, Label5, Text_max_tank, lbl204;
extern view::Widget Label_livello_att, Label_level_attuale, Label38;
// Settings panel: fuel, pressure sensor and changeover.
extern view::Widget Frame_carburante, Option_gpl, Option_metano;
extern view::Widget Frame_pressione, Option_press_yes, Option_press_no;
extern view::Widget Frame_temperatura, text_temp_comm, Label2;
extern view::Widget Frame_tempo, Text_time_comm, Label4;
extern view::Widget Frame2, Opt_modulare_yes, Opt_modulare_no;
extern view::Widget Frame1, lbl_low, Slider3, Lbl_fast; // temperature correction
extern view::Widget Command303;

// Lambda panel.
extern view::Widget Frame_Lambda;
extern view::Widget frame_type_lambd, lambda_dir, lambda_inv;
extern view::Widget Frame_abilita_controllo_lambda;
extern view::Widget Option_abi_controllo_lambda, Option_disa_controllo_lambda;
extern view::Widget Frame_L_C_T, Option_tens, Option_corr;
extern view::Widget Label_medio_closed_loop, Text_lambda_closed_loop;
extern view::Widget Label_lambda_open_loop, Text_lambda_open_loop;
extern view::Widget Label31, label_lambda_2, Label29, Label_stato;
extern view::Widget Label32, Command_meno, Label35, Command_piu; // scale of the trace

// Diagnosis panel.
extern view::Widget Frame_diagnosi, cmd_richiesta_par_diagnosi, Command10;
extern view::Widget Label21, lbl_num_errori, Label23;
extern view::Widget lbl_par_1, lbl_par_2, lbl_par_3, lbl_par_4, lbl_par_5, lbl_par_6;
extern view::Widget Label33, Text_note_error;

// Bottom of the window: automatic tuning, service controls, service line.
extern view::Widget lbl_tuning;
extern view::Widget Command1, Command2, Command_hyperterminal, Command_scarico, Label_sfondo;
extern view::Widget lbl_min, lbl_ore; // heading; time on gas and last check

// Controls of one pixel that hold the keyboard focus while no visible control needs it.
extern view::Widget Text2, cmd_focus;

extern view::Timer Timer_stato_sistema;  // polling
extern view::Timer Timer_chiusura_stato; // stops polling once, after a delay
extern view::Timer Timer1;               // fills the window once after the connection dialog
extern view::Timer Timer2;               // one-shot: every wait_ms()
extern view::Timer Timer3;               // status read of the lambda panel
extern view::Timer Timer4;               // blinking label of the automatic tuning
extern view::Timer Timer5;               // polling guard of the settings panel, reminders
extern view::Timer Timer6;               // watchdog
extern view::Timer Timer_rpm;            // engine speed bar

} // namespace zol::form1

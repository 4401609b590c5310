// The main window's frame: the buttons that switch panels, the service controls, the menu entries
// that open windows, and the marking of entry fields.
#pragma once

#include "view/widget.h"

namespace zol::app {

// The engine panel in place of the others, with the polling: where that has to be started anew, it
// gets 500 ms before the panel comes.
void bring_back_engine_panel();

// Marks a field as waiting for its number: red ground, empty text.
void begin_field_edit(view::Widget& field);
// Takes the mark off again, after Enter was handled.
void end_field_edit(view::Widget& field);

// Hourglass, and back to their own pointer, on the two panel buttons of the injector menu's work.
void show_busy_on_buttons();
void show_normal_on_buttons();

// Opens the manual at a topic; nothing happens where it cannot be shown.
void ShowHtmlHelp(const std::string& file, const std::string& topic);

void connect_main_window();

} // namespace zol::app

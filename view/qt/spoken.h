// What a control says to the operator who rests the pointer on it or has it read out.
#pragma once

#include "view/widget.h"

#include <QString>

class QWidget;

namespace zol::view::qt {

// The widget's own tip, else its help, broken into lines that an eye takes in at once; as
// plain_tip() has it.
QString tip_on_screen(const Widget& model);
// The name for a screen reader: the help's, with what a label shows behind it; else the caption.
QString spoken_name(const Widget& model);
// Gives `face` its tip, and its name and description for a screen reader.
void speak(const Widget& model, QWidget& face);

} // namespace zol::view::qt

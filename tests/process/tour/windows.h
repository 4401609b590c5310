// Where the program's windows are found. For the windows' own thread.
#pragma once

#include <QString>

class QAction;
class QDialog;
class QWidget;

namespace zol::tour {

// Null if there is none of that name at the moment.
QWidget* window_named(const QString& name);
// An entry or a submenu of the main window.
QAction* action_named(const QString& name);
// The box that waits for an answer.
QDialog* box();

} // namespace zol::tour

// Finds the program's windows by name. Call it on the windows' thread.
#pragma once

#include <QString>

class QAction;
class QDialog;
class QWidget;

namespace zol::tour {

// Null if there is none now.
QWidget* window_named(const QString& name);
// A menu item or submenu of the main window.
QAction* action_named(const QString& name);
// The open box, or null.
QDialog* box();

} // namespace zol::tour

// Text as the characters that it is made of, where the toolkit gives some of them a meaning of its
// own. What comes from a file, a path or the line goes to the toolkit through these.
#pragma once

#include <QString>

namespace zol::view::qt {

// For buttons, frames, menus and labels that lead to a field: no character is a key to press.
QString plain_caption(const QString& text);
// For the titles of windows: no characters are taken for the mark of unsaved changes.
QString plain_title(const QString& text);
// For tips: one that looks like markup is given as markup that shows its characters. Markup could
// name a file, which would be opened.
QString plain_tip(const QString& text);

} // namespace zol::view::qt

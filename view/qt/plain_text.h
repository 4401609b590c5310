// Escapes characters to which the toolkit gives a meaning, so that it shows a text as it is. A text
// from a file, a path or the serial line must pass through one of these functions.
#pragma once

#include <QString>

namespace zol::view::qt {

// For buttons, frames, menus and labels of fields: "&" marks no access key.
QString plain_caption(const QString& text);
// For window titles: "[*]" is no place for the mark of unsaved changes.
QString plain_title(const QString& text);
// For tips: a text that looks like markup is returned as markup that shows its characters. Shown as
// it is, it could name a file, which the toolkit would open.
QString plain_tip(const QString& text);

} // namespace zol::view::qt

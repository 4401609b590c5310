#include "view/qt/box_texts.h"

#include "view/screen.h"

namespace zol::view::qt {

// The marks of keys to press are the translation's own affair, and a line of the file holds no
// line's end.
QString BoxTexts::translate(const char*, const char* text, const char*, int) const {
    const QString key = QString::fromUtf8(text).remove('&').simplified();
    const auto found = view_state.box_texts.find(key.toStdString());
    return found == view_state.box_texts.end() ? QString() : QString::fromStdString(found->second);
}

} // namespace zol::view::qt

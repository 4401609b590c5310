#include "view/qt/box_texts.h"

#include "view/screen.h"

namespace zol::view::qt {

// A translation has its own access keys (&), and a line of the file cannot contain a line break. So
// the lookup ignores both.
QString BoxTexts::translate(const char*, const char* text, const char*, int) const {
    const QString key = QString::fromUtf8(text).remove('&').simplified();
    const auto found = view_state.box_texts.find(key.toStdString());
    return found == view_state.box_texts.end() ? QString() : QString::fromStdString(found->second);
}

} // namespace zol::view::qt

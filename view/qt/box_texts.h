// The texts of the toolkit's own boxes in the operator's language. A text without a translation
// stays English.
#pragma once

#include <QTranslator>

namespace zol::view::qt {

// Looks each text up in `view_state.box_texts`. A box asks when it is built, so a change of
// language affects the next box, not an open one.
class BoxTexts : public QTranslator {
  public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* disambiguation,
                      int n) const override;
};

} // namespace zol::view::qt

// What the toolkit's own boxes say, in the operator's language.
#pragma once

#include <QTranslator>

namespace zol::view::qt {

// Looks the toolkit's texts up in what the program has offered the view. A box asks as it is built,
// so the next one follows a change of the language.
class BoxTexts : public QTranslator {
  public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* disambiguation,
                      int n) const override;
};

} // namespace zol::view::qt

#include "view/qt/plain_text.h"

#include <QTextDocument>

namespace zol::view::qt {

QString plain_caption(const QString& text) { return QString(text).replace("&", "&&"); }

QString plain_title(const QString& text) { return QString(text).replace("[*]", "[*][*]"); }

QString plain_tip(const QString& text) {
    if (!Qt::mightBeRichText(text)) return text;
    const QString characters = text.toHtmlEscaped().replace('\n', "<br>");
    return "<p style='white-space:pre'>" + characters + "</p>";
}

} // namespace zol::view::qt

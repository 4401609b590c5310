#include "view/qt/accessible_text.h"

#include "view/qt/plain_text.h"

#include <QStringList>
#include <QWidget>

namespace zol::view::qt {
namespace {

// Lines of up to `tolerated` characters are not broken.
QString broken_into_lines(const QString& text, qsizetype tolerated) {
    constexpr qsizetype longest_line = 60;
    QStringList lines;
    for (const QString& paragraph : text.split('\n')) {
        if (paragraph.size() <= tolerated) {
            lines << paragraph;
            continue;
        }
        QString line;
        for (const QString& word : paragraph.split(' ')) {
            if (!line.isEmpty() && line.size() + 1 + word.size() > longest_line) {
                lines << line;
                line.clear();
            }
            line += (line.isEmpty() ? "" : " ") + word;
        }
        lines << line;
    }
    return lines.join('\n');
}

} // namespace

QString tip_on_screen(const Widget& model) {
    constexpr qsizetype path_of_a_device = 120;
    const bool own = !model.look.tip.empty();
    const QString text = QString::fromStdString(own ? model.look.tip : model.help.text);
    return plain_tip(broken_into_lines(text, own ? path_of_a_device : 0));
}

QString accessible_name(const Widget& model) {
    const QString caption = QString::fromStdString(model.look.text).trimmed();
    const QString name = QString::fromStdString(model.help.name);
    if (!name.isEmpty())
        return model.kind == Kind::label && !caption.isEmpty() ? name + ": " + caption : name;
    if (!caption.isEmpty() && model.kind != Kind::text_box) return caption;
    return QString::fromStdString(full_name(model));
}

void set_accessible_text(const Widget& model, QWidget& face) {
    face.setToolTip(tip_on_screen(model));
    face.setAccessibleName(accessible_name(model));
    std::string description = model.help.text;
    // The tip of a slider is its value, which a screen reader announces anyway.
    const bool tip_is_news = model.kind != Kind::slider || description.empty();
    if (tip_is_news && !model.look.tip.empty())
        description += (description.empty() ? "" : "\n") + model.look.tip;
    face.setAccessibleDescription(QString::fromStdString(description));
}

} // namespace zol::view::qt

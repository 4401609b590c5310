#include "view/qt/list_notes.h"

#include <QComboBox>
#include <QPainter>
#include <QStyleOptionComboBox>

#include <algorithm>

namespace zol::view::qt {
namespace {

const ItemNote* note_of(const Widget& model, int item) {
    const auto at = static_cast<std::size_t>(item);
    return item >= 0 && at < model.look.item_notes.size() ? &model.look.item_notes[at] : nullptr;
}

int blank(const QFontMetrics& metrics) { return metrics.horizontalAdvance(u'0'); }

// At the right of `place`, after `text`. Cut off at its left if it is too long, because device
// names differ at their end.
void draw_note(QPainter& painter, const QRect& place, const QString& text, const ItemNote& note) {
    const QFontMetrics metrics = painter.fontMetrics();
    const int gap = blank(metrics);
    const QRect rest = place.adjusted(metrics.horizontalAdvance(text) + 2 * gap, 0, -gap, 0);
    if (rest.width() < 4 * gap) return;
    painter.drawText(
        rest, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
        metrics.elidedText(QString::fromStdString(note.text), Qt::ElideLeft, rest.width()));
}

} // namespace

ListNotes::ListNotes(const Widget& model, QComboBox& list)
    : QStyledItemDelegate(&list), model_(model), list_(list) {}

int ListNotes::wanted_width() const {
    const QFontMetrics metrics(list_.font());
    int widest = 0;
    for (std::size_t i = 0; i < model_.look.item_notes.size(); ++i) {
        const QString both =
            QString::fromStdString(model_.look.items[i] + model_.look.item_notes[i].text);
        widest = std::max(widest, metrics.horizontalAdvance(both) + 6 * blank(metrics));
    }
    return widest;
}

void ListNotes::paint(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    const ItemNote* note = note_of(model_, index.row());
    const QPalette standard = option.palette;
    const QColor pale = standard.color(QPalette::Disabled, QPalette::Text);
    if (note && note->pale) item.palette.setColor(QPalette::Text, pale);
    QStyledItemDelegate::paint(painter, item, index);
    if (!note) return;
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(chosen       ? standard.color(QPalette::HighlightedText)
                    : note->pale ? pale
                                 : standard.color(QPalette::Text));
    draw_note(*painter, option.rect, index.data().toString(), *note);
    painter->restore();
}

void ListNotes::draw_on_closed_list(QPainter& painter) const {
    const ItemNote* note = note_of(model_, list_.currentIndex());
    if (!note) return;
    QStyleOptionComboBox option;
    option.initFrom(&list_);
    const QRect place = list_.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                      QStyle::SC_ComboBoxEditField, &list_);
    painter.setFont(list_.font());
    painter.setPen(list_.palette().color(QPalette::Disabled, QPalette::ButtonText));
    draw_note(painter, place, list_.currentText(), *note);
}

} // namespace zol::view::qt

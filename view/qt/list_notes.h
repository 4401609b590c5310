// What a list shows at the right of its items: the data's item notes.
#pragma once

#include "view/widget.h"

#include <QStyledItemDelegate>

class QComboBox;

namespace zol::view::qt {

// Draws the open list's rows, each with its note.
class ListNotes : public QStyledItemDelegate {
  public:
    ListNotes(const Widget& model, QComboBox& list);
    // How wide a row has to be for the widest item with its note; 0 without notes.
    int wanted_width() const;
    // The note of the item that the closed list shows, in the place that its text leaves.
    void draw_on_closed_list(QPainter& painter) const;

  private:
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    const Widget& model_;
    const QComboBox& list_;
};

} // namespace zol::view::qt

// Draws the notes of list items (Look::item_notes) at the right of their texts. It does not change
// the items.
#pragma once

#include "view/widget.h"

#include <QStyledItemDelegate>

class QComboBox;

namespace zol::view::qt {

// The delegate of the open list: draws each row with its note.
class ListNotes : public QStyledItemDelegate {
  public:
    ListNotes(const Widget& model, QComboBox& list);
    // The width that a row needs for the widest item with its note; 0 without notes.
    int wanted_width() const;
    // Draws the note of the selected item in the closed list, in the space that its text leaves.
    void draw_on_closed_list(QPainter& painter) const;

  private:
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    const Widget& model_;
    const QComboBox& list_;
};

} // namespace zol::view::qt

// The legend of the keys: small outlined caps with their words, in the free band between a panel
// and the last row of its window. It shows what the panel on view tells of its keys (Help::keys),
// and gives way to any control of the band.
#pragma once

#include "view/widget.h"

#include <QFont>
#include <QWidget>

#include <vector>

namespace zol::view::qt {

class KeyLegend : public QWidget {
  public:
    // `content` holds the window's controls.
    KeyLegend(const Widget& window, QWidget& content);
    // Pixels to a twip, and the size of plain text; call it with each layout of the window.
    void lay_out(double x_scale, double y_scale, double points);
    // Call it whenever a control comes or goes, or tells other keys.
    void catch_up();

  private:
    struct Item {
        QString key, does;
        QRectF cap, words;
    };
    void paintEvent(QPaintEvent* event) override;
    const Widget* panel_on_view() const;
    Place band() const;
    bool band_is_free() const;
    void arrange();
    double breadth_of(const Item& item, const QFont& font) const;
    bool fits_in_rows(const QFont& font, int rows) const;
    void place_items(int rows);

    const Widget& window_;
    double x_scale_ = 0, y_scale_ = 0, points_ = 0;
    std::vector<KeyHint> keys_; // as shown
    std::vector<Item> items_;
    bool has_room_ = false; // a legend that would be cut is left out
};

} // namespace zol::view::qt

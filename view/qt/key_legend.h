// The key legend: the keyboard shortcuts of the open panel (Help::keys), each as an outlined key
// cap with its meaning, in the free band between the panel and the last row of the window. It is
// hidden while a control is in that band or if the text does not fit.
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
    // `x_scale` and `y_scale` in pixels per twip, `points` for plain text. Call this after each
    // layout of the window.
    void lay_out(double x_scale, double y_scale, double points);
    // Call this after a control was shown or hidden or the shortcuts changed.
    void catch_up();

  private:
    struct Item {
        QString key, does;
        QRectF cap, words;
    };
    void paintEvent(QPaintEvent* event) override;
    const Widget* open_panel() const;
    Place band() const;
    bool band_is_free() const;
    void arrange();
    double breadth_of(const Item& item, const QFont& font) const;
    bool fits_in_rows(const QFont& font, int rows) const;
    void place_items(int rows);

    const Widget& window_;
    double x_scale_ = 0, y_scale_ = 0, points_ = 0;
    std::vector<KeyHint> keys_; // as displayed
    std::vector<Item> items_;
    bool has_room_ = false; // the legend fits into its band
};

} // namespace zol::view::qt

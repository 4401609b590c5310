#include "view/qt/key_legend.h"

#include "view/qt/controls.h"
#include "view/qt/face.h"
#include "view/qt/fit.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace zol::view::qt {
namespace {

// In units of the letter height.
constexpr double air_in_cap = 0.5, cap_to_words = 0.45, least_gap = 0.9, widest_gap = 2.4;
constexpr double cap_height = 1.35, row_height = 1.6;
// For two rows.
constexpr double low_cap_height = 1.15, low_row_height = 1.28;

double row_height_of(int rows) { return rows > 1 ? low_row_height : row_height; }

double em(const QFont& font) { return letters_height(font); }

// Key caps have a heavier font than the words.
QFont cap_font(QFont font) {
    font.setWeight(QFont::DemiBold);
    return font;
}

double foot_of(const Place& place) { return place.top + place.height; }

} // namespace

KeyLegend::KeyLegend(const Widget& window, QWidget& content) : QWidget(&content), window_(window) {
    setObjectName("Legend");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

const Widget* KeyLegend::open_panel() const {
    for (const Widget* w : window_.controls)
        if (w->kind == Kind::frame && w->look.visible && !w->help.keys.empty()) return w;
    return nullptr;
}

// In the window's present twips. Empty without an open panel.
Place KeyLegend::band() const {
    const Widget* panel = open_panel();
    if (!panel) return {};
    double last_row = 0;
    for (const Widget* w : window_.controls)
        if (w->parent == &window_) last_row = std::max(last_row, w->look.place.top);
    const Place& above = panel->look.place;
    return {above.left, foot_of(above), above.width, last_row - foot_of(above)};
}

bool KeyLegend::band_is_free() const {
    const Place free = band();
    return std::none_of(window_.controls.begin(), window_.controls.end(), [&](const Widget* w) {
        const Place& place = w->look.place;
        return w->parent == &window_ && w->look.visible && place.top < foot_of(free) &&
               foot_of(place) > free.top;
    });
}

void KeyLegend::lay_out(double x_scale, double y_scale, double points) {
    x_scale_ = x_scale, y_scale_ = y_scale, points_ = points;
    keys_.clear();
    catch_up();
}

void KeyLegend::catch_up() {
    const Widget* panel = open_panel();
    const bool shown = panel && band_is_free() && x_scale_ > 0;
    if (shown && keys_ != panel->help.keys) {
        keys_ = panel->help.keys;
        const Place place = band();
        setGeometry(qRound(place.left * x_scale_), qRound(place.top * y_scale_),
                    qRound(place.width * x_scale_), qRound(place.height * y_scale_));
        arrange();
    }
    const bool drawn = shown && has_room_;
    if (isHidden() == drawn) setVisible(drawn);
}

double KeyLegend::breadth_of(const Item& item, const QFont& font) const {
    const double caps = QFontMetricsF(cap_font(font)).horizontalAdvance(item.key);
    const double words = QFontMetricsF(font).horizontalAdvance(item.does);
    return caps + words + (2 * air_in_cap + cap_to_words) * em(font);
}

bool KeyLegend::fits_in_rows(const QFont& font, int rows) const {
    if (rows * row_height_of(rows) * em(font) > height()) return false;
    double left = 0;
    int row = 1;
    for (const Item& item : items_) {
        const double breadth = breadth_of(item, font);
        if (left > 0 && left + breadth > width()) left = 0, ++row;
        if (breadth > width()) return false;
        left += breadth + least_gap * em(font);
    }
    return row <= rows;
}

// One row or two, whichever allows the larger font.
void KeyLegend::arrange() {
    items_.clear();
    QStringList texts;
    for (const KeyHint& hint : keys_) {
        items_.push_back(
            {QString::fromStdString(hint.key), QString::fromStdString(hint.does), {}, {}});
        texts << items_.back().key + ": " + items_.back().does;
    }
    setAccessibleName(texts.join(", "));
    int rows = 1;
    QFont best;
    for (int tried = 1; tried <= 2; ++tried) {
        const QFont it = largest_font(face::font(), points_, *this,
                                      [&](const QFont& f) { return fits_in_rows(f, tried); });
        if (tried > 1 && it.pointSizeF() <= best.pointSizeF()) continue;
        best = it, rows = tried;
    }
    setFont(best);
    has_room_ = fits_in_rows(best, rows);
    place_items(rows);
    update();
}

// The gaps of a single row share the free width; two rows have the smallest gaps.
void KeyLegend::place_items(int rows) {
    double all = 0;
    for (const Item& item : items_)
        all += breadth_of(item, font());
    const double spare = rows * width() - all;
    const auto gaps = static_cast<double>(std::max<std::size_t>(1, items_.size() - 1));
    const double gap =
        rows > 1 ? least_gap * em(font())
                 : std::clamp(spare / gaps, least_gap * em(font()), widest_gap * em(font()));
    const double line = row_height_of(rows) * em(font());
    double left = 0, middle = (height() - (rows - 1) * line) / 2;
    const double cap = (rows > 1 ? low_cap_height : cap_height) * em(font());
    for (Item& item : items_) {
        const double breadth = breadth_of(item, font());
        if (left > 0 && left + breadth > width() + 0.5) left = 0, middle += line;
        const double words = QFontMetricsF(font()).horizontalAdvance(item.does);
        item.cap = QRectF(left, middle - cap / 2, breadth - words - cap_to_words * em(font()), cap);
        item.words = QRectF(left + breadth - words, middle - cap / 2, words + 1, cap);
        left += breadth + gap;
    }
}

void KeyLegend::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = face::scaled(face::outline_px, *this);
    const double radius = face::corner_px * face::measure(*this);
    for (const Item& item : items_) {
        painter.setPen(QPen(face::secondary, line));
        painter.drawRoundedRect(item.cap.adjusted(line / 2, line / 2, -line / 2, -line / 2), radius,
                                radius);
        painter.setFont(cap_font(font()));
        painter.setPen(face::ink);
        painter.drawText(item.cap, Qt::AlignCenter | Qt::TextSingleLine, item.key);
        painter.setFont(font());
        painter.setPen(face::secondary);
        painter.drawText(item.words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         item.does);
    }
}

} // namespace zol::view::qt

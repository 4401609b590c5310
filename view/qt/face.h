// The look of the program in one table: colours, sizes and font, and what is computed from them. A
// window table (view/windows/) specifies backgrounds, text colours, places and font sizes of its
// widgets, and this file does not change them; it has what the view adds when it draws.
//
// `ground` is a background colour, `ink` a text colour, `air` padding. The namespace `face` is this
// look; a variable `face` is the Qt control, window or menu item that shows a widget.
#pragma once

#include "view/windows/style.h"

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;
class QWidget;

namespace zol::view::qt::face {

constexpr QColor of(Colour colour) {
    return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

// Colours. Text and focus ring have a contrast of at least 4.5 : 1 to their background; lines have
// less.
inline constexpr QColor ground = of(windows::paper), ink = of(windows::ink);
inline constexpr QColor secondary(89, 98, 106); // units, legends, marks
inline constexpr QColor rule(195, 201, 206);    // lines, grooves, lamps that are off
inline constexpr QColor scroll_handle(150, 157, 163);
inline constexpr QColor accent(11, 95, 165);         // focus, open panel, selection
inline constexpr QColor light_accent(150, 205, 250); // focus ring on a dark background
inline constexpr QColor deep_accent(4, 36, 74); // focus ring on a background of medium lightness
inline constexpr QColor waiting(176, 0, 0);     // edge of a field with an edit mark
inline constexpr QColor fault(200, 0, 0);       // bar of a fault code
inline constexpr QColor steel = of(windows::steel); // buttons
inline constexpr QColor panel_open(214, 214, 214);  // the button of the open panel
inline constexpr QColor field_ground(255, 255, 255);
inline constexpr QColor chosen_ink(255, 255, 255);  // text on the accent
inline constexpr QColor trace_title(154, 160, 165); // title of the drawing surface
inline constexpr QColor trace_grid(44, 50, 56);

// Sizes in pixels on a screen of 1366 by 768; scaled() converts them for a window.
constexpr double corner_px = 4, lower_edge_px = 4, outline_px = 1;
constexpr double ring_px = 3, ring_gap_px = 1;
constexpr double groove_px = 6, handle_length_px = 18, handle_breadth_px = 30, marker_px = 11;
constexpr double fault_bar_px = 4, fault_outline_px = 2;
constexpr double record_air_px = 6; // padding left and right of a service record's text
constexpr double hatch_px = 9;      // distance of hatch lines

// Font: the factor on the font size of the table for some kinds of text, and the letter spacing.
constexpr double button_share = 1.25, heading_share = 1.1, record_share = 1.2;
constexpr double capitals_spacing_percent = 104;

// The text font with its fallbacks; all its digits have the same width.
QFont font();
// Sets weight and letter spacing for buttons, for headings (in capitals), or for titles.
void rank_as_button(QFont& font);
void rank_as_heading(QFont& font);
void rank_as_title(QFont& font);

// The scale of a window relative to a screen of 1366 by 768. A program window sets it in each
// layout; that of a box or the manual follows from its font.
double measure(const QWidget& widget);
void set_measure(QWidget& window, double measure);
// A size of the table above in whole pixels of the widget's window, at least 1.
int scaled(double px, const QWidget& widget);

// The background around the widget: that of its parent.
QColor ground_of(const QWidget& widget);
// The colour at `share` (0 to 1) between the two.
QColor mixed(const QColor& from, const QColor& to, double share);

// Returns `letters`, or black or white if the contrast of `letters` to `on` is below 4.5 : 1.
QColor readable(const QColor& on, const QColor& letters);

// The width that the focus ring and its gap need at each edge.
int ring_room(const QWidget& widget);
// Draws the focus ring inside the edges of `place`, in the shade of the accent with the best
// contrast to `on`.
void draw_ring(QPainter& painter, const QRect& place, const QColor& on, const QWidget& widget);
QColor ring_colour(const QColor& on);
// Draws a heading in the painter's pen colour, and a line along the lower edge of `line`.
void draw_heading(QPainter& painter, const QRect& line, const QString& text, const QWidget& widget);

} // namespace zol::view::qt::face

// The look of the program: its colours, sizes and type, in one table, and what is worked out of
// them. What the windows' tables specify (grounds, inks, places, type sizes) stays as it is there;
// this file holds what the view adds when it draws.
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

// Colours. Text and focus are told from their ground by at least 4.5 : 1; rules are quieter.
inline constexpr QColor ground = of(windows::paper), ink = of(windows::ink);
inline constexpr QColor secondary(89, 98, 106); // units, legends, marks
inline constexpr QColor rule(195, 201, 206);    // lines, grooves, lamps that are off
inline constexpr QColor scroll_handle(150, 157, 163);
inline constexpr QColor accent(11, 95, 165);         // focus, the panel on view, what is chosen
inline constexpr QColor light_accent(150, 205, 250); // the same on a dark ground,
inline constexpr QColor deep_accent(4, 36, 74);      // and on one as light as the accent
inline constexpr QColor waiting(176, 0, 0);          // edge of a field that waits for its number
inline constexpr QColor steel = of(windows::steel);  // buttons
inline constexpr QColor on_view(214, 214, 214);      // the button of the panel on view
inline constexpr QColor field_ground(255, 255, 255);
inline constexpr QColor chosen_ink(255, 255, 255);  // on the accent
inline constexpr QColor trace_title(154, 160, 165); // on the drawing surface
inline constexpr QColor trace_grid(44, 50, 56);

// Sizes in pixels on a screen of 1366 by 768; scaled() makes them those of a window.
constexpr double corner_px = 4, lower_edge_px = 4, outline_px = 1;
constexpr double ring_px = 3, ring_gap_px = 1;
constexpr double groove_px = 6, handle_length_px = 18, handle_breadth_px = 30, marker_px = 11;
constexpr double record_air_px = 6; // on either side of a record's text
constexpr double hatch_px = 9;      // from one hatch line to the next

// Type: the share of a table's size at which a part is set, and what ranks it.
constexpr double button_share = 1.25, heading_share = 1.1, record_share = 1.2;
constexpr double capitals_spacing_percent = 104;

// The text font with its fallbacks; figures of one width.
QFont font();
// Gives `font` the weight and spacing of buttons, or of headings, which are set in capitals.
void rank_as_button(QFont& font);
void rank_as_heading(QFont& font);
void rank_as_title(QFont& font);

// How much larger a window stands than it would on a screen of 1366 by 768. A window of the
// program sets it with each layout; any other has it from its type.
double measure(const QWidget& widget);
void set_measure(QWidget& window, double measure);
// A size of the table in whole pixels of the widget's window, at least 1.
int scaled(double px, const QWidget& widget);

// The colour that the widget stands on.
QColor ground_of(const QWidget& widget);
// Halfway and other shares of the way from one colour to another.
QColor mixed(const QColor& from, const QColor& to, double share);

// `letters` where they are told from what they stand on by 4.5 : 1, else black or white.
QColor readable(const QColor& on, const QColor& letters);

// What the ring of the focus takes at each edge, with its gap.
int ring_room(const QWidget& widget);
// Along the edges of `place`, in the accent that stands out from `on`.
void draw_ring(QPainter& painter, const QRect& place, const QColor& on, const QWidget& widget);
QColor ring_colour(const QColor& on);
// A heading in the painter's ink, over a rule along the lower edge of `line`.
void draw_heading(QPainter& painter, const QRect& line, const QString& text, const QWidget& widget);

} // namespace zol::view::qt::face

// The screen that holds the tray icon, and the panel on it.
#pragma once

#include <QPoint>
#include <QRect>
#include <QScreen>
#include <QSize>

namespace quillbox {

// Where a panel stands on its screen. In these functions rectangles and points count from the
// screen's top left corner.
enum class ScreenEdge { kBottom, kTop, kLeft, kRight };

// The edge along which the panel lies, told by its shape and place. A small one in a corner lies
// along the bottom or the top.
ScreenEdge EdgeOf(const QRect& panel, const QSize& screen);

// The panel drawn out over the whole edge, and up to it where a gap was left.
QRect OverWholeEdge(const QRect& panel, ScreenEdge edge, const QSize& screen);

// The strip along an edge that `workArea` leaves to panels, over the whole edge: the one that holds
// the icon, else the widest one. Empty when nothing is left.
QRect StripBesides(const QRect& workArea, const QSize& screen, const QPoint& icon);

// The place nearest to `place` at which the whole window is on the screen; the screen's corner when
// it is too large for that.
QPoint WithinScreen(const QPoint& place, const QSize& window, const QSize& screen);

// The screen below the pointer: whoever asks for a tray icon's window rests the pointer on the
// icon.
QScreen* ScreenOfIcon();

// The panel below the pointer, else what the screen's work area leaves to panels, over its whole
// edge. Counts from the screen's top left corner, in Qt's pixels. Empty when there is none.
QRect PanelOn(const QScreen& screen);

}  // namespace quillbox

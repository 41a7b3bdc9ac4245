// Where a panel stands on its screen. Rectangles and points count from the screen's top left
// corner.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace quillbox {

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

}  // namespace quillbox

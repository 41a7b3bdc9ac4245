// The panel below the pointer, on X11.
#pragma once

#include <QRect>
#include <optional>

#include "qt_tray/panel_rectangle.h"

namespace quillbox {

struct X11Panel {
  QRect Area;                          // on the server's screen, in its pixels
  std::optional<ScreenEdge> KeptEdge;  // the one that it keeps from other windows, if it says so
};

// The window below the pointer that says of itself that it is a panel, or that has taken in the
// tray icon of this program. Nothing when there is none, and on other window systems.
std::optional<X11Panel> PanelBelowPointer();

}  // namespace quillbox

// Which corner of the screen the tooltip window takes.
#pragma once

#include <optional>

#include "platform/tooltip_window.h"

namespace quillbox {

// The window's top left corner, beside the taskbar on whichever edge it stands; each coordinate is
// rounded once, a half to the even number. Nothing when no edge fits: the window then stays where
// the system put it. A screen without a taskbar has a rectangle of zeros.
std::optional<PixelPoint> PlaceTooltip(const PixelRect& taskbar, const PixelSize& screen,
                                       const PixelSize& window);

}  // namespace quillbox

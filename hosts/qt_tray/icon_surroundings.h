// The screen that holds the tray icon, and the panel on it.
#pragma once

#include <QRect>
#include <QScreen>

namespace quillbox {

// The screen below the pointer: whoever asks for a tray icon's window rests the pointer on the
// icon.
QScreen* ScreenOfIcon();

// The panel below the pointer, else what the screen's work area leaves to panels, over its whole
// edge. Counts from the screen's top left corner, in Qt's pixels. Empty when there is none.
QRect PanelOn(const QScreen& screen);

}  // namespace quillbox

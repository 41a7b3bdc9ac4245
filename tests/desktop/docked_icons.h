// What stands in the tray of a desktop.
#pragma once

#include <QPoint>
#include <vector>

#include "desktop/private_desktop.h"

namespace quillbox {

// The centres, on the screen, of this program's windows that a tray has taken in and shows.
std::vector<QPoint> DockedIcons(PrivateDesktop& desktop);

// Whether this program shows a menu.
bool MenuIsOpen(PrivateDesktop& desktop);

}  // namespace quillbox

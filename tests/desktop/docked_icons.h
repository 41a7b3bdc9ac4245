// What stands in the tray of an X server.
#pragma once

#include <QPoint>
#include <QString>
#include <vector>

namespace quillbox {

// The centres, on the screen, of this program's windows that a tray has taken in and shows.
std::vector<QPoint> DockedIcons(const QString& display);

// Whether this program shows a menu.
bool MenuIsOpen(const QString& display);

}  // namespace quillbox

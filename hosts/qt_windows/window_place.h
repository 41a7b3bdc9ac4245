// Where the program puts windows on the screen.
#pragma once

#include <QRect>

class QWidget;

namespace quillbox {

// Before it is shown: in the middle of `area`. Its frame is not there yet and is taken to be as
// wide as the one of the window that it belongs to.
void CentreWindow(QWidget* window, const QRect& area);

}  // namespace quillbox

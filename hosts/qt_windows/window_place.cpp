#include "qt_windows/window_place.h"

#include <QWidget>

namespace quillbox {

void CentreWindow(QWidget* window, const QRect& area) {
  const QWidget* const owner = window->parentWidget();
  const QSize frame = owner == nullptr
                          ? QSize(0, 0)
                          : owner->window()->frameGeometry().size() - owner->window()->size();
  window->adjustSize();
  const QSize size = window->size() + frame;
  window->move(area.x() + (area.width() - size.width()) / 2,
               area.y() + (area.height() - size.height()) / 2);
}

}  // namespace quillbox

// The windows of this process.
#pragma once

#include <QApplication>
#include <QWidget>

namespace quillbox {

// The one that is shown and has this name, or null.
inline QWidget* ShownWindow(const char* name) {
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == name && widget->isVisible()) return widget;
  }
  return nullptr;
}

// A closed window lives on until the event loop comes round.
inline void DeleteClosedWindows() {
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace quillbox

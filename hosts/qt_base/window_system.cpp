#include "qt_base/window_system.h"

#include <QGuiApplication>

namespace quillbox {

bool OnX11() {
  return QGuiApplication::platformName() == "xcb";
}

}  // namespace quillbox

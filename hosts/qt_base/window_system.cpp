#include "qt_base/window_system.h"

#include <QGuiApplication>

namespace quillbox {
namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

}  // namespace

bool OnX11() {
  return QGuiApplication::platformName() == "xcb";
}

bool OnX11Desktop() {
  return OnX11() && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
         qgetenv("XDG_SESSION_TYPE") != "wayland";
}

X11Preference::X11Preference()
    : chosen_(qEnvironmentVariableIsEmpty(kPlatform) && !qEnvironmentVariableIsEmpty("DISPLAY") &&
              !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
  if (chosen_) qputenv(kPlatform, "xcb;wayland");
}

X11Preference::~X11Preference() {
  if (chosen_) qunsetenv(kPlatform);
}

}  // namespace quillbox

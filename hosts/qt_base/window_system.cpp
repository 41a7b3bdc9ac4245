#include "qt_base/window_system.h"

#include <QGuiApplication>
#include <QPixmapCache>
#include <QString>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#ifdef __linux__
#include <sys/prctl.h>
#endif

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace quillbox {
namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

// Of the one DisplayNeeded there is; a handler of messages gets no context.
const char* programName = "";
QtMessageHandler handlerBefore = nullptr;
std::vector<std::pair<QtMsgType, QString>> heldBack;

// The toolkit gives up by a fatal message, after some others that tell what it tried.
void TakeMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtFatalMsg) {
    heldBack.emplace_back(type, text);
    return;
  }
  std::fprintf(stderr, "%s: there is no display that could be opened\n", programName);
  std::_Exit(1);
}

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

DisplayNeeded::DisplayNeeded(const char* program) {
  programName = program;
  handlerBefore = qInstallMessageHandler(TakeMessage);
}

DisplayNeeded::~DisplayNeeded() {
  qInstallMessageHandler(handlerBefore);
  for (const auto& [type, text] : std::exchange(heldBack, {})) {
    handlerBefore(type, QMessageLogContext(), text);
  }
}

void EndWithParent() {
#ifdef __linux__
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

// Qt keeps up to 10 MB of pictures in case that they are shown again. Other C libraries than this
// one give their heap back by themselves.
void GiveBackSpareMemory() {
  QPixmapCache::clear();
#ifdef __GLIBC__
  ::malloc_trim(0);
#endif
}

}  // namespace quillbox

// Shows the Reports window for the program that started it, and ends with it.
#include <sys/stat.h>

#include <QApplication>
#include <csignal>
#include <cstdlib>
#include <optional>

#include "cage.h"
#include "qt_base/icon_picture.h"
#include "qt_base/window_system.h"
#include "view_window.h"

int main(int argc, char* argv[]) {
  umask(077);
  std::signal(SIGPIPE, SIG_IGN);  // a program that ended is seen where it is read
  quillbox::PrepareEngine();
  auto display = std::make_optional<quillbox::DisplayNeeded>("quillbox-report-view");
  QApplication application(argc, argv);
  display.reset();
  QApplication::setApplicationName("Quillbox");
  QApplication::setDesktopFileName("quillbox");
  QApplication::setWindowIcon(quillbox::OwnPicture());
  const quillbox::ViewWindow window;
  const int result = QApplication::exec();
  // The engine would wait here for a page whose script never ends; nothing of it is worth keeping.
  std::_Exit(result);
}

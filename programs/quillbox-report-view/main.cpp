// Shows the Reports window for the program that started it, and ends with it.
#include <sys/stat.h>

#include <QApplication>
#include <csignal>
#include <cstdlib>
#include <optional>

#include "cage.h"
#include "qt_base/icon_picture.h"
#include "qt_base/window_system.h"
#include "system/process_start.h"
#include "view_window.h"

namespace {

constexpr const char* kHelp =
    "usage: quillbox-report-view\n"
    "Shows the Reports window of quillbox, which starts it and speaks with it over standard input\n"
    "and output. It is of no use by itself.\n"
    "  --help, -h   print this text\n"
    "  --version    print the version";

}  // namespace

int main(int argc, char* argv[]) {
  umask(077);
  if (quillbox::AnswersQuestion(argc, argv, {"quillbox-report-view", QUILLBOX_VERSION, kHelp})) {
    return 0;
  }
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

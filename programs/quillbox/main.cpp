// Builds the desktop host and the program, joins them, and runs the event loop.
#include <QApplication>
#include <QLocale>
#include <QSessionManager>
#include <QTimer>
#include <optional>

#include "build_values.h"
#include "desktop/desktop_host.h"
#include "desktop/region.h"
#include "platform/process.h"
#include "qt_base/icon_picture.h"
#include "qt_base/window_system.h"
#include "shell/program.h"
#include "system/autostart_entry.h"
#include "system/process_start.h"

namespace {

constexpr const char* kHelp =
    "usage: quillbox\n"
    "Watches AdSense accounts from the notification area. When it runs already, another start\n"
    "wakes it.\n"
    "  --help, -h   print this text\n"
    "  --version    print the version";

}  // namespace

int main(int argc, char* argv[]) {
  const mode_t ownFileMask = quillbox::ProtectProcess();
  if (quillbox::AnswersQuestion(argc, argv, {"quillbox", QUILLBOX_VERSION, kHelp})) return 0;
  auto preference = std::make_optional<quillbox::X11Preference>();
  auto display = std::make_optional<quillbox::DisplayNeeded>("quillbox");
  QApplication application(argc, argv);
  display.reset();
  preference.reset();
  QApplication::setApplicationName("Quillbox");
  QApplication::setDesktopFileName("quillbox");
  QApplication::setWindowIcon(quillbox::OwnPicture());
  // The program's face is its icon: closing a window ends nothing, and a signing out asks nothing.
  QApplication::setQuitOnLastWindowClosed(false);
  QObject::connect(&application, &QGuiApplication::saveStateRequest, [](QSessionManager& session) {
    session.setRestartHint(QSessionManager::RestartNever);
  });

  const quillbox::ApplicationFolder folder = quillbox::FindApplicationFolder();
  quillbox::DesktopHost desktop(folder, ownFileMask);
  const quillbox::Host ports = desktop.Ports();
  quillbox::Program program(ports, folder, quillbox::RegionOf(QLocale::system()),
                            quillbox::ThisBuild());
  desktop.Connect(program.Events());
  QTimer::singleShot(0, [&] {
    if (!ports.Instance.AnotherInstanceRuns()) {
      quillbox::ClearWorkingFiles(ports.Disk, folder);
      quillbox::AutostartEntry(ports.Disk, folder).FollowProgram();
    }
    program.Main();
  });
  return QApplication::exec();
}

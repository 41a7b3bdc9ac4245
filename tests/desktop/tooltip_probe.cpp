// A program that shows the tooltip window when it is told to.
//
//   tooltip_probe FOLDER TEXT...
//
// FOLDER holds the skin. Each TEXT is a line of what the window shows. The lines that it reads say
// what to do:
//
//   icon    puts an icon into the tray
//   show    shows the window, and writes the taskbar, the screen and the window's place and size
//   close   closes it, and writes "closed"
//
// Figures are in Qt's pixels: left top right bottom, width height, left top width height.
#include <QApplication>
#include <QFile>
#include <QSocketNotifier>
#include <QSystemTrayIcon>
#include <iostream>
#include <string>

#include "qt_tray/qt_tooltip_window.h"
#include "system/system_files.h"
#include "tooltip/tooltip_picture.h"

namespace quillbox {
namespace {

class Probe {
 public:
  Probe(std::string folder, std::string text)
      : folder_(std::move(folder)), text_(std::move(text)) {}

  void Obey(const std::string& order) {
    if (order == "icon") ShowIcon();
    if (order == "show") ShowWindow();
    if (order == "close") {
      window_.Close();
      std::cout << "closed" << std::endl;
    }
  }

 private:
  void ShowIcon() {
    QPixmap picture(22, 22);
    picture.fill(Qt::darkGreen);
    icon_.setIcon(picture);
    icon_.show();
  }

  void ShowWindow() {
    const TooltipSurroundings around = window_.Surroundings();
    window_.Show(
        BuildTooltipPicture(text_, files_, folder_ + "/skin.ini", folder_ + "/Skin.gif", window_));
    const PixelRect& taskbar = around.Taskbar;
    std::cout << taskbar.Left << ' ' << taskbar.Top << ' ' << taskbar.Right << ' ' << taskbar.Bottom
              << ' ' << around.Screen.Width << ' ' << around.Screen.Height;
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() != "TooltipWin") continue;
      const QRect place = widget->geometry();
      std::cout << ' ' << place.x() << ' ' << place.y() << ' ' << place.width() << ' '
                << place.height();
    }
    std::cout << std::endl;
  }

  std::string folder_, text_;
  SystemFiles files_;
  QtTooltipWindow window_;
  QSystemTrayIcon icon_;
};

std::string Lines(char** first, char** last) {
  std::string text;
  for (; first != last; ++first) text += (text.empty() ? "" : "\r\n") + std::string(*first);
  return text;
}

}  // namespace
}  // namespace quillbox

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc < 2) return 2;
  quillbox::Probe probe(argv[1], quillbox::Lines(argv + 2, argv + argc));
  // What is left unread must stay where it wakes the notifier.
  QFile input;
  if (!input.open(0, QIODevice::ReadOnly | QIODevice::Unbuffered)) return 2;
  const QSocketNotifier orders(0, QSocketNotifier::Read);
  QObject::connect(&orders, &QSocketNotifier::activated, [&] {
    const QByteArray order = input.readLine();
    if (order.isEmpty()) QApplication::quit();
    probe.Obey(order.trimmed().toStdString());
  });
  return QApplication::exec();
}

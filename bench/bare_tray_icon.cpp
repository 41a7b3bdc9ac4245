// The least that a Qt program with an icon in the tray can be: what Quillbox is measured against.
#include <QApplication>
#include <QIcon>
#include <QSystemTrayIcon>

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QSystemTrayIcon icon;
  icon.setIcon(QIcon(argv[1]));
  icon.show();
  return QApplication::exec();
}

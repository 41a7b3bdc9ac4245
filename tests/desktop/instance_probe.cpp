// A program that there is one of: tells by lines what it has found, for the test of single
// instance. The one that stays says "first", and "launched" for each later start, until its input
// ends.
#include <QCoreApplication>
#include <QSocketNotifier>
#include <iostream>

#include "desktop/local_single_instance.h"

namespace {

class Report : public quillbox::HostEvents {
 public:
  void TaskbarCreated() override {}
  void QuillboxLaunched() override { std::cout << "launched" << std::endl; }
  void Form_MouseMove(quillbox::TrayMouse) override {}
  const quillbox::Menu& TrayMenu() override { return menu_; }
  void MenuItemChosen(const quillbox::MenuItem&) override {}

 private:
  quillbox::Menu menu_;
};

}  // namespace

int main(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  quillbox::LocalSingleInstance instance;
  Report report;
  instance.Connect(report);
  if (instance.AnotherInstanceRuns()) {
    instance.WakeRunningInstance();
    return 0;
  }
  std::cout << "first" << std::endl;
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &QCoreApplication::quit);
  return QCoreApplication::exec();
}

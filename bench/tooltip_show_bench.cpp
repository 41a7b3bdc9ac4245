// How long the tooltip window takes from being asked for until it is painted, and what memory it
// keeps.
//
//   tooltip_show_bench SKIN_FOLDER [ROUNDS]
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "qt_tray/tooltip_window.h"
#include "system/system_files.h"
#include "tooltip/tooltip_picture.h"

namespace {

constexpr const char* kText =
    "Today's earnings: $12.34\r\nToday's page impressions: 1,234\r\nToday's clicks: 17\r\n"
    "Today's CTR: 1.38%\r\nLast refresh: 09:41";

// Stops the event loop when the window has been painted and what was painted has been sent.
class PaintWatch : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && object->objectName() == "TooltipWin") {
      QTimer::singleShot(0, [] { QApplication::exit(); });
    }
    return false;
  }
};

// Pages of the program's own, in KiB.
long OwnPages() {
  std::ifstream status("/proc/self/status");
  std::string word;
  long pages = 0;
  while (status >> word) {
    if (word == "RssAnon:") status >> pages;
  }
  return pages;
}

double ShowOnce(const std::string& skin, quillbox::Files& files, quillbox::TooltipWindow& window) {
  QElapsedTimer time;
  time.start();
  window.Show(
      quillbox::BuildTooltipPicture(kText, files, skin + "/skin.ini", skin + "/Skin.gif", window));
  QApplication::exec();
  QApplication::sync();
  const double milliseconds = static_cast<double>(time.nsecsElapsed()) / 1e6;
  window.Close();
  QApplication::processEvents();
  return milliseconds;
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  const int rounds = argc > 2 ? std::max(1, std::atoi(argv[2])) : 100;
  PaintWatch watch;
  application.installEventFilter(&watch);
  quillbox::SystemFiles files;
  quillbox::QtTooltipWindow window;

  const long before = OwnPages();
  const double first = ShowOnce(argv[1], files, window);
  const long afterFirst = OwnPages();
  std::vector<double> times;
  for (int i = 0; i < rounds; ++i) times.push_back(ShowOnce(argv[1], files, window));
  std::sort(times.begin(), times.end());
  std::printf("first %.1f ms, then min %.1f median %.1f max %.1f ms\n", first, times.front(),
              times[times.size() / 2], times.back());
  std::printf("own pages: %ld KiB before, %+ld after the first, %+ld after %d more\n", before,
              afterFirst - before, OwnPages() - before, rounds);
}

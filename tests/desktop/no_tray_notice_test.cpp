// When the person is told that there is no place for the icon.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>

#include "desktop/fake_bus_service.h"
#include "qt_tray/qt_tray_host.h"

namespace quillbox {
namespace {

constexpr std::chrono::milliseconds kWait(30);

QList<QMessageBox*> Notices() {
  QList<QMessageBox*> boxes;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() != "NoTrayNotice" || !window->isVisible()) continue;
    boxes.push_back(qobject_cast<QMessageBox*>(window));
  }
  return boxes;
}

// A timer that began later and waits for longer is over: so are the earlier ones.
void LetTheWaitPass() {
  bool passed = false;
  QTimer::singleShot(2 * kWait, [&] { passed = true; });
  ASSERT_TRUE(ComesAbout([&] { return passed; }));
}

TEST(NoTrayNotice, ComesOnceAndNotWhenATrayCameInTime) {
  static const struct Case {
    const char* acts;  // b: Begin, c: Cancel, w: the wait passes
    int boxes;
  } kCases[] = {{"w", 0},   {"b", 0},    {"bw", 1},   {"bbw", 1},
                {"bcw", 0}, {"bcbw", 1}, {"bwbw", 1}, {"bwcbw", 1}};
  for (const Case& c : kCases) {
    NoTrayNotice notice(kWait);
    for (const char* act = c.acts; *act != '\0'; ++act) {
      if (*act == 'b') notice.Begin();
      if (*act == 'c') notice.Cancel();
      if (*act == 'w') LetTheWaitPass();
    }
    EXPECT_EQ(Notices().size(), c.boxes) << c.acts;
    for (const QMessageBox* const box : Notices()) {
      EXPECT_FALSE(box->isModal());
      for (const char* const remedy : {"Notification Area", "System Tray", "AppIndicator"}) {
        EXPECT_TRUE(box->text().contains(remedy)) << remedy;
      }
    }
    qDeleteAll(Notices());
  }
}

}  // namespace
}  // namespace quillbox

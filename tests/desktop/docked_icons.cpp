#include "desktop/docked_icons.h"

#include <QRegularExpression>

namespace quillbox {
namespace {

// What the server tells of each visible window of this program that no window manager cares for.
QStringList OwnWindows(PrivateDesktop& desktop) {
  QStringList windows;
  const QString numbers =
      desktop.Output("xdotool", {"search", "--onlyvisible", "--class", "^quillbox"});
  for (const QString& number : numbers.split('\n', Qt::SkipEmptyParts)) {
    const QString told = desktop.Output("xwininfo", {"-id", number, "-tree", "-stats"});
    if (told.contains("Override Redirect State: yes")) windows += told;
  }
  return windows;
}

// Menu and tooltip do; an icon stands in a window of the tray.
bool StandsOnScreen(const QString& window) {
  return window.contains(QRegularExpression("Parent window id: .*the root window"));
}

int Figure(const QString& name, const QString& window) {
  return window.section(name, 1).section('\n', 0, 0).toInt();
}

QPoint Centre(const QString& window) {
  return {Figure("Absolute upper-left X:", window) + Figure("Width:", window) / 2,
          Figure("Absolute upper-left Y:", window) + Figure("Height:", window) / 2};
}

}  // namespace

std::vector<QPoint> DockedIcons(PrivateDesktop& desktop) {
  std::vector<QPoint> icons;
  for (const QString& window : OwnWindows(desktop)) {
    if (!StandsOnScreen(window)) icons.push_back(Centre(window));
  }
  return icons;
}

bool MenuIsOpen(PrivateDesktop& desktop) {
  for (const QString& window : OwnWindows(desktop)) {
    if (StandsOnScreen(window) && !window.contains("TooltipWin")) return true;
  }
  return false;
}

}  // namespace quillbox

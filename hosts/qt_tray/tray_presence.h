// Which tray our icon is to stand in.
#pragma once

#include <QTimer>
#include <cstdint>
#include <functional>

#include "qt_tray/status_notifier_watcher.h"
#include "qt_tray/x11_tray.h"

namespace quillbox {

struct Tray {
  // kUndecided: the StatusNotifier service has still to say whether there is a host.
  enum class Kind { kNone, kUndecided, kX11, kStatusNotifier };

  bool IsThere() const { return Type == Kind::kX11 || Type == Kind::kStatusNotifier; }
  bool operator==(const Tray&) const = default;

  Kind Type = Kind::kNone;
  std::uint32_t Window = 0;  // of an X11 tray
  int Announcements = 0;     // as X11Tray has them
  QString Service = {};      // the StatusNotifier service's owner
};

// A StatusNotifier host comes before an X11 tray, whichever was first: many panels are both, and
// the icon is to be the same thing at each start. A service that has not answered holds up the X11
// tray for a moment only, and takes no icon away from it; its host gets the icon when it does
// answer.
class TrayPresence {
 public:
  // `onChange` runs from the event loop when Current has become another tray, or none.
  explicit TrayPresence(std::function<void()> onChange);

  const Tray& Current() const { return current_; }
  StatusNotifierWatcher& Watcher() { return watcher_; }

 private:
  Tray Find() const;
  void BePatient();
  void Look();

  std::function<void()> onChange_;
  StatusNotifierWatcher watcher_;
  X11Tray x11_;
  QTimer patience_;  // with a service that has not answered
  QString asked_;    // the owner for which it ran
  Tray current_;
};

}  // namespace quillbox

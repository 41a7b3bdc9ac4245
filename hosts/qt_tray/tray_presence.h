// Whether there is a tray that our icon can stand in.
#pragma once

#include <functional>
#include <optional>

#include "qt_tray/status_notifier_tray.h"
#include "qt_tray/x11_tray.h"

namespace quillbox {

// Qt asks once a process which kind of tray there is, at the first use of its tray icon class, and
// stays with the answer. So nothing may use that class before Present is true, and from then on
// only a tray of Qt's kind counts. A panel can be both kinds, the one a moment before the other:
// which of them Qt found must be seen from what it made.
class TrayPresence {
 public:
  // `onChange` runs from the event loop when a tray has come, gone, or been replaced by another.
  explicit TrayPresence(const std::function<void()>& onChange);

  bool Present() const;

  // What Qt has chosen: an X11 dock, which holds a window of ours, or a desktop that draws the
  // icon.
  void QtChose(bool dock) { chosen_ = dock ? Kind::kX11 : Kind::kStatusNotifier; }

 private:
  enum class Kind { kStatusNotifier, kX11 };

  StatusNotifierTray statusNotifier_;
  X11Tray x11_;
  std::optional<Kind> chosen_;
};

}  // namespace quillbox

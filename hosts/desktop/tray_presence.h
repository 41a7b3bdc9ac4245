// Whether there is a tray that our icon can stand in.
#pragma once

#include <functional>
#include <optional>

#include "desktop/status_notifier_tray.h"
#include "desktop/x11_tray.h"

namespace quillbox {

// Qt asks once a process which kind of tray there is, at the first use of its tray icon class, and
// stays with the answer. So nothing may use that class before Present is true, and once Choose was
// called only a tray of the chosen kind counts.
class TrayPresence {
 public:
  // `onChange` runs from the event loop when a tray has come, gone, or been replaced by another.
  explicit TrayPresence(const std::function<void()>& onChange);

  bool Present() const;

  // Call just before the first use of Qt's tray icon class.
  void Choose();

  // Whether it is an X11 dock, which holds a window of ours; else the icon is drawn by the desktop.
  bool IsDock() const { return chosen_ == Kind::kX11; }

 private:
  enum class Kind { kStatusNotifier, kX11 };

  StatusNotifierTray statusNotifier_;
  X11Tray x11_;
  std::optional<Kind> chosen_;
};

}  // namespace quillbox

#include "qt_tray/tray_presence.h"

namespace quillbox {

TrayPresence::TrayPresence(const std::function<void()>& onChange)
    : statusNotifier_([this, onChange] {
        if (chosen_ != Kind::kX11) onChange();
      }),
      x11_([this, onChange] {
        if (chosen_ != Kind::kStatusNotifier) onChange();
      }) {}

bool TrayPresence::Present() const {
  if (!chosen_) return statusNotifier_.Present() || x11_.Present();
  return *chosen_ == Kind::kStatusNotifier ? statusNotifier_.Present() : x11_.Present();
}

}  // namespace quillbox

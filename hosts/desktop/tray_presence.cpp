#include "desktop/tray_presence.h"

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

void TrayPresence::Choose() {
  if (!chosen_) chosen_ = statusNotifier_.Present() ? Kind::kStatusNotifier : Kind::kX11;
}

}  // namespace quillbox

// A notification area that can be away, restart, and lose the icon.
#pragma once

#include <set>
#include <string>

#include "platform/tray_host.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

class SimulatedTray final : public TrayHost {
 public:
  // The trace must outlive the tray.
  explicit SimulatedTray(SimulatedTrace& trace) : trace_(trace) {}

  // Whether there is a tray at all. A tray that goes takes the icon with it; one that comes has
  // none.
  void SetPresent(bool present);
  bool Present() const { return present_; }

  // The icon is gone, the tray is still there.
  void LoseIcon() { hasIcon_ = false; }
  bool HasIcon() const { return hasIcon_; }

  // What the tray was given last, in an operation that it carried out or not.
  const TrayIconRecord& Record() const { return record_; }
  // What the host was told last that the icon stands for.
  const std::string& Tooltip() const { return tooltip_; }

  // The file holds no picture.
  void RefusePicture(const std::string& path) { refused_.insert(path); }

  // TrayHost
  bool Apply(TrayOperation operation, const TrayIconRecord& record) override;
  void TooltipChanged(const std::string& text) override;
  bool CanShowPicture(const std::string& path) override { return !refused_.contains(path); }

 private:
  void TellOperation(TrayOperation operation, bool done);
  void TellBalloon();

  SimulatedTrace& trace_;
  bool present_ = true;
  bool hasIcon_ = false;
  TrayIconRecord record_;
  std::string tooltip_;
  std::set<std::string> refused_;
};

}  // namespace quillbox

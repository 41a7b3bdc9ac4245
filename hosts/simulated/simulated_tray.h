// A notification area that can be away, restart, and lose the icon; and its menu.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <set>
#include <string>
#include <utility>

#include "platform/tray.h"
#include "simulated/simulated_time.h"
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

// The tray menu on the screen, in which a scripted person chooses.
struct MenuVisit {
  std::string Item{};                    // name or caption; empty: the menu is closed again
  std::chrono::milliseconds OpenFor{0};  // events go on meanwhile
};

class SimulatedTrayMenus final : public TrayMenuHost {
 public:
  using Chooser = std::function<void(const std::string& item)>;

  // Time and trace must outlive this. `choose` carries the choice of an item out.
  SimulatedTrayMenus(SimulatedTime& time, SimulatedTrace& trace, Chooser choose)
      : time_(time), trace_(trace), choose_(std::move(choose)) {}

  // Serves one opening of the menu, in the order of adding. Without one it is closed at once.
  void Add(MenuVisit visit) { visits_.push_back(std::move(visit)); }

  // Whether the system lets the program come to the foreground.
  void SetForegroundAllowed(bool allowed) { foregroundAllowed_ = allowed; }

  bool BringToForeground() override { return foregroundAllowed_; }
  void PopUp() override;

 private:
  SimulatedTime& time_;
  SimulatedTrace& trace_;
  Chooser choose_;
  std::deque<MenuVisit> visits_;
  bool foregroundAllowed_ = true;
};

}  // namespace quillbox

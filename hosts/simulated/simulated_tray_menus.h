// The tray menu on the screen, in which a scripted person chooses.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <utility>

#include "platform/tray_menu_host.h"
#include "simulated/simulated_time.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

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

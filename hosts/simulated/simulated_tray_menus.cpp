#include "simulated/simulated_tray_menus.h"

namespace quillbox {

void SimulatedTrayMenus::PopUp() {
  trace_.Add("menu", "opens");
  MenuVisit visit;
  if (!visits_.empty()) {
    visit = std::move(visits_.front());
    visits_.pop_front();
  }
  time_.RunUntil(time_.Now() + visit.OpenFor);
  if (!visit.Item.empty()) choose_(visit.Item);
  trace_.Add("menu", "closes");
}

}  // namespace quillbox

#include "simulated/simulated_tray.h"

namespace quillbox {
namespace {

const char* NameOf(TrayOperation operation) {
  switch (operation) {
    case TrayOperation::kAdd:
      return "add";
    case TrayOperation::kModify:
      return "modify";
    case TrayOperation::kDelete:
      return "delete";
  }
  return "";
}

}  // namespace

void SimulatedTray::SetPresent(bool present) {
  present_ = present;
  hasIcon_ = false;
}

bool SimulatedTray::Apply(TrayOperation operation, const TrayIconRecord& record) {
  record_ = record;
  const bool done = present_ && (operation == TrayOperation::kAdd || hasIcon_);
  TellOperation(operation, done);
  if (!done) return false;
  hasIcon_ = operation != TrayOperation::kDelete;
  const bool balloon = (record.uFlags & kNifInfo) != 0 && !record.szInfo.Text().empty();
  if (hasIcon_ && balloon) TellBalloon();
  return true;
}

void SimulatedTray::TellOperation(TrayOperation operation, bool done) {
  std::string text = NameOf(operation);
  const bool picture = operation != TrayOperation::kDelete && (record_.uFlags & kNifIcon) != 0;
  if (picture && !record_.hIcon.empty()) text += " " + record_.hIcon;
  trace_.Add("tray", done ? text : text + ", no icon");
}

void SimulatedTray::TellBalloon() {
  const std::string& title = record_.szInfoTitle.Text();
  const std::string& text = record_.szInfo.Text();
  trace_.Add("balloon", title + ": " + text, {{"title", title}, {"text", text}});
}

void SimulatedTray::TooltipChanged(const std::string& text) {
  tooltip_ = text;
  trace_.Add("tip", text);
}

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

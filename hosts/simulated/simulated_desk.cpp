#include "simulated/simulated_desk.h"

#include <stdexcept>

namespace quillbox {

std::string SimulatedEnvironment::Variable(std::string_view name) {
  const auto value = values_.find(name);
  return value == values_.end() ? std::string() : value->second;
}

void SimulatedStartUp::Make() {
  present_ = true;
  trace_.Add("start-up entry", "made");
}

void SimulatedStartUp::Remove() {
  present_ = false;
  trace_.Add("start-up entry", "removed");
}

TextSize SimulatedTooltip::Measure(std::string_view text, const TooltipFont& font) {
  constexpr double kTwipsPerPoint = 20;
  const double points = font.Points * static_cast<double>(text.size());
  return {kTwipsPerPoint * points * (font.Bold ? 0.6 : 0.5), kTwipsPerPoint * font.Points * 1.2};
}

void SimulatedTooltip::Show(const TooltipPicture& picture) {
  shown_ = picture;
  trace_.Add("tooltip", "opens");
}

void SimulatedTooltip::Close() {
  if (!shown_) return;
  shown_.reset();
  trace_.Add("tooltip", "closes");
}

void SimulatedOpener::Open(const std::string& target) {
  if (target.find("Passwd=") != std::string::npos)
    throw std::logic_error("a password for all to see");
  trace_.Keep(opened_, target);
  trace_.Add("open", target);
}

void SimulatedOpener::OpenPrivately(const std::string& address) {
  trace_.Keep(opened_, address);
  trace_.Add("open", address.substr(0, address.find('?')) + "?...");
}

void SimulatedExit::EndProcess() {
  trace_.Add("exit", "");
  throw ProcessEnded{};
}

void SimulatedBrowser::Navigate(const std::string& address) {
  loadedAt_ = time_.Now() + loadTime_;
  trace_.Add("navigate", address);
}

int SimulatedBrowser::ReadyState() {
  return time_.Now() >= loadedAt_ ? kPageLoaded : 1;
}

void SimulatedBrowser::SetBody(const std::string& html) {
  trace_.Add("body", html);
}

}  // namespace quillbox

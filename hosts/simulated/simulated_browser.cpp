#include "simulated/simulated_browser.h"

namespace quillbox {

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

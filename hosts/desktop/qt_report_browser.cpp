#include "desktop/qt_report_browser.h"

namespace quillbox {

void QtReportBrowser::Navigate(const std::string&) {}

int QtReportBrowser::ReadyState() {
  return kPageLoaded;
}

void QtReportBrowser::SetBody(const std::string&) {}

}  // namespace quillbox

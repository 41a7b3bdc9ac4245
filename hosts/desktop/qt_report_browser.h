// The browser of the Reports window on this desktop.
#pragma once

#include "platform/report_browser.h"

namespace quillbox {

class QtReportBrowser : public ReportBrowser {
 public:
  void Navigate(const std::string& address) override;
  int ReadyState() override;
  void SetBody(const std::string& html) override;
};

}  // namespace quillbox

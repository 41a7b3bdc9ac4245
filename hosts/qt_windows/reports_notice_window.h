// The Reports window without a page of its own: reports open in the default browser.
#pragma once

#include <QLabel>
#include <QPointer>
#include <functional>

#include "qt_windows/reports_form.h"
#include "qt_windows/reports_window.h"

namespace quillbox {

class AddressOpener;
class ReportsWin;

class ReportsNoticeWindow : public ShownReports {
 public:
  // `closed` is called once when the person closes the window; it may destroy this object. The
  // other arguments must outlive it.
  ReportsNoticeWindow(ReportsWin& form, AddressOpener& opener, std::function<void()> closed);
  ~ReportsNoticeWindow() override;

  void Navigate(const std::string& address) override;
  int ReadyState() override { return kPageLoaded; }
  void SetBody(const std::string& html) override;

 private:
  ReportsWin& form_;
  AddressOpener& opener_;
  std::function<void()> closed_;
  QPointer<QLabel> line_;
  QPointer<ReportsForm> window_;
};

}  // namespace quillbox

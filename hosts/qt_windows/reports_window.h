// The Reports window, in whichever way it can be shown here.
#pragma once

#include <QLabel>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>

#include "platform/forms.h"
#include "qt_windows/reports_form.h"

namespace quillbox {

class AddressOpener;
class ReportsWin;

// A process of its own, so that the web engine never enters this one; where its program is not
// installed or can't run, a window of this process that leaves the page to the default browser.
class ReportsWindow : public ReportBrowser {
 public:
  // `viewProgram`: full path of the process's program, in the host's bytes. `opener` must outlive
  // the window.
  ReportsWindow(std::string viewProgram, AddressOpener& opener);
  ~ReportsWindow() override;

  // `gone` is called once when the window has gone by itself, not by Unload; `form` must live
  // until then. Nothing when it is loaded.
  void Load(ReportsWin& form, std::function<void()> gone);
  bool Loaded() const { return shown_ != nullptr; }
  void Unload();

  // ReportBrowser
  void Navigate(const std::string& address) override;
  int ReadyState() override;
  void SetBody(const std::string& html) override;

 private:
  void ShowHere();
  void Gone();

  std::string viewProgram_;
  AddressOpener& opener_;
  std::unique_ptr<ReportBrowser> shown_;  // its window is on the screen, or on its way there
  ReportsWin* form_ = nullptr;
  std::function<void()> gone_;
};

// The window without a page of its own: reports open in the default browser.
class ReportsNoticeWindow : public ReportBrowser {
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

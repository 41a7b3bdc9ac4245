#include "qt_windows/reports_window.h"

#include <unistd.h>

#include <utility>

#include "qt_windows/report_view_process.h"
#include "qt_windows/reports_notice_window.h"

namespace quillbox {

ReportsWindow::ReportsWindow(std::string viewProgram, AddressOpener& opener)
    : viewProgram_(std::move(viewProgram)), opener_(opener) {}

ReportsWindow::~ReportsWindow() = default;

void ReportsWindow::Load(ReportsWin& form, std::function<void()> gone) {
  if (Loaded()) return;
  form_ = &form;
  gone_ = std::move(gone);
  if (::access(viewProgram_.c_str(), X_OK) != 0) return ShowHere();
  shown_ = std::make_unique<ReportViewProcess>(viewProgram_, form, [this](ReportViewEnd end) {
    if (end == ReportViewEnd::kNeverReady) {
      ShowHere();
    } else {
      Gone();
    }
  });
}

void ReportsWindow::ShowHere() {
  shown_ = std::make_unique<ReportsNoticeWindow>(*form_, opener_, [this] { Gone(); });
}

// What the window is destroyed by is often itself, so it goes last.
void ReportsWindow::Gone() {
  const std::unique_ptr<ShownReports> shown = std::move(shown_);
  if (gone_) std::exchange(gone_, {})();
}

void ReportsWindow::Unload() {
  gone_ = {};
  shown_.reset();
}

void ReportsWindow::Navigate(const std::string& address) {
  if (shown_) shown_->Navigate(address);
}

int ReportsWindow::ReadyState() {
  return shown_ ? shown_->ReadyState() : kPageLoaded;
}

void ReportsWindow::SetBody(const std::string& html) {
  if (shown_) shown_->SetBody(html);
}

}  // namespace quillbox

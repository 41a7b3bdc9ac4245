#include "qt_windows/reports_window.h"

#include <unistd.h>

#include <QFile>
#include <utility>

#include "platform/surroundings.h"
#include "qt_base/unicode_text.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/form_dialog.h"
#include "qt_windows/report_view_process.h"
#include "reports/reports_win.h"

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
  const std::unique_ptr<ReportBrowser> shown = std::move(shown_);
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

namespace {

constexpr int kMargin = 8;  // as a page's

QLabel* NewLine() {
  auto* const line = new QLabel("Reports open in your web browser.");
  line->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  line->setWordWrap(true);
  line->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  line->setMargin(kMargin);
  line->setFont(ReportsFont());
  line->setPalette(PaperPalette());
  line->setAutoFillBackground(true);
  return line;
}

}  // namespace

ReportsNoticeWindow::ReportsNoticeWindow(ReportsWin& form, AddressOpener& opener,
                                         std::function<void()> closed)
    : form_(form),
      opener_(opener),
      closed_(std::move(closed)),
      line_(NewLine()),
      window_(new ReportsForm(form.Fields(), line_)) {
  new CloseWatcher(window_, [this] {
    if (closed_) std::exchange(closed_, {})();
  });
  form_.WatchBusy([this] {
    if (window_) window_->ShowBusy(form_.Busy());
  });
  window_->Present();
}

ReportsNoticeWindow::~ReportsNoticeWindow() {
  closed_ = {};
  form_.WatchBusy({});
  if (!window_) return;
  // It is deleted later, when the fields may be gone.
  ReleaseControls(window_);
  window_->close();
}

void ReportsNoticeWindow::Navigate(const std::string& address) {
  if (address == "about:blank") return;
  opener_.Open(address);
  if (line_) {
    line_->setTextFormat(Qt::PlainText);
    line_->setText("The report was opened in your web browser: " +
                   QFile::decodeName(address.c_str()));
  }
}

void ReportsNoticeWindow::SetBody(const std::string& html) {
  if (!line_) return;
  line_->setTextFormat(Qt::RichText);
  line_->setText(ToUnicode(html));
}

}  // namespace quillbox

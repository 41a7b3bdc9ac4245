#include "qt_windows/reports_notice_window.h"

#include <QFile>
#include <utility>

#include "platform/surroundings.h"
#include "qt_base/unicode_text.h"
#include "qt_windows/choice_panel.h"
#include "qt_windows/close_watcher.h"
#include "qt_windows/form_binding.h"
#include "reports/reports_win.h"

namespace quillbox {
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

// The Reports window in a process of its own.
#pragma once

#include <QProcess>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "platform/forms.h"
#include "qt_windows/report_messages.h"

namespace quillbox {

class ReportsWin;

enum class ReportViewEnd { kGone, kNeverReady };

// Starts the process at once. It is ended when this object goes: told to close, and killed when it
// doesn't. A process that doesn't answer for some 15 seconds is killed too.
class ReportViewProcess : public ReportBrowser {
 public:
  // `ended` is called from the event loop, once, when the process has ended by itself; it may
  // destroy this object. `form` must outlive it.
  ReportViewProcess(const std::string& program, ReportsWin& form,
                    std::function<void(ReportViewEnd)> ended);
  ~ReportViewProcess() override;

  void Navigate(const std::string& address) override;
  int ReadyState() override;
  void SetBody(const std::string& html) override;

 private:
  void FollowForm();
  void LeaveForm();
  void Take(const QJsonObject& message);
  void TakeSelection(const QJsonObject& message);
  void Ping();
  void Send(const QJsonObject& message);
  void Ended();

  ReportsWin& form_;
  std::function<void(ReportViewEnd)> ended_;
  std::unique_ptr<QProcess> process_;
  ReportMessages messages_;
  QTimer pings_;
  int unanswered_ = 0;
  bool ready_ = false;
  int wantedPage_ = 0, loadedPage_ = 0;  // numbers of navigations
};

}  // namespace quillbox

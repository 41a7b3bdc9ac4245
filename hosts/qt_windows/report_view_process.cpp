#include "qt_windows/report_view_process.h"

#include <QFile>
#include <chrono>
#include <utility>

#include "qt_base/unicode_text.h"
#include "qt_base/window_system.h"
#include "reports/reports_win.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr auto kPingEvery = 5s;
constexpr int kMostUnanswered = 3;
constexpr auto kTimeToClose = 2s;
constexpr qsizetype kLongestMessage = 65536;  // a view has little to say

// The process closes its window, or is killed; nobody waits for either.
void LetEnd(std::unique_ptr<QProcess> owned) {
  QProcess* const process = owned.release();
  process->disconnect();
  if (process->state() == QProcess::NotRunning) return process->deleteLater();
  QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
  process->write(MessageLine({{"do", "close"}}));
  process->closeWriteChannel();
  QTimer::singleShot(kTimeToClose, process, [process] { process->kill(); });
}

}  // namespace

ReportViewProcess::ReportViewProcess(const std::string& program, ReportsWin& form,
                                     std::function<void(ReportViewEnd)> ended)
    : form_(form),
      ended_(std::move(ended)),
      process_(std::make_unique<QProcess>()),
      messages_(kLongestMessage) {
  process_->setProgram(QFile::decodeName(program.c_str()));
  process_->setStandardErrorFile(QProcess::nullDevice());
  process_->setChildProcessModifier(EndWithParent);
  QObject::connect(process_.get(), &QProcess::readyReadStandardOutput, &pings_, [this] {
    for (const QJsonObject& message : messages_.Take(process_->readAllStandardOutput())) {
      Take(message);
    }
  });
  QObject::connect(process_.get(), &QProcess::finished, &pings_, [this] { Ended(); });
  QObject::connect(process_.get(), &QProcess::errorOccurred, &pings_,
                   [this](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) Ended();
                   });
  QObject::connect(&pings_, &QTimer::timeout, &pings_, [this] { Ping(); });
  process_->start();
  pings_.start(kPingEvery);
  FollowForm();
}

ReportViewProcess::~ReportViewProcess() {
  LeaveForm();
  LetEnd(std::move(process_));
}

void ReportViewProcess::FollowForm() {
  const auto follow = [this](auto& field) {
    field.Watch([this, &field] { Send(FieldMessage(field)); });
    Send(FieldMessage(field));
  };
  ForEachList(form_.Fields(), follow);
  follow(form_.Fields().Command1);
  form_.WatchBusy([this] { Send({{"do", "busy"}, {"to", form_.Busy()}}); });
}

void ReportViewProcess::LeaveForm() {
  ForEachList(form_.Fields(), [](ListField& list) { list.Watch({}); });
  form_.Fields().Command1.Watch({});
  form_.WatchBusy({});
}

void ReportViewProcess::Take(const QJsonObject& message) {
  const QString what = message["did"].toString();
  if (what == "ready") ready_ = true;
  if (what == "pong") unanswered_ = 0;
  if (what == "loaded") loadedPage_ = message["page"].toInt();
  if (what == "select") TakeSelection(message);
  // From the event loop: making the report pumps events, and the window may go meanwhile.
  if (what == "click") {
    QMetaObject::invokeMethod(
        &pings_, [this] { form_.Fields().Command1.Click(); }, Qt::QueuedConnection);
  }
}

void ReportViewProcess::TakeSelection(const QJsonObject& message) {
  ListField* const list = FindList(form_.Fields(), message["name"].toString());
  const int index = message["index"].toInt(-1);
  if (list == nullptr || index < 0 || index >= static_cast<int>(list->Items().size())) return;
  list->Select(static_cast<std::size_t>(index));
}

void ReportViewProcess::Ping() {
  if (unanswered_ >= kMostUnanswered) return process_->kill();
  ++unanswered_;
  Send({{"do", "ping"}});
}

void ReportViewProcess::Send(const QJsonObject& message) {
  process_->write(MessageLine(message));
}

void ReportViewProcess::Ended() {
  if (ended_) std::exchange(ended_, {})(ready_ ? ReportViewEnd::kGone : ReportViewEnd::kNeverReady);
}

void ReportViewProcess::Navigate(const std::string& address) {
  Send({{"do", "navigate"},
        {"page", ++wantedPage_},
        {"address", QFile::decodeName(address.c_str())}});
}

int ReportViewProcess::ReadyState() {
  return loadedPage_ == wantedPage_ ? kPageLoaded : 1;
}

void ReportViewProcess::SetBody(const std::string& html) {
  Send({{"do", "body"}, {"html", ToUnicode(html)}});
}

}  // namespace quillbox

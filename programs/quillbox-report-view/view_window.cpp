#include "view_window.h"

#include <unistd.h>

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QUrl>
#include <cerrno>
#include <utility>

#include "qt_base/unicode_text.h"
#include "system/streams.h"

namespace quillbox {
namespace {

constexpr qsizetype kLongestMessage = qsizetype{64} * 1024 * 1024;

}  // namespace

ProgramLink::ProgramLink(std::function<void(const QJsonObject&)> take, std::function<void()> gone)
    : take_(std::move(take)),
      gone_(std::move(gone)),
      messages_(kLongestMessage),
      notifier_(STDIN_FILENO, QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, [this] { Read(); });
}

void ProgramLink::Read() {
  char bytes[65536];
  const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
  if (count < 0 && errno == EINTR) return;
  if (count <= 0) {
    notifier_.setEnabled(false);
    gone_();
    return;
  }
  for (const QJsonObject& message : messages_.Take({bytes, count})) take_(message);
}

void ProgramLink::Send(const QJsonObject& message) {
  const QByteArray line = MessageLine(message);
  WriteAll(STDOUT_FILENO, {line.data(), static_cast<std::size_t>(line.size())});
}

namespace {

constexpr char kBlank[] = "about:blank";

// The engine's own menu offers to save, to go back and to look at the source.
QWebEngineView* NewPageView(CagedPage& page) {
  auto* const view = new QWebEngineView;
  view->setPage(&page);
  view->setContextMenuPolicy(Qt::CustomContextMenu);
  view->setAccessibleName("Report");
  view->setAcceptDrops(false);
  return view;
}

}  // namespace

ViewWindow::ViewWindow()
    : page_(profile_),
      link_([this](const QJsonObject& message) { Take(message); }, [] { QApplication::quit(); }) {
  Restrict(profile_, files_, interceptor_);
  page_.Navigate(QUrl(kBlank), {});
  QWebEngineView* const view = NewPageView(page_);
  form_ = new ReportsForm(fields_, view);
  form_->setContextMenuPolicy(Qt::CustomContextMenu);
  for (QWidget* const place : {static_cast<QWidget*>(view), static_cast<QWidget*>(form_)}) {
    QObject::connect(place, &QWidget::customContextMenuRequested, place,
                     [this, place](const QPoint& at) { ShowMenu(place->mapToGlobal(at)); });
  }
  TellProgram();
  form_->Present();
  ProgramLink::Send({{"did", "ready"}});
}

void ViewWindow::TellProgram() {
  ForEachList(fields_, [](ListField& list) {
    list.Clicked = [&list] {
      ProgramLink::Send({{"did", "select"},
                         {"name", ToUnicode(list.Name())},
                         {"index", static_cast<int>(list.Selected().value_or(0))}});
    };
  });
  fields_.Command1.Clicked = [] { ProgramLink::Send({{"did", "click"}, {"name", "Command1"}}); };
}

void ViewWindow::Take(const QJsonObject& message) {
  const QString what = message["do"].toString();
  if (what == "field") TakeField(message, fields_);
  if (what == "busy" && form_) form_->ShowBusy(message["to"].toBool());
  if (what == "navigate") Navigate(message);
  if (what == "body") {
    reportShown_ = false;
    page_.SetBody(message["html"].toString());
  }
  if (what == "ping") ProgramLink::Send({{"did", "pong"}});
  if (what == "close" && form_) form_->close();
}

void ViewWindow::Navigate(const QJsonObject& message) {
  const int page = message["page"].toInt();
  const QString address = message["address"].toString();
  reportShown_ = address != kBlank;
  files_.SetPage(address);
  page_.Navigate(address == kBlank ? QUrl(kBlank) : PageAddress(), [page] {
    ProgramLink::Send({{"did", "loaded"}, {"page", page}});
  });
}

void ViewWindow::ShowMenu(const QPoint& place) {
  auto* const menu = new QMenu(form_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* const copy = menu->addAction("Copy figures", form_, [this] {
    page_.AskFigures([](const QString& figures) {
      if (!figures.isEmpty()) QGuiApplication::clipboard()->setText(figures);
    });
  });
  copy->setEnabled(reportShown_);
  menu->popup(place);
}

}  // namespace quillbox

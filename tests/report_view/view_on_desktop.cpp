#include "report_view/view_on_desktop.h"

#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <fstream>

namespace quillbox {
namespace {

std::vector<int> Processes(const QStringList& wanted) {
  QProcess pgrep;
  pgrep.start("pgrep", wanted);
  pgrep.waitForFinished();
  std::vector<int> found;
  for (const QByteArray& line : pgrep.readAllStandardOutput().split('\n')) {
    if (!line.isEmpty()) found.push_back(line.toInt());
  }
  return found;
}

}  // namespace

ViewOnDesktop::ViewOnDesktop() : ContextOnState(forms_, window_) {
  qputenv("DISPLAY", desktop_.Display().toUtf8());
  qputenv("QT_QPA_PLATFORM", "xcb");
  // The engine has no sandbox for root.
  if (::geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  for (const char* const name : {"graphs.js", "NiceTitle.js", "NiceTitleAutoWidth.css"}) {
    QFile::copy(QString(QUILLBOX_REPORT_FILES "/") + name, pageFolder_.filePath(name));
  }
}

bool ViewOnDesktop::Until(const std::function<bool()>& isSo, int longest) {
  QElapsedTimer time;
  time.start();
  while (!isSo()) {
    if (time.hasExpired(longest)) return false;
    QApplication::processEvents(QEventLoop::AllEvents, 20);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QThread::msleep(5);
  }
  return true;
}

bool ViewOnDesktop::Opens() {
  form_.Load();
  return Until([this] {
    desktop_.NudgeWindowManager();
    return WindowIsShown();
  });
}

bool ViewOnDesktop::WindowIsShown() {
  return !desktop_.Output("xdotool", {"search", "--onlyvisible", "--name", "^Quillbox Reports$"})
              .isEmpty();
}

// As two commands: in one, the key would go to the window alone and not to its manager.
void ViewOnDesktop::Press(const QString& key) {
  desktop_.Output("xdotool", {"search", "--onlyvisible", "--name", "^Quillbox Reports$",
                              "windowfocus", "--sync"});
  desktop_.Output("xdotool", {"key", key});
}

void ViewOnDesktop::ClickPage() {
  desktop_.Output("xdotool", {"mousemove", "400", "440", "click", "1"});
}

std::vector<int> ViewOnDesktop::Views() {
  return Processes({"-P", QString::number(::getpid()), "quillbox-report"});
}

bool ViewOnDesktop::EngineRuns() {
  return !Processes({"-g", "0", "QtWebEngine"}).empty();
}

bool ViewOnDesktop::Shows(const std::string& html, int longest) {
  std::ofstream(PageFile()) << html;
  window_.Navigate(PageFile());
  return Until([this] { return window_.ReadyState() == kPageLoaded; }, longest);
}

std::string ViewOnDesktop::ColourOfPage() {
  const QString colour = desktop_.Output(
      "sh", {"-c", "import -window root -crop 1x1+400+440 -depth 8 rgb:- | od -An -tx1"});
  return "#" + colour.simplified().remove(' ').toStdString();
}

}  // namespace quillbox

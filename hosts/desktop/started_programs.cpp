#include "desktop/started_programs.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <string_view>

#include "qt_base/unicode_text.h"
#include "qt_base/window_system.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

struct HandOver {
  QString Program;   // full path of the fetch program
  QString Command;   // its argument
  std::string Line;  // its input, without the line end
  QProcessEnvironment Environment = QProcessEnvironment::systemEnvironment();
  mode_t FileMask = 0;  // under which it starts
};

// It is for the case that the program can't be started, or doesn't read.
constexpr int kLongestMs = 2000;

// To outlive this program: out of the reach of what ends the others of its terminal or session.
void SetUp(QProcess& process, const HandOver& handOver) {
  process.setProgram(handOver.Program);
  process.setArguments({handOver.Command});
  process.setProcessEnvironment(handOver.Environment);
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  process.setChildProcessModifier([fileMask = handOver.FileMask] {
    ::umask(fileMask);
    ::setsid();
  });
}

// Starts it; it goes on when this program ends. The line has left this program when this returns,
// since the program may end right then; it is to be short enough for a pipe (64 KiB), or this waits
// until it is read, two seconds at most. That it can't be started shows nothing.
// Nobody owns the process: destroying it would end what runs.
void HandToFetchProgram(const HandOver& handOver) {
  auto* const process = new QProcess;
  SetUp(*process, handOver);
  QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
  process->start();
  process->write((handOver.Line + "\n").c_str());
  process->closeWriteChannel();
  process->waitForBytesWritten(kLongestMs);
  if (process->state() == QProcess::NotRunning) process->deleteLater();
}

constexpr char kNoProgram[] =
    "The program \"dl\", which asks for access, is missing or has broken down.";

using Variables = std::vector<std::pair<std::string, std::string>>;

QProcessEnvironment ChangedEnvironment(const Variables& changes) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const auto& [name, value] : changes) {
    if (value.empty()) {
      environment.remove(ToUnicode(name));
    } else {
      environment.insert(ToUnicode(name), ToUnicode(value));
    }
  }
  return environment;
}

// The last paragraph says why; what stands before was of use while it ran.
std::string Reason(const QByteArray& words) {
  const QString text = QString::fromUtf8(words).trimmed();
  return ToCodePageWithGaps(text.mid(text.lastIndexOf("\n\n") + 1).simplified());
}

GrantAnswer AnswerOf(QProcess& ended) {
  const bool exited =
      ended.error() == QProcess::UnknownError && ended.exitStatus() == QProcess::NormalExit;
  const std::string name = ended.readAllStandardOutput().trimmed().toStdString();
  if (exited && ended.exitCode() == 0 && IsGrantName(name)) return {name, ""};
  const std::string reason = exited ? Reason(ended.readAllStandardError()) : "";
  return {"", reason.empty() ? kNoProgram : reason};
}

class Asking final : public GrantAsking {
 public:
  Asking(const std::string& program, mode_t fileMask, const GrantQuestion& question,
         std::function<void(const GrantAnswer&)> done)
      : process_(std::make_unique<QProcess>()), done_(std::move(done)) {
    process_->setProgram(QFile::decodeName(program.c_str()));
    process_->setArguments({"authorize", ToUnicode(question.Email)});
    process_->setProcessEnvironment(ChangedEnvironment(question.Environment));
    process_->setStandardInputFile(QProcess::nullDevice());
    process_->setChildProcessModifier([fileMask] {
      ::umask(fileMask);
      EndWithParent();
    });
    // From the event loop: `done` may destroy this.
    QObject::connect(
        process_.get(), &QProcess::finished, &here_, [this] { Ended(); }, Qt::QueuedConnection);
    QObject::connect(
        process_.get(), &QProcess::errorOccurred, &here_,
        [this] {
          if (process_->error() == QProcess::FailedToStart) Ended();
        },
        Qt::QueuedConnection);
    process_->start();
  }

  // It is killed; nobody waits for that.
  ~Asking() override {
    process_->disconnect();
    if (process_->state() == QProcess::NotRunning) return;
    QProcess* const process = process_.release();
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->kill();
  }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;

 private:
  void Ended() {
    const auto done = std::exchange(done_, {});
    if (done) done(AnswerOf(*process_));
  }

  QObject here_;
  std::unique_ptr<QProcess> process_;
  std::function<void(const GrantAnswer&)> done_;
};

}  // namespace

std::unique_ptr<GrantAsking> QtGrantAsker::Ask(const GrantQuestion& question,
                                               std::function<void(const GrantAnswer&)> done) {
  return std::make_unique<Asking>(program_, fileMask_, question, std::move(done));
}

void QtGrantAsker::Forget(const std::string& name, const Variables& environment) {
  HandToFetchProgram({.Program = QFile::decodeName(program_.c_str()),
                      .Command = "revoke",
                      .Line = name,
                      .Environment = ChangedEnvironment(environment),
                      .FileMask = fileMask_});
}

namespace {

bool IsAddress(const std::string& target) {
  for (const std::string_view scheme : {"https://", "http://", "mailto:"}) {
    if (target.starts_with(scheme)) return true;
  }
  return false;
}

}  // namespace

void QtAddressOpener::Open(const std::string& target) {
  if (IsAddress(target)) HandToDesktop(ToUnicode(target));
  if (IsOwnFile(target)) HandToDesktop(QFile::decodeName(target.c_str()));
}

void QtAddressOpener::OpenPrivately(const std::string& address) {
  HandToFetchProgram({.Program = QFile::decodeName(folder_.ProgramFile("dl").c_str()),
                      .Command = "open",
                      .Line = address,
                      .FileMask = fileMask_});
}

// Qt's own way to open an address writes it to the session's log when that fails, and recodes it.
void QtAddressOpener::HandToDesktop(const QString& target) const {
  QProcess opener;
  opener.setProgram("xdg-open");
  opener.setArguments({target});
  opener.setStandardInputFile(QProcess::nullDevice());
  opener.setStandardOutputFile(QProcess::nullDevice());
  opener.setStandardErrorFile(QProcess::nullDevice());
  // Qt changes nothing in a process that it detaches; nothing else creates files meanwhile.
  const mode_t own = ::umask(fileMask_);
  opener.startDetached();
  ::umask(own);
}

bool QtAddressOpener::IsOwnFile(const std::string& path) const {
  if (path.find("/../") != std::string::npos) return false;
  return path.starts_with(folder_.SharedFile("")) || path.starts_with(folder_.DataFile(""));
}

}  // namespace quillbox

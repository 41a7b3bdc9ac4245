#include "program_link.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

#include "system/system_files.h"

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

}  // namespace quillbox

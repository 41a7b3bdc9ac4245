#include "desktop/qt_address_opener.h"

#include <sys/stat.h>

#include <QFile>
#include <QProcess>
#include <string_view>

#include "desktop/fetch_program.h"
#include "qt_base/unicode_text.h"

namespace quillbox {
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
  return path.starts_with(folder_.ProgramFile("")) || path.starts_with(folder_.DataFile(""));
}

}  // namespace quillbox

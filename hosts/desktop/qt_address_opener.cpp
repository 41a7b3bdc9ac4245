#include "desktop/qt_address_opener.h"

#include <QFile>
#include <QProcess>
#include <string_view>

#include "desktop/unicode_text.h"

namespace quillbox {
namespace {

bool IsAddress(const std::string& target) {
  for (const std::string_view scheme : {"https://", "http://", "mailto:"}) {
    if (target.starts_with(scheme)) return true;
  }
  return false;
}

// Qt's own way to open an address writes it to the session's log when that fails, and recodes it.
void HandToDesktop(const QString& target) {
  QProcess opener;
  opener.setProgram("xdg-open");
  opener.setArguments({target});
  opener.setStandardInputFile(QProcess::nullDevice());
  opener.setStandardOutputFile(QProcess::nullDevice());
  opener.setStandardErrorFile(QProcess::nullDevice());
  opener.startDetached();
}

}  // namespace

void QtAddressOpener::Open(const std::string& target) {
  if (IsAddress(target)) HandToDesktop(ToUnicode(target));
  if (IsOwnFile(target)) HandToDesktop(QFile::decodeName(target.c_str()));
}

bool QtAddressOpener::IsOwnFile(const std::string& path) const {
  if (path.find("/../") != std::string::npos) return false;
  return path.starts_with(folder_.ProgramFile("")) || path.starts_with(folder_.DataFile(""));
}

}  // namespace quillbox

#include "desktop/qt_address_opener.h"

#include <QDesktopServices>
#include <QFile>
#include <QStringList>
#include <QUrl>

#include "desktop/unicode_text.h"

namespace quillbox {

void QtAddressOpener::Open(const std::string& target) {
  if (target.starts_with('/')) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(target.c_str())));
    return;
  }
  const QUrl address(ToUnicode(target));
  if (QStringList{"https", "http", "mailto"}.contains(address.scheme())) {
    QDesktopServices::openUrl(address);
  }
}

}  // namespace quillbox

#include "qt_tray/no_tray_notice.h"

#include <QMessageBox>

namespace quillbox {

NoTrayNotice::NoTrayNotice(std::chrono::milliseconds wait) {
  timer_.setSingleShot(true);
  timer_.setInterval(wait);
  QObject::connect(&timer_, &QTimer::timeout, [this] { Show(); });
}

void NoTrayNotice::Begin() {
  if (!told_ && !timer_.isActive()) timer_.start();
}

void NoTrayNotice::Show() {
  told_ = true;
  auto* const box = new QMessageBox(
      QMessageBox::Information, "Quillbox",
      "Quillbox is running, but this desktop has no notification area for its icon.\n\n"
      "Add one to your panel (it is often called \"Notification Area\", \"System Tray\" or "
      "\"Status Tray Plugin\"; on GNOME it is the extension \"AppIndicator and KStatusNotifierItem "
      "Support\"). The icon then appears by itself; you need not start Quillbox again.");
  box->setObjectName("NoTrayNotice");
  box->setTextFormat(Qt::PlainText);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setModal(false);
  box->show();
}

}  // namespace quillbox

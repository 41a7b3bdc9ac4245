#include "qt_windows/qt_message_boxes.h"

#include <QMessageBox>

#include "qt_base/unicode_text.h"

namespace quillbox {
namespace {

QMessageBox::Icon Picture(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kInformation:
      return QMessageBox::Information;
    case BoxIcon::kExclamation:
      return QMessageBox::Warning;
    case BoxIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

BoxAnswer Answer(BoxButtons buttons, int clicked) {
  if (buttons == BoxButtons::kOk) return BoxAnswer::kOk;
  return clicked == QMessageBox::Yes ? BoxAnswer::kYes : BoxAnswer::kNo;
}

}  // namespace

BoxAnswer QtMessageBoxes::Show(const Message& message) {
  QMessageBox box;
  box.setObjectName("MessageBox");
  box.setWindowTitle(ToUnicode(message.Title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToUnicodeLines(message.Text));
  box.setIcon(Picture(message.Icon));
  if (message.Buttons == BoxButtons::kYesNo) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
  }
  if (message.InForeground) {
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.show();
    box.raise();
    box.activateWindow();
  }
  return Answer(message.Buttons, box.exec());
}

}  // namespace quillbox

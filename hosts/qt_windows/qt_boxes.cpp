#include "qt_windows/qt_boxes.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>

#include "qt_base/unicode_text.h"
#include "qt_windows/form_dialog.h"

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

namespace {

QWidget* OptionsWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "Opts" && window->isVisible()) return window;
  }
  return nullptr;
}

// Some desktops' dialogs heed the case, so both are named.
QString Filter(const QString& name, const QString& pattern) {
  return QString("%1 (%2 %3)").arg(name, pattern.toLower(), pattern.toUpper());
}

QStringList Filters(const FileQuestion& question) {
  const QString pattern = ToUnicode(question.Pattern);
  QStringList filters{Filter(ToUnicode(question.FilterName), pattern)};
  // Pictures of this kind can stand in the tray, too.
  if (pattern.compare("*.ico", Qt::CaseInsensitive) == 0)
    filters += Filter("PNG Files (*.png)", "*.png");
  return filters;
}

void Ask(QFileDialog& dialog, const FileQuestion& question) {
  dialog.setObjectName("OpenDialog");
  dialog.setWindowTitle(ToUnicode(question.Title));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);  // the name says what there is to say
  dialog.setNameFilters(Filters(question));
  dialog.setDirectory(QFile::decodeName(question.Folder.c_str()));
  if (!question.File.empty()) dialog.selectFile(QFile::decodeName(question.File.c_str()));
}

}  // namespace

std::optional<std::string> QtFileChooser::Choose(const FileQuestion& question) {
  // It goes with its window when the program ends meanwhile.
  const QPointer<QFileDialog> dialog = new QFileDialog(OptionsWindow());
  Ask(*dialog, question);
  CentreWindow(dialog, QGuiApplication::primaryScreen()->geometry());
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (!dialog) return std::nullopt;
  const QStringList files = dialog->selectedFiles();
  dialog->deleteLater();
  if (!accepted || files.isEmpty()) return std::nullopt;
  return QFile::encodeName(files.first()).toStdString();
}

}  // namespace quillbox

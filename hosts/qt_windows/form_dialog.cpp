#include "qt_windows/form_dialog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>

#include "forms/controls.h"
#include "qt_base/unicode_text.h"
#include "qt_windows/form_binding.h"

namespace quillbox {
namespace {

class EscapeWatcher : public QObject {
 public:
  EscapeWatcher(QWidget* window, std::function<void()> act)
      : QObject(window), act_(std::move(act)) {
    window->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* window, QEvent* event) override {
    const bool taken = event->type() == QEvent::KeyPress &&
                       static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel);
    if (taken) act_();
    return taken || QObject::eventFilter(window, event);
  }

 private:
  std::function<void()> act_;
};

}  // namespace

void OnUnusedEscape(QWidget* window, std::function<void()> act) {
  new EscapeWatcher(window, std::move(act));
}

void OnKeys(QWidget* window, QKeySequence::StandardKey keys, std::function<void()> act) {
  QObject::connect(new QShortcut(keys, window), &QShortcut::activated, window,
                   [act = std::move(act)] {
                     if (QApplication::activePopupWidget() == nullptr) act();
                   });
}

void CloseByKeys(QWidget* window) {
  OnUnusedEscape(window, [window] { window->close(); });
  OnKeys(window, QKeySequence::Close, [window] { window->close(); });
}

QDialog* NewFormDialog(const char* name, const std::string& caption, QWidget* parent) {
  auto* const form = new QDialog(parent);
  form->setObjectName(name);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->setWindowTitle(ToUnicode(caption));
  return form;
}

QDialogButtonBox* NewOkCancelBox(QDialog* form, Button& ok, Button& cancel) {
  // A child of the form at once, or the form would not hear of its default button.
  auto* const box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, form);
  Bind(box->button(QDialogButtonBox::Ok), ok);
  QPushButton* const cancelButton = box->button(QDialogButtonBox::Cancel);
  Bind(cancelButton, cancel);
  box->button(QDialogButtonBox::Ok)->setDefault(true);
  // By itself a dialog takes Escape for its close box.
  OnUnusedEscape(form, [cancelButton] { cancelButton->click(); });
  return box;
}

void CentreWindow(QWidget* window, const QRect& area) {
  const QWidget* const owner = window->parentWidget();
  const QSize frame = owner == nullptr
                          ? QSize(0, 0)
                          : owner->window()->frameGeometry().size() - owner->window()->size();
  window->adjustSize();
  const QSize size = window->size() + frame;
  window->move(area.x() + (area.width() - size.width()) / 2,
               area.y() + (area.height() - size.height()) / 2);
}

}  // namespace quillbox

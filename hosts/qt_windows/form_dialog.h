// What the program's dialogs have in common: their frame, keys, place and closing.
#pragma once

#include <QEvent>
#include <QKeySequence>
#include <QRect>
#include <QWidget>
#include <functional>
#include <string>
#include <utility>

class QDialog;
class QDialogButtonBox;

namespace quillbox {

class Button;

// A window of fixed size that deletes itself when it is closed. `caption` is in the code page.
QDialog* NewFormDialog(const char* name, const std::string& caption, QWidget* parent);

// Both buttons, behind what is in the form already; Return is the first and Escape the second. The
// box by which the window manager closes a window is neither.
QDialogButtonBox* NewOkCancelBox(QDialog* form, Button& ok, Button& cancel);

// Calls `act` for Escape when nothing within the window has a use for it. A shortcut would come
// first: in an open list the key is to close that list alone.
void OnUnusedEscape(QWidget* window, std::function<void()> act);

// Calls `act` for the keys wherever in the window the person is, but not while a list is open.
void OnKeys(QWidget* window, QKeySequence::StandardKey keys, std::function<void()> act);

// For a window that stores nothing: Escape, and what closes windows on this desktop.
void CloseByKeys(QWidget* window);

// Tells that the person closed a window: calls `gone` each time the window goes out of sight for
// another reason than being minimised: a dialog that is left by Escape gets no close event, but
// every closing hides. It belongs to the window.
class CloseWatcher : public QObject {
 public:
  CloseWatcher(QWidget* window, std::function<void()> gone)
      : QObject(window), gone_(std::move(gone)) {
    window->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* window, QEvent* event) override {
    if (event->type() == QEvent::Hide && !event->spontaneous()) gone_();
    return QObject::eventFilter(window, event);
  }

 private:
  std::function<void()> gone_;
};

// Puts a window, before it is shown, in the middle of `area`. Its frame is not there yet and is
// taken to be as wide as the one of the window that it belongs to.
void CentreWindow(QWidget* window, const QRect& area);

}  // namespace quillbox

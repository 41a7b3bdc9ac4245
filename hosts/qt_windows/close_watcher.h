// Telling that the person closed a window.
#pragma once

#include <QEvent>
#include <QWidget>
#include <functional>
#include <utility>

namespace quillbox {

// Calls `gone` each time the window goes out of sight for another reason than being minimised:
// a dialog that is left by Escape gets no close event, but every closing hides. It belongs to the
// window.
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

}  // namespace quillbox

// Balloons: through the desktop's notification service, or in a window of our own.
#pragma once

#include <QFrame>
#include <QIcon>
#include <QMap>
#include <QObject>
#include <QString>
#include <functional>

class QDBusMessage;

namespace quillbox {

struct Balloon {
  QString Title;
  QString Text;
  int TimeoutMs = 0;
  QIcon Picture = {};
};

// Never waits. A balloon with the text of an earlier one replaces it on the screen; different texts
// never replace each other.
class NotificationService {
 public:
  using Refused = std::function<void(const Balloon&)>;

  // `onRefused` gets what no service would show, or has not said in time that it does.
  void Show(const Balloon& balloon, const Refused& onRefused);

 private:
  void Ask(const QDBusMessage& question, std::function<void(const QDBusMessage&)> onAnswer);
  void Send(const Balloon& balloon, const QDBusMessage& capabilities, const Refused& onRefused);

  QObject pending_;              // parent of the questions that wait for their answers
  QString server_;               // on the bus; the numbers below are its own
  QMap<QString, uint> numbers_;  // text of a balloon, number of its notification
};

// What the service is to be told, plain text in a form that it shows as it is.
QString BodyFor(const QString& text, bool serviceReadsMarkup);

// For desktops without a notification service. Goes when its time is over or it is clicked.
class BalloonWindow : public QFrame {
 public:
  // `icon`: of the tray's icon, on the screen.
  BalloonWindow(const Balloon& balloon, const QRect& icon);

 protected:
  void mousePressEvent(QMouseEvent*) override { hide(); }
};

}  // namespace quillbox

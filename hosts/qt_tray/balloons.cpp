#include "qt_tray/balloons.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QStringList>
#include <QTimer>
#include <QVBoxLayout>
#include <QVariantMap>
#include <algorithm>

#include "qt_tray/icon_surroundings.h"

namespace quillbox {

// The service's form of a picture, (iiibiiay): rows from the top, pixels in bytes of red, green,
// blue, alpha.
struct BalloonPicture {
  QImage Image;
};

QDBusArgument& operator<<(QDBusArgument& out, const BalloonPicture& picture) {
  const QImage& image = picture.Image;
  constexpr int kBits = 8, kChannels = 4;
  out.beginStructure();
  out << image.width() << image.height() << static_cast<int>(image.bytesPerLine()) << true << kBits
      << kChannels
      << QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
  out.endStructure();
  return out;
}

// The bus library wants both directions; this one is never gone.
const QDBusArgument& operator>>(const QDBusArgument& in, BalloonPicture&) {
  return in;
}

namespace {

constexpr int kPictureSide = 64;
constexpr int kLongestWaitMs = 3000;
constexpr int kMostNumbers = 50;

QDBusMessage Call(const char* method) {
  const QString name = "org.freedesktop.Notifications";
  return QDBusMessage::createMethodCall(name, "/org/freedesktop/Notifications", name, method);
}

// The picture itself goes along: a name means nothing to the service where the program isn't
// installed.
QVariantMap Hints(const Balloon& balloon) {
  const QImage image = balloon.Picture.pixmap(QSize(kPictureSide, kPictureSide), 1).toImage();
  if (image.isNull()) return {};
  qDBusRegisterMetaType<BalloonPicture>();
  return {{"image-data",
           QVariant::fromValue(BalloonPicture{image.convertToFormat(QImage::Format_RGBA8888)})}};
}

}  // namespace

QString BodyFor(const QString& text, bool serviceReadsMarkup) {
  if (!serviceReadsMarkup) return text;
  return QString(text).replace('&', "&amp;").replace('<', "&lt;").replace('>', "&gt;");
}

// Hands over the answer, or the error when there is none in time.
void NotificationService::Ask(const QDBusMessage& question,
                              std::function<void(const QDBusMessage&)> onAnswer) {
  auto* const pending = new QDBusPendingCallWatcher(
      QDBusConnection::sessionBus().asyncCall(question, kLongestWaitMs), &pending_);
  QObject::connect(pending, &QDBusPendingCallWatcher::finished,
                   [pending, then = std::move(onAnswer)] {
                     pending->deleteLater();
                     then(pending->reply());
                   });
}

void NotificationService::Show(const Balloon& balloon, const Refused& onRefused) {
  if (!QDBusConnection::sessionBus().isConnected()) return onRefused(balloon);
  Ask(Call("GetCapabilities"), [this, balloon, onRefused](const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage) return onRefused(balloon);
    Send(balloon, answer, onRefused);
  });
}

void NotificationService::Send(const Balloon& balloon, const QDBusMessage& capabilities,
                               const Refused& onRefused) {
  if (capabilities.service() != server_ || numbers_.size() >= kMostNumbers) numbers_.clear();
  server_ = capabilities.service();
  const bool markup = capabilities.arguments().value(0).toStringList().contains("body-markup");
  QDBusMessage notify = Call("Notify");
  notify << QString("Quillbox") << numbers_.value(balloon.Text, 0U) << QString("quillbox")
         << balloon.Title << BodyFor(balloon.Text, markup) << QStringList() << Hints(balloon)
         << balloon.TimeoutMs;
  Ask(notify, [this, balloon, onRefused](const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage) return onRefused(balloon);
    if (answer.service() == server_) numbers_[balloon.Text] = answer.arguments().value(0).toUInt();
  });
}

namespace {

constexpr int kWidth = 320;
constexpr int kMargin = 12;
constexpr int kLongestMs = 30000;

QLabel* Label(const QString& text, bool bold, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  QFont font = label->font();
  font.setBold(bold);
  label->setFont(font);
  return label;
}

// Above the icon, or below it where there is no room.
QPoint PlaceBeside(const QRect& icon, const QSize& size) {
  const QScreen* screen = QGuiApplication::screenAt(icon.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QPoint corner = screen->geometry().topLeft();
  const int above = icon.top() - size.height() - corner.y();
  const int below = icon.bottom() + 1 - corner.y();
  const QPoint place(icon.right() - size.width() - corner.x(), above >= 0 ? above : below);
  return corner + WithinScreen(place, size, screen->size());
}

}  // namespace

BalloonWindow::BalloonWindow(const Balloon& balloon, const QRect& icon)
    : QFrame(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus) {
  setObjectName("Balloon");
  setWindowTitle("Balloon");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFrameShape(QFrame::Box);
  auto* const lines = new QVBoxLayout(this);
  lines->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  lines->addWidget(Label(balloon.Title, true, this));
  lines->addWidget(Label(balloon.Text, false, this));
  setFixedWidth(kWidth);
  resize(kWidth, lines->totalHeightForWidth(kWidth));
  move(PlaceBeside(icon, size()));
  QTimer::singleShot(std::clamp(balloon.TimeoutMs, 1, kLongestMs), this, &QWidget::hide);
  show();
}

}  // namespace quillbox

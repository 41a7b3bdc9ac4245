#include "qt_windows/reports_form.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "qt_base/icon_picture.h"
#include "qt_windows/form_binding.h"
#include "reports/window_layout.h"

namespace quillbox {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr double kFontPoints = 8.25;
constexpr int kRoomBesideCombo = 150;  // in twips: some styles need it for the longest entry

// Light in every theme, as the page below it is.
constexpr char kPanelStyle[] =
    "QFrame#Shape2 { background: rgb(250, 250, 251); } QFrame#Shape2 QLabel { color: rgb(0, 26, "
    "53); }";

int ToPixels(const QWidget& widget, int twips) {
  return qRound(static_cast<double>(twips) * widget.logicalDpiX() / kTwipsPerInch);
}

int ToTwips(const QWidget& widget, int pixels) {
  return qRound(static_cast<double>(pixels) * kTwipsPerInch / widget.logicalDpiX());
}

QRect ToPixels(const QWidget& widget, const TwipRect& rect) {
  return {ToPixels(widget, rect.Left), ToPixels(widget, rect.Top), ToPixels(widget, rect.Width),
          ToPixels(widget, rect.Height)};
}

// Where the panel's children stand in it.
TwipRect InPanel(TwipRect rect) {
  rect.Left -= kShape2Place.Left;
  rect.Top -= kShape2Place.Top;
  return rect;
}

// No lower than its style wants it.
void Place(QWidget& widget, const QRect& rect) {
  widget.setGeometry(rect.x(), rect.y(), rect.width(),
                     std::max(rect.height(), widget.sizeHint().height()));
}

QFont FormFont() {
  QFont font("Verdana");
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(kFontPoints);
  return font;
}

}  // namespace

ReportsForm::ReportsForm(ReportsFields& fields, QWidget* page)
    : page_(page), panel_(new QFrame(this)) {
  setObjectName("ReportsWin");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(kReportsCaption);
  setWindowIcon(OwnPicture());
  setFont(FormFont());
  panel_->setObjectName("Shape2");
  panel_->setStyleSheet(kPanelStyle);
  panel_->setFont(FormFont());
  page_->setParent(this);
  page_->setObjectName("IE");

  AddChoice(fields.Combo1, 0);
  AddChoice(fields.Combo2, 1);
  AddChoice(fields.Combo3, 2);
  AddChoice(fields.Combo4, 3);
  auto* const command = new QPushButton(panel_);
  Bind(command, fields.Command1);
  Place(*command, ToPixels(*this, InPanel(kReportsCommand1Place)));

  const auto client = [this](TwipSize window) {
    return QSize(ToPixels(*this, window.Width - kReportsFrame.Width),
                 ToPixels(*this, window.Height - kReportsFrame.Height));
  };
  setMinimumSize(client(kReportsSmallest));
  resize(ToPixels(*this, kReportsClient.Width), ToPixels(*this, kReportsClient.Height));
}

void ReportsForm::AddChoice(ListField& field, int index) {
  auto* const combo = new QComboBox(panel_);
  Bind(combo, field);
  QLabel* const label = NewLabelFor(combo, field);
  label->setParent(panel_);
  label->move(ToPixels(*this, InPanel(kReportsLabelPlaces[index])).topLeft());
  const auto place = [this, combo, index] {
    TwipRect rect = InPanel(kReportsComboPlaces[index]);
    const int wanted = ToTwips(*this, combo->sizeHint().width());
    rect.Width = std::clamp(wanted, rect.Width, rect.Width + kRoomBesideCombo);
    Place(*combo, ToPixels(*this, rect));
  };
  place();
  connect(combo->model(), &QAbstractItemModel::rowsInserted, combo, place);
}

void ReportsForm::ShowBusy(bool busy) {
  if (busy) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
}

void ReportsForm::Present() {
  if (const QScreen* const screen = QGuiApplication::primaryScreen()) {
    QRect place = rect();
    place.moveCenter(screen->availableGeometry().center());
    move(place.topLeft());
  }
  show();
  raise();
  activateWindow();
  if (auto* const first = findChild<QComboBox*>()) first->setFocus();
}

void ReportsForm::resizeEvent(QResizeEvent*) {
  const TwipSize window{ToTwips(*this, width()) + kReportsFrame.Width,
                        ToTwips(*this, height()) + kReportsFrame.Height};
  const ReportsLayout layout = LayOutReports(window, ToTwips(*this, 1));
  panel_->setGeometry(ToPixels(*this, layout.Panel));
  page_->setGeometry(ToPixels(*this, layout.Browser));
}

}  // namespace quillbox

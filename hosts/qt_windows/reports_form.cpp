#include "qt_windows/reports_form.h"

#include <QComboBox>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "qt_windows/choice_panel.h"
#include "qt_windows/form_dialog.h"
#include "reports/reports_fields.h"

namespace quillbox {

ReportsForm::ReportsForm(ReportsFields& fields, QWidget* page)
    : page_(page), panel_(new ChoicePanel(fields, this)) {
  setObjectName("ReportsWin");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(kReportsCaption);
  page_->setParent(this);
  page_->setObjectName("IE");
  CloseByKeys(this);
  KeepRoom();
  resize(std::max(ToPixels(*this, kReportsClient.Width), minimumWidth()),
         ToPixels(*this, kReportsClient.Height));
}

// For what the panel needs, which is more than the window was designed for in some styles.
void ReportsForm::KeepRoom() {
  const auto client = [this](int whole, int frame) { return ToPixels(*this, whole - frame); };
  const int beside = ToPixels(*this, kReportsClient.Width - kShape2Place.Width);
  setMinimumSize(std::max(client(kReportsSmallest.Width, kReportsFrame.Width),
                          panel_->minimumWidth() + beside),
                 client(kReportsSmallest.Height, kReportsFrame.Height));
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

bool ReportsForm::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) KeepRoom();
  return QWidget::event(event);
}

void ReportsForm::resizeEvent(QResizeEvent*) {
  const TwipSize window{ToTwips(*this, width()) + kReportsFrame.Width,
                        ToTwips(*this, height()) + kReportsFrame.Height};
  const ReportsLayout layout = LayOutReports(window, ToTwips(*this, 1));
  panel_->setGeometry(ToPixels(*this, layout.Panel));
  page_->setGeometry(ToPixels(*this, layout.Browser));
}

}  // namespace quillbox

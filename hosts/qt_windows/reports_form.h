// The Reports window's widget, whichever process it is in.
#pragma once

#include <QWidget>

#include "reports/reports_fields.h"

namespace quillbox {

class ChoicePanel;

// Choices above, a page below. Places and sizes are those of reports/reports_fields.h, scaled to
// the screen. It deletes itself when it is closed.
class ReportsForm : public QWidget {
 public:
  // `fields` must outlive the form, which takes `page` over.
  ReportsForm(ReportsFields& fields, QWidget* page);

  // Shows the pointer of a program that is busy.
  void ShowBusy(bool busy);

  // In the middle of the screen, in front of the other windows.
  void Present();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void KeepRoom();

  QWidget* page_;
  ChoicePanel* panel_;
};

}  // namespace quillbox

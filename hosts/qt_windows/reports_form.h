// The Reports window's widget, whichever process it is in: choices above, a page below.
#pragma once

#include <QFrame>
#include <QWidget>
#include <vector>

#include "reports/reports_fields.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace quillbox {

class ListField;

int ToPixels(const QWidget& widget, int twips);
int ToTwips(const QWidget& widget, int pixels);
QRect ToPixels(const QWidget& widget, const TwipRect& rect);

// Letters of the window, whatever the person's desktop is set to.
QFont ReportsFont();
// Dark on light in every theme, as the page is; in a light theme the controls are the theme's.
QPalette PaperPalette();

// The upper part: what report to make. Places are those of reports/reports_fields.h. Where a style
// wants more room for a text, what stands behind or below it moves, and the panel's minimum width
// grows.
class ChoicePanel : public QFrame {
 public:
  // `fields` must outlive it.
  ChoicePanel(ReportsFields& fields, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  void AddChoice(QComboBox* list, ListField& field);
  void Dress();
  void PlaceAll();
  int PlaceColumn(std::size_t first, int left);
  void PlaceInColumn(std::size_t first, int left, int width);

  struct Choice {
    QLabel* Label;
    QComboBox* List;
  };
  std::vector<Choice> choices_;
  QPushButton* command_;
};

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

// The upper part of the Reports window: what report to make.
#pragma once

#include <QFrame>
#include <vector>

#include "reports/reports_fields.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace quillbox {

class ListField;
struct ReportsFields;

int ToPixels(const QWidget& widget, int twips);
int ToTwips(const QWidget& widget, int pixels);
QRect ToPixels(const QWidget& widget, const TwipRect& rect);

// Letters of the window, whatever the person's desktop is set to.
QFont ReportsFont();
// Dark on light in every theme, as the page is; in a light theme the controls are the theme's.
QPalette PaperPalette();

// Places are those of reports/reports_fields.h. Where a style wants more room for a text, what
// stands behind or below it moves, and the panel's minimum width grows.
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

}  // namespace quillbox

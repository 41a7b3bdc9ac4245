#include "qt_windows/own_widgets.h"

#include <QApplication>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <algorithm>

namespace quillbox {
namespace {

constexpr int kDarkerThan = 128;
constexpr int kLettersOfName = 24;
constexpr int kFrameAlpha = 80;

}  // namespace

bool IsDarkTheme() {
  return QApplication::palette().color(QPalette::Window).lightness() < kDarkerThan;
}

QRect TwoLineCheckBox::SecondLine() const {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.rect = QRect(QPoint(0, 0), QCheckBox::sizeHint());
  const QRect first = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
  // As near to the first line as lines of one text are.
  const int lineHeight = fontMetrics().lineSpacing() + 1;
  return {first.left(), option.rect.center().y() + (lineHeight + 1) / 2,
          fontMetrics().horizontalAdvance(secondLine_) + 1, lineHeight};
}

QSize TwoLineCheckBox::sizeHint() const {
  const QRect second = SecondLine();
  return QCheckBox::sizeHint().expandedTo({second.right() + 1, second.bottom() + 1});
}

void TwoLineCheckBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.rect.setHeight(QCheckBox::sizeHint().height());
  painter.drawControl(QStyle::CE_CheckBox, option);
  style()->drawItemText(&painter, SecondLine(), Qt::AlignLeft | Qt::AlignTop, palette(),
                        isEnabled(), secondLine_, QPalette::WindowText);
}

NameBox::NameBox() {
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kLettersOfName);
}

void NameBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  const QRect room =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  constexpr int kTextMargin = 2;  // of styles, within that field
  option.currentText =
      fontMetrics().elidedText(option.currentText, Qt::ElideMiddle, room.width() - 2 * kTextMargin);
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void Group::paintEvent(QPaintEvent* event) {
  QGroupBox::paintEvent(event);
  if (!IsDarkTheme()) return;
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  const auto part = [&](QStyle::SubControl which) {
    return style()->subControlRect(QStyle::CC_GroupBox, &option, which, this);
  };
  QRect frame = part(QStyle::SC_GroupBoxFrame);
  frame.setTop(std::max(frame.top(), part(QStyle::SC_GroupBoxLabel).bottom() + 1));
  QColor line = palette().color(QPalette::WindowText);
  line.setAlpha(kFrameAlpha);
  QPainter painter(this);
  painter.setPen(line);
  painter.drawRect(frame.adjusted(0, 0, -1, -1));
}

}  // namespace quillbox

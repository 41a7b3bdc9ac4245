// Widgets that show their texts and frames where a style would not.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

namespace quillbox {

// Whether the person's windows are dark.
bool IsDarkTheme();

// A tick box whose caption has a second line. Its text is the first one, at which the box stands; a
// style would put it between the two. A click on either line counts.
class TwoLineCheckBox : public QCheckBox {
 public:
  explicit TwoLineCheckBox(QString secondLine) : secondLine_(std::move(secondLine)) {}

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& place) const override { return rect().contains(place); }

 private:
  // Of the second line, in the widget.
  QRect SecondLine() const;

  QString secondLine_;
};

// A list of the person's names, which don't widen it; one without room loses its middle.
class NameBox : public QComboBox {
 public:
  NameBox();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// A group whose frame is seen in dark themes, too: some styles draw it darker than what is behind.
class Group : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillbox

#include "qt_windows/opts_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "forms/controls.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/own_widgets.h"

namespace quillbox {
namespace {

constexpr int kColumns = 4;  // two labels, each with its field

// As wide as its longest entry at least, in the font of the day.
QComboBox* NewList(ListField& control) {
  auto* const box = new QComboBox;
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  box->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  Bind(box, control);
  return box;
}

}  // namespace

OptsPage::OptsPage(const char* name) : groups_(new QVBoxLayout(this)) {
  setObjectName(name);
  groups_->addStretch();  // stays the last
}

void OptsPage::Heading(const char* text) {
  auto* const group = new Group(text);
  grid_ = new QGridLayout(group);
  grid_->setColumnStretch(1, 2);
  grid_->setColumnStretch(3, 1);
  groups_->insertWidget(groups_->count() - 1, group);
}

void OptsPage::Note(const char* text) {
  auto* const note = new QLabel(text);
  note->setWordWrap(true);
  grid_->addWidget(note, NextRow(), 0, 1, kColumns);
}

void OptsPage::Add(CheckBox& control, const char* secondLine) {
  QCheckBox* const box = *secondLine == '\0' ? new QCheckBox : new TwoLineCheckBox(secondLine);
  Bind(box, control, secondLine);
  grid_->addWidget(box, NextRow(), 0, 1, kColumns, Qt::AlignLeft);
}

void OptsPage::Add(ListField& control) {
  QComboBox* const box = NewList(control);
  const int row = NextRow();
  grid_->addWidget(NewLabelFor(box, control), row, 0);
  grid_->addWidget(box, row, 1, 1, kColumns - 1);
}

void OptsPage::Add(QWidget* label, QComboBox* box, std::initializer_list<QWidget*> behind) {
  grid_->setColumnStretch(kColumns - 1, 0);
  const int row = NextRow();
  int column = 0;
  grid_->addWidget(label, row, column++);
  grid_->addWidget(box, row, column++);
  for (QWidget* const widget : behind) grid_->addWidget(widget, row, column++);
}

void OptsPage::AddBelow(ListField& control) {
  auto* const box = new NameBox;
  Bind(box, control);
  const int row = NextRow();
  grid_->addWidget(NewLabelFor(box, control), row, 0, 1, kColumns);
  grid_->addWidget(box, row + 1, 0, 1, kColumns / 2);
}

void OptsPage::AddPair(ListField& left, ListField& right) {
  AddWithLabels({{NewList(left), &left}, {NewList(right), &right}});
}

void OptsPage::AddPair(TextField& left, TextField& right) {
  const auto newLine = [](TextField& control) {
    auto* const line = new QLineEdit;
    Bind(line, control);
    return line;
  };
  AddWithLabels({{newLine(left), &left}, {newLine(right), &right}});
}

void OptsPage::AddWithLabels(std::initializer_list<std::pair<QWidget*, Control*>> fields) {
  const int row = NextRow();
  int column = 0;
  for (const auto& [widget, control] : fields) {
    grid_->addWidget(NewLabelFor(widget, *control), row, column++);
    grid_->addWidget(widget, row, column++);
  }
}

void OptsPage::Add(QLayout* row) {
  grid_->addLayout(row, NextRow(), 0, 1, kColumns);
}

int OptsPage::NextRow() const {
  return grid_->rowCount();
}

}  // namespace quillbox

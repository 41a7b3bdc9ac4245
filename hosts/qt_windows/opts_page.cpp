#include "qt_windows/opts_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "forms/check_box.h"
#include "forms/list_field.h"
#include "forms/text_field.h"
#include "qt_windows/form_binding.h"

namespace quillbox {
namespace {

constexpr int kColumns = 4;  // two labels, each with its field
constexpr int kLettersOfList = 24;

}  // namespace

OptsPage::OptsPage(const char* name) : groups_(new QVBoxLayout(this)) {
  setObjectName(name);
  groups_->addStretch();  // stays the last
}

void OptsPage::Heading(const char* text) {
  auto* const group = new QGroupBox(text);
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
  auto* const box = new QCheckBox;
  Bind(box, control, secondLine);
  grid_->addWidget(box, NextRow(), 0, 1, kColumns, Qt::AlignLeft);
}

void OptsPage::Add(ListField& control) {
  auto* const box = new QComboBox;
  Bind(box, control);
  const int row = NextRow();
  grid_->addWidget(NewLabelFor(box, control), row, 0);
  grid_->addWidget(box, row, 1, 1, kColumns - 1);
}

void OptsPage::AddBelow(ListField& control) {
  auto* const box = new QComboBox;
  KeepNarrow(box);
  Bind(box, control);
  const int row = NextRow();
  grid_->addWidget(NewLabelFor(box, control), row, 0, 1, kColumns);
  grid_->addWidget(box, row + 1, 0, 1, kColumns / 2);
}

void OptsPage::AddPair(ListField& left, ListField& right) {
  AddWithLabels<QComboBox>(left, right);
}

void OptsPage::AddPair(TextField& left, TextField& right) {
  AddWithLabels<QLineEdit>(left, right);
}

template <class Widget, class Field>
void OptsPage::AddWithLabels(Field& left, Field& right) {
  const int row = NextRow();
  int column = 0;
  for (Field* const control : {&left, &right}) {
    auto* const widget = new Widget;
    Bind(widget, *control);
    grid_->addWidget(NewLabelFor(widget, *control), row, column++);
    grid_->addWidget(widget, row, column++);
  }
}

void OptsPage::Add(QLayout* row) {
  grid_->addLayout(row, NextRow(), 0, 1, kColumns);
}

void OptsPage::KeepNarrow(QComboBox* box) {
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(kLettersOfList);
}

void OptsPage::AddRow(QWidget* label, QLayout* row) {
  const int place = NextRow();
  grid_->addWidget(label, place, 0);
  grid_->addLayout(row, place, 1, 1, kColumns - 1);
}

int OptsPage::NextRow() const {
  return grid_->rowCount();
}

}  // namespace quillbox

// How a page of the Options dialog is put together.
#pragma once

#include <QWidget>

class QComboBox;
class QGridLayout;
class QLayout;
class QVBoxLayout;

namespace quillbox {

class CheckBox;
class ListField;
class TextField;

// It is filled from top to bottom, and the keyboard goes through it in the same order. Measures
// follow the font.
class OptsPage : public QWidget {
 public:
  explicit OptsPage(const char* name);

  // What is added from now on stands under this heading.
  void Heading(const char* text);
  void Note(const char* text);

  void Add(CheckBox& control, const char* secondLine = "");
  void Add(ListField& control);       // its label beside it; labels and lists form two columns
  void AddBelow(ListField& control);  // its label over it
  // Side by side.
  void AddPair(ListField& left, ListField& right);
  void AddPair(TextField& left, TextField& right);
  // Over the whole width.
  void Add(QLayout* row);

  // A label of the first column with what belongs to it.
  void AddRow(QWidget* label, QLayout* row);

  // For a list whose entries are the person's: the longest of them doesn't widen the page.
  static void KeepNarrow(QComboBox* box);

 private:
  int NextRow() const;
  template <class Widget, class Field>
  void AddWithLabels(Field& left, Field& right);

  QVBoxLayout* groups_;
  QGridLayout* grid_ = nullptr;  // of the last heading
};

}  // namespace quillbox

// How a page of the Options dialog is put together.
#pragma once

#include <QWidget>
#include <initializer_list>
#include <utility>

class QComboBox;
class QGridLayout;
class QLayout;
class QVBoxLayout;

namespace quillbox {

class CheckBox;
class Control;
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

  // A list as wide as the other lists of its heading, with at most two widgets behind it.
  void Add(QWidget* label, QComboBox* box, std::initializer_list<QWidget*> behind);

 private:
  int NextRow() const;
  void AddWithLabels(std::initializer_list<std::pair<QWidget*, Control*>> fields);

  QVBoxLayout* groups_;
  QGridLayout* grid_ = nullptr;  // of the last heading
};

}  // namespace quillbox

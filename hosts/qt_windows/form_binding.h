// Joins widgets with the controls of a form.
#pragma once

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QWidget;

namespace quillbox {

class Button;
class CheckBox;
class Control;
class EditableList;
class ListField;
class NoteField;
class PictureField;
class TextField;

// From now on the widget shows what the control holds, and what the person does with the widget
// reaches the control. The widget gets the control's name as its object name, and its caption as
// the name that screen readers tell. It lasts until the widget is deleted or released, whichever
// comes first; until then the control must live, and nobody else may watch it.
//
// `secondLine`, which the box shows by itself, goes on with a caption of two lines.
void Bind(QCheckBox* box, CheckBox& control, const char* secondLine = "");
void Bind(QComboBox* box, ListField& control);
void Bind(QComboBox* box, EditableList& control);  // makes the box editable
void Bind(QLineEdit* line, TextField& control);
void Bind(QPushButton* button, Button& control);  // shows the caption unless it has a picture
void Bind(QLabel* label, PictureField& control);
// The label, and what else stands in `row` with it, is out of sight while there is nothing to say.
void Bind(QLabel* label, NoteField& control, QWidget* row);
void Bind(QTabWidget* tabs, ListField& control);  // which has an entry for each tab

// A label with the caption of `control`, whose mnemonic leads to `field`.
QLabel* NewLabelFor(QWidget* field, const Control& control);

// Parts all widgets in `window` from their controls.
void ReleaseControls(QWidget* window);

}  // namespace quillbox

// What the program's dialogs have in common.
#pragma once

#include <string>

class QDialog;
class QDialogButtonBox;
class QWidget;

namespace quillbox {

class Button;

// A window that deletes itself when it is closed. `caption` is in the code page.
QDialog* NewFormDialog(const char* name, const std::string& caption, QWidget* parent);

// Both buttons, behind what is in the form already; Return is the first and Escape the second. The
// box by which the window manager closes a window is neither.
QDialogButtonBox* NewOkCancelBox(QDialog* form, Button& ok, Button& cancel);

}  // namespace quillbox

// What the program's dialogs have in common.
#pragma once

#include <QKeySequence>
#include <functional>
#include <string>

class QDialog;
class QDialogButtonBox;
class QWidget;

namespace quillbox {

class Button;

// A window of fixed size that deletes itself when it is closed. `caption` is in the code page.
QDialog* NewFormDialog(const char* name, const std::string& caption, QWidget* parent);

// Both buttons, behind what is in the form already; Return is the first and Escape the second. The
// box by which the window manager closes a window is neither.
QDialogButtonBox* NewOkCancelBox(QDialog* form, Button& ok, Button& cancel);

// Calls `act` for Escape when nothing within the window has a use for it. A shortcut would come
// first: in an open list the key is to close that list alone.
void OnUnusedEscape(QWidget* window, std::function<void()> act);

// Calls `act` for the keys wherever in the window the person is, but not while a list is open.
void OnKeys(QWidget* window, QKeySequence::StandardKey keys, std::function<void()> act);

// For a window that stores nothing: Escape, and what closes windows on this desktop.
void CloseByKeys(QWidget* window);

}  // namespace quillbox

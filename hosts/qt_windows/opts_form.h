// The Options dialog and the form over it that adds or edits an account, on this desktop.
#pragma once

class QWidget;

namespace quillbox {

class Account;
class Opts;

// The window, not shown yet. It deletes itself when it is closed. The model must outlive it, or the
// window be released from it (ReleaseControls).
QWidget* NewOptsForm(Opts& model);

// The window, not shown yet, over `parent`, in its middle; the parent takes no clicks and keys
// while it is shown. It deletes itself when it is closed. The model must outlive it, or the window
// be released from it (ReleaseControls).
QWidget* NewAccountForm(Account& model, QWidget* parent);

}  // namespace quillbox

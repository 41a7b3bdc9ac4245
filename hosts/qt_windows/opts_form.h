// The Options dialog on this desktop.
#pragma once

class QWidget;

namespace quillbox {

class Opts;

// The window, not shown yet. It deletes itself when it is closed. The model must outlive it, or the
// window be released from it (ReleaseControls).
QWidget* NewOptsForm(Opts& model);

}  // namespace quillbox

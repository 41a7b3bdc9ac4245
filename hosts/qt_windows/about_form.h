// The About box on this desktop.
#pragma once

class QWidget;

namespace quillbox {

class AboutWin;

// The window, not shown yet. It deletes itself when it is closed; the model must outlive it.
QWidget* NewAboutForm(AboutWin& model);

}  // namespace quillbox

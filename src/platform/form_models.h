// What the program's windows say and do, for the host that shows them.
#pragma once

namespace quillbox {

class AboutWin;

// One model a form, named as the form. They outlive every window; a host binds a window's controls
// to its model when the form is loaded.
struct FormModels {
  quillbox::AboutWin& AboutWin;
};

}  // namespace quillbox

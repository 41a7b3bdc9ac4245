// The program's windows, which are built when they are loaded and thrown away when unloaded.
#pragma once

namespace quillbox {

enum class FormName { kOpts, kReportsWin, kAboutWin, kAccount };

class Forms {
 public:
  virtual ~Forms() = default;

  // Builds and shows the form. Loading one that is loaded does nothing.
  virtual void Load(FormName form) = 0;

  // Closes the form; nothing when it isn't loaded. The next Load builds it anew.
  virtual void Unload(FormName form) = 0;

  // Closes every form that is still loaded.
  virtual void UnloadAll() = 0;
};

}  // namespace quillbox

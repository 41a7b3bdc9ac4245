// The program's windows. A form is a model; the host builds a window that shows it when it is
// loaded and throws the window away when it is unloaded.
#pragma once

namespace quillbox {

class AboutWin;
class Account;
class Opts;
class ReportsWin;

enum class FormName { kOpts, kReportsWin, kAboutWin, kAccount };

// Loading a form that is loaded does nothing. A model must live until its window is gone. When the
// window of Opts, Account or ReportsWin has gone, whoever closed it, the host calls the model's
// Closed().
class Forms {
 public:
  virtual ~Forms() = default;

  // Each builds the window, shows it in front of the others and returns.
  virtual void Load(AboutWin& form) = 0;
  virtual void Load(Opts& form) = 0;
  // In the middle of Opts, which takes no clicks and keys meanwhile.
  virtual void Load(Account& form) = 0;
  virtual void Load(ReportsWin& form) = 0;

  // Out of sight, but still loaded.
  virtual void Hide(FormName form) = 0;

  // Closes the form; nothing when it isn't loaded.
  virtual void Unload(FormName form) = 0;

  // Closes every form that is still loaded.
  virtual void UnloadAll() = 0;
};

}  // namespace quillbox

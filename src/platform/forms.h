// The program's windows: its forms, the boxes and dialogs over them, and the browser in one of
// them. A form is a model; the host builds a window that shows it when it is loaded and throws the
// window away when it is unloaded.
#pragma once

#include <optional>
#include <string>

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

enum class BoxIcon { kNone, kInformation, kExclamation };
enum class BoxButtons { kOk, kYesNo };
enum class BoxAnswer { kOk, kYes, kNo };

struct Message {
  std::string Text;  // code page, lines end in CR LF
  BoxIcon Icon = BoxIcon::kNone;
  BoxButtons Buttons = BoxButtons::kOk;
  bool InForeground = false;
  std::string Title = "Quillbox";
};

// Modal ones.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  // Returns when the person has answered; events are handled meanwhile. A Yes/No box that is closed
  // without an answer counts as No.
  virtual BoxAnswer Show(const Message& message) = 0;
};

// Paths are the host's own bytes, other texts are in the code page.
struct FileQuestion {
  std::string Title;
  std::string FilterName;  // "WAV Files"
  std::string Pattern;     // "*.wav", in any case
  std::string Folder;      // where the person begins
  std::string File;        // the file offered at first; empty for none
};

class FileChooser {
 public:
  virtual ~FileChooser() = default;

  // The full path of a file that is there; nothing when the person chose none. The dialog stands
  // over the Options form, in the middle of the primary screen; events are handled meanwhile.
  virtual std::optional<std::string> Choose(const FileQuestion& question) = 0;
};

// The web browser in the Reports window. While that window isn't loaded nothing happens, and the
// browser counts as loaded.
class ReportBrowser {
 public:
  virtual ~ReportBrowser() = default;

  // Starts loading a page, and returns: "about:blank", or the full path of a file in the host's own
  // bytes.
  virtual void Navigate(const std::string& address) = 0;

  // kPageLoaded when the page of the last Navigate is there; less until then.
  virtual int ReadyState() = 0;

  // Replaces the contents of the document now in the browser. `html` is in the code page.
  virtual void SetBody(const std::string& html) = 0;
};

inline constexpr int kPageLoaded = 4;

}  // namespace quillbox

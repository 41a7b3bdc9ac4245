// The program's forms as windows, and reports in the person's web browser.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/forms.h"
#include "platform/surroundings.h"
#include "windows_dialogs/about_dialog.h"
#include "windows_dialogs/dialog.h"

namespace quillbox {

class WindowsForms : public Forms, public ReportBrowser {
 public:
  // `opener` must outlive this.
  explicit WindowsForms(AddressOpener& opener) : opener_(opener) {}

  // Forms
  void Load(AboutWin& form) override;
  void Load(Opts& form) override;
  void Load(Account& form) override;
  void Load(ReportsWin& form) override;
  void Hide(FormName form) override;
  void Unload(FormName form) override;
  void UnloadAll() override;

  // ReportBrowser
  void Navigate(const std::string& address) override;
  int ReadyState() override { return kPageLoaded; }
  void SetBody(const std::string& html) override;

 private:
  struct Window {
    std::unique_ptr<Dialog> Shown;
    std::function<void()> Closed;  // tells the model
  };

  bool IsLoaded(FormName form) const { return windows_.contains(form); }
  void Show(FormName form, std::unique_ptr<Dialog> dialog, std::function<void()> closed);
  ReportsDialog* Reports();

  AddressOpener& opener_;
  std::map<FormName, Window> windows_;
};

}  // namespace quillbox

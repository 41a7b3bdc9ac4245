// The Options and the Account form as dialogs.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "windows_dialogs/dialog.h"

namespace quillbox {

class Account;
class Opts;

class OptsDialog : public Dialog {
 public:
  // `form` must outlive the dialog.
  explicit OptsDialog(Opts& form);
  ~OptsDialog() override;

 private:
  void AddPages();
  void AddTabs();
  void PlacePages();
  void ShowPage();
  void LeadToAdd();
  std::optional<INT_PTR> Handle(UINT message, WPARAM wide, LPARAM long_) override;
  void Turn(int step) override;

  Opts& form_;
  HWND tabs_;
  HIMAGELIST pictures_ = nullptr;
  std::vector<HWND> pages_;
};

class AccountDialog : public Dialog {
 public:
  // `form` must outlive the dialog. `owner` takes no clicks and keys while it is there.
  AccountDialog(Account& form, HWND owner);
  ~AccountDialog() override;

 private:
  HWND owner_;
};

}  // namespace quillbox

// The page "AdSense" of the Options: the accounts.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "forms/controls.h"
#include "options/account.h"
#include "options/change_mark.h"
#include "options/grant_keeping.h"
#include "state/program_context.h"

namespace quillbox {

class AdSenseFrame {
 public:
  // The arguments must outlive the page.
  AdSenseFrame(const ProgramContext& program, ChangeMark& mark);

  ListField Combo3{"Combo3", "Primary AdSense Account:"};
  Button Command5{"Command5", "&Add"};
  Button Command7{"Command7", "&Edit"};
  Button Command6{"Command6", "&Remove"};

  bool AdSenseChanged = false;

  // The form that adds or edits an account; null before the first time.
  std::unique_ptr<quillbox::Account> AccountForm;

  GrantKeeping Grants;  // of the accounts, from the loading of the page on

  void LoadAdSenseFrame();

  // Stores the page: the primary account and the account list, all in one batch; then the tray's
  // menus are built anew.
  void Apply();

  // The first account whose name equals `name` exactly.
  std::optional<std::size_t> AccountIndexOf(std::string_view name) const;

  // What the Account form does when its entry is accepted: marks the change and allows "&Edit" and
  // "&Remove".
  void AccountsEdited();

 private:
  void Add_Click();
  void Edit_Click();
  void Remove_Click();
  void RemoveSelected(std::size_t entry);

  const ProgramContext& program_;
  ChangeMark& mark_;
};

}  // namespace quillbox

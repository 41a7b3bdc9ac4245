// The page "AdSense" of the Options: the accounts, and the grants that go with them.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "forms/controls.h"
#include "options/account.h"
#include "options/page_parts.h"
#include "state/program_context.h"

namespace quillbox {

// Which grants are forgotten once the Options are gone. Never forgets a grant that an account may
// still use; keeping an unused one is harmless.
class GrantKeeping {
 public:
  // The context must outlive it.
  explicit GrantKeeping(const ProgramContext& program) : program_(program) {}

  // Notes the grants of all accounts, the running and the stored ones: the two lists differ after
  // the Options were left by the close box.
  void Opened();

  // Notes a grant that "Connect..." made; no account may hold it yet.
  void Made(const std::string& name) { noted_.insert(name); }

  // The Options are gone. Forgets every noted grant that is now in no account, running or stored.
  // When it isn't certain that the stored list could be read, all are kept. A second call does
  // nothing.
  void Closed();

 private:
  const ProgramContext& program_;
  std::set<std::string> noted_;
};

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
  // menus are rebuilt.
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

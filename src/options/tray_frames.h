// The pages "Tray Icon" and "Tray Tooltip" of the Options.
#pragma once

#include <array>
#include <string>

#include "forms/controls.h"
#include "options/page_parts.h"
#include "state/program_context.h"

namespace quillbox {

class TrayIconFrame {
 public:
  // The arguments must outlive the page.
  TrayIconFrame(const ProgramContext& program, ChangeMark& mark, OpenDialog& dialog);

  // Tray Icon
  PictureField Image1{"Image1", "Tray Icon"};
  Button Command3{"Command3", "&Select Icon..."};
  Button Command4{"Command4", "&Reset Icon"};
  // Click Action
  ListField Combo5{"Combo5", "Left-Single-Click Action:"};
  ListField Combo1{"Combo1", "Left-Double-Click Action:"};
  ListField Combo2{"Combo2", "Show Tray Icon Balloon When:"};

  // The icon chosen since the form opened: a path, "default", or empty for no choice.
  std::string IconChoice;

  bool TrayIconChanged = false;

  // Throws StepFailed, with what follows still to fill, when a stored text is no entry of its list.
  void LoadTrayIconFrame();

  // Stores the page; picture and click actions follow at once.
  void Apply();

 private:
  void SelectIcon_Click();
  void ResetIcon_Click();

  const ProgramContext& program_;
  ChangeMark& mark_;
  OpenDialog& dialog_;
};

class TrayTooltipFrame {
 public:
  // The arguments must outlive the page.
  TrayTooltipFrame(const ProgramContext& program, ChangeMark& mark);

  // Values to Show in Tray Tooltip, in the order of their letters in the setting: A to M.
  CheckBox Check34{"Check34", "Date"};
  CheckBox Check33{"Check33", "Impressions"};
  CheckBox Check32{"Check32", "Clicks"};
  CheckBox Check31{"Check31", "CTR"};
  CheckBox Check35{"Check35", "eCPM"};
  CheckBox Check36{"Check36", "Earnings"};
  CheckBox Check40{"Check40", "Last Updated"};
  CheckBox Check41{"Check41", "Predicted Earnings"};
  CheckBox Check2{"Check2", "Month Impressions"};
  CheckBox Check6{"Check6", "Month Clicks"};
  CheckBox Check8{"Check8", "Month CTR"};
  CheckBox Check9{"Check9", "Month eCPM"};
  CheckBox Check10{"Check10", "Month Earnings"};
  // Miscellaneous
  ListField Combo6{"Combo6", "Show data by:"};
  ListField Combo7{"Combo7", "Data to download:"};
  CheckBox Check4{"Check4", "&Display statistics for all accounts in tray tooltip"};

  bool TrayTooltipChanged = false;

  std::array<CheckBox*, 13> Values();

  // Throws StepFailed, with what follows still to fill, when a stored text is no entry of its list.
  void LoadTrayTooltipFrame();

  // Stores the page. The tooltip's text is rebuilt for `primaryAccount`, the selected account;
  // not when there are no accounts.
  void Apply(const ListField& primaryAccount);

 private:
  void LoadValues();

  const ProgramContext& program_;
  ChangeMark& mark_;
};

}  // namespace quillbox

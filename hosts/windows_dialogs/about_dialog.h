// The About box and the Reports window.
#pragma once

#include <windows.h>

#include <string>

#include "reports/reports_fields.h"
#include "windows_dialogs/dialog.h"

namespace quillbox {

class AboutWin;
class ReportsWin;

class AboutDialog : public Dialog {
 public:
  // `form` must outlive the dialog.
  explicit AboutDialog(AboutWin& form);

 private:
  void Fill(std::string_view name, const std::wstring& text);
  std::optional<INT_PTR> Handle(UINT message, WPARAM wide, LPARAM long_) override;

  AboutWin& form_;
  OwnedFont large_;
  OwnedIcon icon_;
};

// The choices above; what became of the report below: it opens in the person's web browser. Places
// are those of reports/reports_fields.h, scaled to the screen.
class ReportsDialog : public Dialog {
 public:
  // `form` must outlive the dialog.
  explicit ReportsDialog(ReportsWin& form);
  ~ReportsDialog() override;

  // The line below the choices; `isError` shows it in red.
  void Say(const std::wstring& text, bool isError);

 private:
  int Pixels(int twips) const;
  void Place(int number, const TwipRect& place) const;
  void PlaceAll() const;
  void Paint() const;
  std::optional<INT_PTR> Handle(UINT message, WPARAM wide, LPARAM long_) override;

  ReportsWin& form_;
  OwnedBrush paper_;
  bool isError_ = false;
};

}  // namespace quillbox

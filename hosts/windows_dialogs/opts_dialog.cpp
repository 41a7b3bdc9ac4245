#include "windows_dialogs/opts_dialog.h"

#include <cstddef>
#include <string>

#include "options/account.h"
#include "options/opts.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

constexpr int kTabPicture = 16;  // at 96 dots per inch

// Of the tabs, in their order; the empty one is the program's own icon.
constexpr const wchar_t* kPictures[] = {L"general",      L"ad-sense", L"auto-update", L"",
                                        L"tray-tooltip", L"sounds",   L"internet"};
constexpr std::size_t kAccountsPage = 1;

}  // namespace

OptsDialog::OptsDialog(Opts& form)
    : Dialog("Opts", form.Caption), form_(form), tabs_(Item("Tabs")) {
  AddPages();
  AddTabs();
  Fields().Bind(Window(), {&form.Command1, &form.Command2, &form.Mark.ApplyButton, &form.Command8});
  OnEscape(form.Command2);
  LeadToAdd();
}

OptsDialog::~OptsDialog() {
  Fields().Release();
  if (pictures_ != nullptr) ::ImageList_Destroy(pictures_);
}

void OptsDialog::AddPages() {
  const auto add = [this](const char* name, std::initializer_list<FormControl> controls) {
    pages_.push_back(NewPage(name));
    Fields().Bind(pages_.back(), controls);
  };
  auto& general = form_.GeneralFrame;
  add("GeneralFrame",
      {&general.Check11, &general.Check5, &general.Check14, &general.Check3, &general.Check1});
  auto& accounts = form_.AdSenseFrame;
  add("AdSenseFrame",
      {&accounts.Combo3, &accounts.Command5, &accounts.Command7, &accounts.Command6});
  add("AutoUpdateFrame", {&form_.AutoUpdateFrame.Check7, &form_.AutoUpdateFrame.Combo4});
  auto& icon = form_.TrayIconFrame;
  add("TrayIconFrame",
      {&icon.Image1, &icon.Command3, &icon.Command4, &icon.Combo5, &icon.Combo1, &icon.Combo2});
  auto& tooltip = form_.TrayTooltipFrame;
  add("TrayTooltipFrame", {&tooltip.Combo6, &tooltip.Combo7, &tooltip.Check4});
  for (CheckBox* const value : tooltip.Values()) Fields().Bind(pages_.back(), {value});
  auto& sounds = form_.SoundsFrame;
  add("SoundsFrame", {&sounds.Combo10, &sounds.Combo11, &sounds.Command9, &sounds.Command10});
  auto& proxy = form_.ProxyFrame;
  add("ProxyFrame", {&proxy.Check12, &proxy.Text3, &proxy.Text4, &proxy.Text1, &proxy.Text2});
}

void OptsDialog::AddTabs() {
  const int size = ::MulDiv(kTabPicture, static_cast<int>(Dpi()), USER_DEFAULT_SCREEN_DPI);
  pictures_ = ::ImageList_Create(size, size, ILC_COLOR32, static_cast<int>(pages_.size()), 0);
  ::SendMessageW(tabs_, TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(pictures_));
  int index = 0;
  for (const std::string& caption : form_.Tabs.Items()) {
    const wchar_t* const picture = kPictures[index];
    const OwnedIcon icon = *picture == L'\0' ? OwnIcon(size) : PageIcon(picture, size);
    std::wstring text = WideOfCodePage(caption);
    TCITEMW tab{};
    tab.mask = TCIF_TEXT | TCIF_IMAGE;
    tab.pszText = text.data();
    tab.iImage = ::ImageList_ReplaceIcon(pictures_, -1, icon.get());
    ::SendMessageW(tabs_, TCM_INSERTITEMW, static_cast<WPARAM>(index++),
                   reinterpret_cast<LPARAM>(&tab));
  }
  PlacePages();
  Fields().Bind(
      tabs_, form_.Tabs, [this] { ShowPage(); },
      [this](UINT) {
        form_.Tabs.Select(static_cast<std::size_t>(::SendMessageW(tabs_, TCM_GETCURSEL, 0, 0)));
      });
}

// The pages lie over the tabs, not in them, so that the keyboard goes from one to the other.
void OptsDialog::PlacePages() {
  RECT place{};
  ::GetWindowRect(tabs_, &place);
  ::MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
  ::SendMessageW(tabs_, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&place));
  HWND after = tabs_;
  for (const HWND page : pages_) {
    ::SetWindowPos(page, after, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOACTIVATE);
    after = page;
  }
  ::SetWindowPos(tabs_, after, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void OptsDialog::ShowPage() {
  const std::size_t selected = form_.Tabs.Selected().value_or(0);
  ::SendMessageW(tabs_, TCM_SETCURSEL, selected, 0);
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    ::ShowWindow(pages_[i], i == selected ? SW_SHOWNA : SW_HIDE);
  }
}

// On the page of accounts there is but one thing to do while there is none.
void OptsDialog::LeadToAdd() {
  const AdSenseFrame& accounts = form_.AdSenseFrame;
  if (form_.Tabs.Selected() != kAccountsPage || !accounts.Combo3.Items().empty()) return;
  const HWND add = ::GetDlgItem(pages_[kAccountsPage], NumberOf(accounts.Command5.Name()));
  ::SendMessageW(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(add), TRUE);
}

void OptsDialog::Turn(int step) {
  const auto count = static_cast<int>(pages_.size());
  const auto shown = static_cast<int>(form_.Tabs.Selected().value_or(0));
  form_.Tabs.Select(static_cast<std::size_t>((shown + step + count) % count));
  // What had the keyboard may be out of sight now.
  if (!::IsWindowVisible(::GetFocus())) ::SetFocus(tabs_);
  LeadToAdd();
}

std::optional<INT_PTR> OptsDialog::Handle(UINT message, WPARAM, LPARAM long_) {
  if (message == WM_SIZE) PlacePages();
  if (message != WM_NOTIFY) return std::nullopt;
  const auto* const told = reinterpret_cast<const NMHDR*>(long_);
  if (told->hwndFrom == tabs_ && told->code == static_cast<UINT>(TCN_SELCHANGE)) {
    Fields().Tell(tabs_, told->code);
  }
  return FALSE;
}

AccountDialog::AccountDialog(Account& form, HWND owner)
    : Dialog("Account", form.Caption, owner), owner_(owner) {
  Fields().Bind(Window(), {&form.Text1, &form.Text2, &form.Text3, &form.Connect, &form.Waiting,
                           &form.StopWaiting, &form.Command1, &form.Command2});
  OnEscape(form.Command2);
  if (owner_ != nullptr) ::EnableWindow(owner_, FALSE);
}

// The owner must take clicks again before this window goes, or another program would come to the
// front.
AccountDialog::~AccountDialog() {
  if (owner_ != nullptr) ::EnableWindow(owner_, TRUE);
}

}  // namespace quillbox

// The dialogs with real windows. What they do is the models' and is tested there; here is whether
// the windows show it all, and bring it all to the models.
#include <gmock/gmock.h>
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <map>
#include <memory>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "options/account.h"
#include "options/opts.h"
#include "simulated/context_on_state.h"
#include "simulated/simulated_forms.h"
#include "tray/tray_menu.h"
#include "windows_base/wide_text.h"
#include "windows_dialogs/dialog.h"
#include "windows_dialogs/windows_forms.h"

namespace quillbox {
namespace {

std::vector<HWND> WindowsBelow(HWND window) {
  std::vector<HWND> windows;
  const auto add = [](HWND child, LPARAM list) -> BOOL {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
    return TRUE;
  };
  ::EnumChildWindows(window, add, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::wstring TextOf(HWND window) {
  std::wstring text(300, L'\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), 300)));
  return text;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  ::GetClassNameW(window, name, 64);
  return name;
}

// How wide and high its own text is, line by line, in its own font.
SIZE SizeOfText(HWND window) {
  RECT room{};
  ::GetClientRect(window, &room);
  const HDC canvas = ::GetDC(window);
  const HGDIOBJ before =
      ::SelectObject(canvas, reinterpret_cast<HGDIOBJ>(::SendMessageW(window, WM_GETFONT, 0, 0)));
  const bool breaks = ClassOf(window) == L"Static" && room.bottom > 20;
  ::DrawTextW(canvas, TextOf(window).c_str(), -1, &room,
              DT_CALCRECT | (breaks ? DT_WORDBREAK : DT_LEFT));
  ::SelectObject(canvas, before);
  ::ReleaseDC(window, canvas);
  return {room.right, room.bottom};
}

// Two accounts; the settings are those of a first start.
class DialogsTest : public ContextOnState {
 protected:
  DialogsTest() : ContextOnState(forms_) {
    state_.ShowBalloonWhen = kBalloonNever;
    state_.SoundFiles.fill(std::string(kNoSound));
    SettingBatch settings;
    SaveAccountList(settings, {{"one", "two"}, {"ann", "bob"}, {"x", "y"}});
    store_.WriteBatch(settings);
    BuildTraySubmenus(program_);
    static_cast<AccountList&>(state_) = LoadAccountList(store_);
    model_ = std::make_unique<Opts>(program_, autoUpdate_, dialog_);
    model_->Load();
    window_ = Dialog::WindowNamed("Opts");
  }
  ~DialogsTest() override { forms_.UnloadAll(); }

  HWND Find(const std::string& name) const {
    for (const HWND window : WindowsBelow(window_)) {
      if (HasFixedName(window, name)) return window;
    }
    ADD_FAILURE() << "no window " << name;
    return nullptr;
  }

  void Click(const std::string& name) { ::SendMessageW(Find(name), BM_CLICK, 0, 0); }

  WindowsForms forms_{host_.Opener};
  AutoUpdate autoUpdate_{program_};
  OpenDialog dialog_{host_.Chooser};
  std::unique_ptr<Opts> model_;
  HWND window_ = nullptr;
};

// The table of the controls is the model's, which the desktop on Linux is held against too.
TEST_F(DialogsTest, EveryControlHasAWindowThatTellsWhatItIsInTheOrderOfTheTabKey) {
  host_.Windows.Load(*model_);
  const std::vector<HWND> windows = WindowsBelow(window_);
  std::ptrdiff_t last = -1;
  std::size_t found = 0;
  for (const Control* const control : ControlsOf(host_.Windows, FormName::kOpts)) {
    SCOPED_TRACE(control->Name());
    const HWND window = Find(control->Name());
    EXPECT_EQ(::IsWindowEnabled(window) != FALSE, control->Enabled());
    const std::wstring caption = WideOfCodePage(control->Caption());
    const std::wstring kind = ClassOf(window);
    if (kind == L"Button") {
      EXPECT_TRUE(TextOf(window).starts_with(caption));
    } else if (kind == L"ComboBox" || kind == L"Edit") {
      EXPECT_EQ(TextOf(::GetWindow(window, GW_HWNDPREV)), caption) << "the label before it";
    }
    if ((::GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP) == 0) continue;
    ++found;
    const HWND page = ::GetParent(window);
    if (page == window_) continue;  // the buttons and the tabs come after the page
    const auto place = std::find(windows.begin(), windows.end(), window) - windows.begin();
    EXPECT_GT(place, last);
    last = place;
  }
  EXPECT_GT(found, 40U);
  EXPECT_EQ(::SendMessageW(Find("Tabs"), TCM_GETITEMCOUNT, 0, 0), 7);
}

TEST_F(DialogsTest, MnemonicsAreUniqueWithinAPage) {
  std::map<std::pair<HWND, wchar_t>, int> uses;
  for (const HWND window : WindowsBelow(window_)) {
    const std::wstring caption = TextOf(window);
    const std::size_t mark = caption.find(L'&');
    if (mark == std::wstring::npos || mark + 1 == caption.size()) continue;
    const auto letter = static_cast<wchar_t>(::towupper(caption[mark + 1]));
    const int count = ++uses[std::pair(::GetParent(window), letter)];
    EXPECT_EQ(count, 1) << PathOfWide(caption);
  }
  EXPECT_EQ(uses.size(), 14U);
}

TEST_F(DialogsTest, EveryTextHasRoom) {
  int checked = 0;
  for (const HWND window : WindowsBelow(window_)) {
    const std::wstring kind = ClassOf(window);
    if ((kind != L"Button" && kind != L"Static") || TextOf(window).empty()) continue;
    const LONG_PTR style = kind == L"Button" ? ::GetWindowLongPtrW(window, GWL_STYLE) : 0;
    if ((style & BS_ICON) != 0) continue;
    const bool isBox = (style & BS_TYPEMASK) == BS_AUTOCHECKBOX;
    RECT room{};
    ::GetClientRect(window, &room);
    const SIZE text = SizeOfText(window);
    EXPECT_LE(text.cx + (isBox ? 18 : 0), room.right) << PathOfWide(TextOf(window));
    const bool isFrame = kind == L"Button" && room.bottom > 60;
    if (!isFrame) {
      EXPECT_LE(text.cy, room.bottom + 1) << PathOfWide(TextOf(window));
    }
    ++checked;
  }
  EXPECT_GT(checked, 50);
}

TEST_F(DialogsTest, WhatThePersonDoesReachesTheModel) {
  EXPECT_FALSE(::IsWindowEnabled(Find("ApplyButton")));
  Click("Check1");
  EXPECT_TRUE(model_->GeneralFrame.Check1.Ticked());
  EXPECT_TRUE(::IsWindowEnabled(Find("ApplyButton")));
  Click("ApplyButton");
  EXPECT_EQ(store_.ReadSetting(kUse24Hour), kTrue);
  EXPECT_FALSE(::IsWindowEnabled(Find("ApplyButton")));

  ::SendMessageW(Find("Combo3"), WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(model_->AdSenseFrame.Combo3.Text(), "two");
  EXPECT_TRUE(model_->AdSenseFrame.AdSenseChanged);
}

TEST_F(DialogsTest, LinesAreForTheCodePageButKeepWhatItLacks) {
  const HWND line = Find("Text3");
  ::SendMessageW(line, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"a\u20ac\u0416"));
  EXPECT_EQ(model_->ProxyFrame.Text3.Text(), "a\x80\x1A");
  EXPECT_EQ(TextOf(line), L"a\u20ac\u0416");
  model_->ProxyFrame.Text4.SetText("\x80");
  EXPECT_EQ(TextOf(Find("Text4")), L"\u20ac");
  EXPECT_NE(::SendMessageW(Find("Text2"), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(DialogsTest, TheModelShowsWithoutRunningEvents) {
  int clicks = 0;
  ListField& list = model_->TrayIconFrame.Combo5;
  list.Clicked = [&] { ++clicks; };
  list.Add("another");
  list.ShowSelected(list.Items().size() - 1);
  EXPECT_EQ(TextOf(Find("Combo5")), L"another");
  list.Remove(list.Items().size() - 1);
  EXPECT_EQ(::SendMessageW(Find("Combo5"), CB_GETCURSEL, 0, 0), -1);
  EXPECT_EQ(clicks, 0);
  model_->GeneralFrame.Check1.SetEnabled(false);
  EXPECT_FALSE(::IsWindowEnabled(Find("Check1")));
}

// Each after the first of two accounts was removed.
TEST_F(DialogsTest, OkCancelAndCloseBoxAreThreeEndings) {
  static const struct Case {
    const char* name;
    void (*end)(HWND);
    const char* stored;
  } kCases[] = {
      {"close box", [](HWND window) { ::SendMessageW(window, WM_CLOSE, 0, 0); }, "one|||two"},
      {"Escape", [](HWND window) { ::SendMessageW(window, WM_COMMAND, IDCANCEL, 0); }, "one|||two"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    c.end(window_);
    EXPECT_EQ(Dialog::WindowNamed("Opts"), nullptr);
    EXPECT_FALSE(model_->Loaded());
    EXPECT_EQ(store_.ReadSetting(kAccounts), c.stored);
    model_->Load();
    window_ = Dialog::WindowNamed("Opts");
    ASSERT_NE(window_, nullptr);
  }
  Click("Command1");
  EXPECT_EQ(Dialog::WindowNamed("Opts"), nullptr);
}

}  // namespace
}  // namespace quillbox

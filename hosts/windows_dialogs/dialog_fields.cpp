#include "windows_dialogs/dialog_fields.h"

#include <commctrl.h>

#include <algorithm>
#include <charconv>
#include <string>

#include "text/text_list.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

constexpr wchar_t kNameProperty[] = L"QuillboxName";
constexpr int kPictureSize = 32;        // at 96 dots per inch
constexpr int kButtonPictureSize = 16;  // likewise
constexpr UINT kUsualDpi = 96;

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

// Fixed names without a number in them; those with one are its kind and the number.
constexpr struct {
  std::string_view Name;
  int Number;
} kNumbers[] = {{"Check", 1000},       {"Combo", 2000},       {"Text", 3000},    {"Command", 4000},
                {"Image", 5000},       {"ApplyButton", 6001}, {"Connect", 6002}, {"Waiting", 6003},
                {"StopWaiting", 6004}, {"Tabs", 6005},        {"Picture", 6006}, {"Product", 6007},
                {"Credits", 6008},     {"WebAddress", 6009},  {"Email", 6010},   {"OK", 6011},
                {"IE", 6012},          {"LabelOf", 10000}};

int Scaled(HWND window, int pixels) {
  return ::MulDiv(pixels, static_cast<int>(::GetDpiForWindow(window)), kUsualDpi);
}

// One that is disabled would keep the keyboard to itself.
void Enable(HWND window, bool enabled) {
  if (!enabled && ::GetFocus() == window) {
    ::SendMessageW(::GetAncestor(window, GA_ROOT), WM_NEXTDLGCTL, FALSE, FALSE);
  }
  ::EnableWindow(window, enabled ? TRUE : FALSE);
}

// The entries of a list, which is left alone when it has them already.
void ShowItems(HWND window, const std::vector<std::wstring>& items) {
  const auto count = static_cast<std::size_t>(::SendMessageW(window, CB_GETCOUNT, 0, 0));
  bool same = count == items.size();
  for (std::size_t i = 0; same && i < count; ++i) {
    std::wstring there(static_cast<std::size_t>(::SendMessageW(window, CB_GETLBTEXTLEN, i, 0)),
                       L'\0');
    ::SendMessageW(window, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(there.data()));
    same = there == items[i];
  }
  if (same) return;
  ::SendMessageW(window, CB_RESETCONTENT, 0, 0);
  for (const std::wstring& item : items) {
    ::SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  }
}

// What a command of the list means for its control: the choice of an entry.
template <typename List>
void TakeChoice(HWND window, List& control) {
  const LRESULT index = ::SendMessageW(window, CB_GETCURSEL, 0, 0);
  if (index >= 0) control.Select(static_cast<std::size_t>(index));
}

}  // namespace

void SetFixedName(HWND window, std::string_view name) {
  const ATOM atom = ::GlobalAddAtomW(WideOfCodePage(name).c_str());
  ::SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)));
}

bool HasFixedName(HWND window, std::string_view name) {
  const auto atom = reinterpret_cast<ULONG_PTR>(::GetPropW(window, kNameProperty));
  return atom != 0 && atom == ::GlobalFindAtomW(WideOfCodePage(name).c_str());
}

int NumberOf(std::string_view name) {
  const std::size_t digits = name.find_first_of("0123456789");
  const std::string_view kind = name.substr(0, digits);
  int number = 0;
  if (digits != std::string_view::npos) {
    std::from_chars(name.data() + digits, name.data() + name.size(), number);
  }
  for (const auto& known : kNumbers) {
    if (known.Name == kind) return known.Number + number;
  }
  return 0;
}

void DialogFields::Bind(HWND window, Control& control, std::function<void()> show,
                        std::function<void(UINT)> told) {
  SetFixedName(window, control.Name());
  bound_.push_back({window, &control, std::move(told)});
  const auto showAll = [window, &control, show = std::move(show)] {
    Enable(window, control.Enabled());
    show();
  };
  showAll();
  control.Watch(showAll);
}

// What it leads to may be the end of this object.
void DialogFields::Tell(HWND window, UINT code) {
  const auto found = std::find_if(bound_.begin(), bound_.end(),
                                  [window](const Bound& bound) { return bound.Window == window; });
  if (found == bound_.end() || !found->Told) return;
  const std::function<void(UINT)> told = found->Told;
  told(code);
}

void DialogFields::Release() {
  for (const Bound& bound : bound_) bound.Watched->Watch({});
  bound_.clear();
}

void DialogFields::Bind(HWND page, std::initializer_list<FormControl> controls) {
  for (const FormControl& any : controls) {
    std::visit(
        [this, page](auto* control) {
          const int number = NumberOf(control->Name());
          const HWND window = ::GetDlgItem(page, number);
          const HWND label = ::GetDlgItem(page, NumberOf("LabelOf") + number);
          const std::wstring caption = WideOfCodePage(control->Caption());
          if (label != nullptr) ::SetWindowTextW(label, caption.c_str());
          if (window != nullptr) BindKind(window, *control);
        },
        any);
  }
}

// What the dialog's table has as the text is the second line.
void DialogFields::BindKind(HWND window, CheckBox& control) {
  std::wstring caption = WideOfCodePage(control.Caption());
  const std::wstring secondLine = TextOf(window);
  if (!secondLine.empty()) caption += L'\n' + secondLine;
  ::SetWindowTextW(window, caption.c_str());
  const auto show = [window, &control] {
    ::SendMessageW(window, BM_SETCHECK, control.Ticked() ? BST_CHECKED : BST_UNCHECKED, 0);
  };
  Bind(window, control, show, [window, &control](UINT code) {
    if (code != BN_CLICKED) return;
    control.SetTicked(::SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED);
  });
}

// A character that the code page lacks stays in the line, so that the person sees what to change.
void DialogFields::BindKind(HWND window, TextField& control) {
  ::SendMessageW(window, EM_LIMITTEXT, 0, 0);  // the form says itself what is too long
  if (control.Shows() == TextField::Echo::kStars) {
    ::SendMessageW(window, EM_SETPASSWORDCHAR, L'*', 0);
  }
  const auto show = [window, &control] {
    if (CodePageOf(TextOf(window)) == control.Text()) return;
    ::SetWindowTextW(window, WideOfCodePage(control.Text()).c_str());
  };
  Bind(window, control, show, [window, &control](UINT code) {
    if (code == EN_CHANGE) control.SetText(CodePageOf(TextOf(window)));
  });
}

void DialogFields::BindKind(HWND window, ListField& control) {
  const auto show = [window, &control] {
    std::vector<std::wstring> items;
    for (const std::string& item : control.Items()) items.push_back(WideOfCodePage(Elided(item)));
    ShowItems(window, items);
    ::SendMessageW(window, CB_SETCURSEL, control.Selected() ? *control.Selected() : WPARAM(-1), 0);
  };
  Bind(window, control, show, [window, &control](UINT code) {
    if (code == CBN_SELCHANGE) TakeChoice(window, control);
  });
}

// Typing has no effect: what the control holds stands there again when the person goes on.
void DialogFields::BindKind(HWND window, EditableList& control) {
  const auto show = [window, &control] {
    std::vector<std::wstring> items;
    for (const std::string& item : control.Items()) items.push_back(WideOfPath(item));
    ShowItems(window, items);
    const std::wstring text = WideOfPath(control.Text());
    const auto place = std::find(items.begin(), items.end(), text);
    ::SendMessageW(window, CB_SETCURSEL,
                   place == items.end() ? WPARAM(-1) : static_cast<WPARAM>(place - items.begin()),
                   0);
    ::SetWindowTextW(window, text.c_str());
  };
  Bind(window, control, show, [window, &control, show](UINT code) {
    if (code == CBN_SELCHANGE) TakeChoice(window, control);
    if (code == CBN_KILLFOCUS) show();
  });
}

// "Preview" has a picture on it; the caption stays as the name that screen readers tell.
void DialogFields::BindKind(HWND window, Button& control) {
  ::SetWindowTextW(window, WideOfCodePage(control.Caption()).c_str());
  if ((::GetWindowLongPtrW(window, GWL_STYLE) & BS_ICON) != 0) {
    OwnedIcon icon = PageIcon(L"preview", Scaled(window, kButtonPictureSize));
    ::SendMessageW(window, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icons_[window] = std::move(icon);
  }
  Bind(
      window, control, [] {},
      [&control](UINT code) {
        if (code == BN_CLICKED) control.Click();
      });
}

void DialogFields::BindKind(HWND window, PictureField& control) {
  const auto show = [this, window, &control] {
    const int size = Scaled(window, kPictureSize);
    OwnedIcon icon = control.File().empty() ? OwnIcon(size) : IconFromFile(control.File(), size);
    if (!icon) return;
    ::SendMessageW(window, STM_SETICON, reinterpret_cast<WPARAM>(icon.get()), 0);
    icons_[window] = std::move(icon);
  };
  Bind(window, control, show, {});
}

void DialogFields::BindKind(HWND window, NoteField& control) {
  const auto show = [window, &control] {
    ::SetWindowTextW(window, WideOfCodePage(control.Text()).c_str());
  };
  Bind(window, control, show, {});
}

}  // namespace quillbox

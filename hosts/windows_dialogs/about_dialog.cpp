#include "windows_dialogs/about_dialog.h"

#include <commctrl.h>

#include <cmath>
#include <iterator>

#include "about/about_win.h"
#include "reports/reports_win.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

constexpr int kAboutPicture = 64;      // at 96 dots per inch
constexpr double kProductSize = 1.35;  // of the ordinary letters

}  // namespace

AboutDialog::AboutDialog(AboutWin& form) : Dialog("AboutWin", form.Caption), form_(form) {
  Fill("Picture", L"");
  Fill("Product", WideOfCodePage(form.Product));
  Fill("Credits", WideOfCodePage(form.Credits));
  Fill("WebAddress", L"<a>" + WideOfCodePage(form.WebAddress) + L"</a>");
  Fill("Email", L"<a>" + WideOfCodePage(form.Email) + L"</a>");
  Fill("OK", L"OK");
  LOGFONTW font{};
  ::GetObjectW(reinterpret_cast<HGDIOBJ>(::SendMessageW(Window(), WM_GETFONT, 0, 0)), sizeof font,
               &font);
  font.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * kProductSize));
  font.lfWeight = FW_BOLD;
  large_.reset(::CreateFontIndirectW(&font));
  ::SendMessageW(Item("Product"), WM_SETFONT, reinterpret_cast<WPARAM>(large_.get()), FALSE);
  icon_ = OwnIcon(::MulDiv(kAboutPicture, static_cast<int>(Dpi()), USER_DEFAULT_SCREEN_DPI));
  ::SendMessageW(Item("Picture"), STM_SETICON, reinterpret_cast<WPARAM>(icon_.get()), 0);
  ::SendMessageW(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item("OK")), TRUE);
}

void AboutDialog::Fill(std::string_view name, const std::wstring& text) {
  SetFixedName(Item(name), name);
  if (!text.empty()) ::SetWindowTextW(Item(name), text.c_str());
}

// The dialog may be gone when the form is done.
std::optional<INT_PTR> AboutDialog::Handle(UINT message, WPARAM wide, LPARAM long_) {
  if (message == WM_COMMAND && LOWORD(wide) == NumberOf("OK")) {
    form_.OK_Click();
    return TRUE;
  }
  if (message != WM_NOTIFY) return std::nullopt;
  const auto& told = *reinterpret_cast<const NMHDR*>(long_);
  const bool followed =
      told.code == static_cast<UINT>(NM_CLICK) || told.code == static_cast<UINT>(NM_RETURN);
  if (followed && told.hwndFrom == Item("WebAddress")) form_.WebAddress_Click();
  if (followed && told.hwndFrom == Item("Email")) form_.Email_Click();
  return TRUE;
}

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr COLORREF kPaper = RGB(250, 250, 251);
constexpr COLORREF kInk = RGB(0, 26, 53);
constexpr COLORREF kError = RGB(255, 0, 0);

}  // namespace

ReportsDialog::ReportsDialog(ReportsWin& form)
    : Dialog("ReportsWin", kReportsCaption), form_(form), paper_(::CreateSolidBrush(kPaper)) {
  ReportsFields& fields = form.Fields();
  Fields().Bind(Window(),
                {&fields.Combo1, &fields.Combo2, &fields.Combo3, &fields.Combo4, &fields.Command1});
  SetFixedName(Item("IE"), "IE");
  Say(L"Reports open in your web browser.", false);
  form.WatchBusy([this] {
    if (::GetForegroundWindow() != Window()) return;
    ::SetCursor(::LoadCursorW(nullptr, form_.Busy() ? IDC_WAIT : IDC_ARROW));
  });
  RECT window{0, 0, Pixels(kReportsClient.Width), Pixels(kReportsClient.Height)};
  ::AdjustWindowRectExForDpi(&window, static_cast<DWORD>(::GetWindowLongPtrW(Window(), GWL_STYLE)),
                             FALSE, static_cast<DWORD>(::GetWindowLongPtrW(Window(), GWL_EXSTYLE)),
                             Dpi());
  ::SetWindowPos(Window(), nullptr, 0, 0, window.right - window.left, window.bottom - window.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  PlaceAll();
}

ReportsDialog::~ReportsDialog() {
  form_.WatchBusy({});
}

void ReportsDialog::Say(const std::wstring& text, bool isError) {
  isError_ = isError;
  ::SetWindowTextW(Item("IE"), text.c_str());
  ::InvalidateRect(Item("IE"), nullptr, TRUE);
}

int ReportsDialog::Pixels(int twips) const {
  return ::MulDiv(twips, static_cast<int>(Dpi()), kTwipsPerInch);
}

// The height of a list is that of the open one.
void ReportsDialog::Place(int number, const TwipRect& place) const {
  const HWND control = ::GetDlgItem(Window(), number);
  const bool isList = number > NumberOf("Combo") && number < NumberOf("Text");
  ::SetWindowPos(control, nullptr, Pixels(place.Left), Pixels(place.Top), Pixels(place.Width),
                 Pixels(isList ? kReportsClient.Height : place.Height),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// Browser and panel follow the window; labels are as wide as their columns.
void ReportsDialog::PlaceAll() const {
  for (int i = 0; i < static_cast<int>(std::size(kReportsComboPlaces)); ++i) {
    const int number = NumberOf("Combo1") + i;
    TwipRect label = kReportsLabelPlaces[i];
    label.Width = kReportsComboPlaces[i].Width;
    Place(number + NumberOf("LabelOf"), label);
    Place(number, kReportsComboPlaces[i]);
  }
  Place(NumberOf("Command1"), kReportsCommand1Place);
  RECT area{};
  ::GetClientRect(Window(), &area);
  const int margin = Pixels(kBrowserPlace.Left);
  const int top = Pixels(kBrowserPlace.Top);
  ::SetWindowPos(Item("IE"), nullptr, margin, top, area.right - 2 * margin,
                 area.bottom - top - margin, SWP_NOZORDER | SWP_NOACTIVATE);
  ::InvalidateRect(Window(), nullptr, FALSE);
}

// The panel, and around it the usual ground.
void ReportsDialog::Paint() const {
  PAINTSTRUCT painting{};
  const HDC canvas = ::BeginPaint(Window(), &painting);
  RECT panel{};
  ::GetClientRect(Window(), &panel);
  panel = {Pixels(kShape2Place.Left), Pixels(kShape2Place.Top),
           panel.right - Pixels(kShape2Place.Left), Pixels(kShape2Place.Top + kShape2Place.Height)};
  ::FillRect(canvas, &panel, paper_.get());
  ::ExcludeClipRect(canvas, panel.left, panel.top, panel.right, panel.bottom);
  ::FillRect(canvas, &painting.rcPaint, ::GetSysColorBrush(COLOR_BTNFACE));
  ::EndPaint(Window(), &painting);
}

std::optional<INT_PTR> ReportsDialog::Handle(UINT message, WPARAM wide, LPARAM long_) {
  switch (message) {
    case WM_SIZE:
      PlaceAll();
      return FALSE;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(long_)->ptMinTrackSize = {Pixels(kReportsSmallest.Width),
                                                              Pixels(kReportsSmallest.Height)};
      return TRUE;
    case WM_ERASEBKGND:
      ::SetWindowLongPtrW(Window(), DWLP_MSGRESULT, TRUE);
      return TRUE;
    case WM_PAINT:
      Paint();
      return TRUE;
    case WM_SETCURSOR:
      if (!form_.Busy() || LOWORD(long_) != HTCLIENT) return std::nullopt;
      ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
      ::SetWindowLongPtrW(Window(), DWLP_MSGRESULT, TRUE);
      return TRUE;
    case WM_CTLCOLORSTATIC: {
      const auto canvas = reinterpret_cast<HDC>(wide);
      const bool isLine = reinterpret_cast<HWND>(long_) == Item("IE");
      ::SetTextColor(canvas, isLine && isError_ ? kError : kInk);
      ::SetBkColor(canvas, kPaper);
      return reinterpret_cast<INT_PTR>(paper_.get());
    }
    default:
      return std::nullopt;
  }
}

}  // namespace quillbox

#include "windows/windows_surroundings.h"

#include <windows.h>

#include <mmsystem.h>
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "region/locale_marks.h"
#include "windows_base/own_handle.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

std::wstring FolderOfExecutable() {
  std::wstring path(32768, L'\0');  // the longest that there is
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.rfind(L'\\'));
}

bool CanBeWritten(const std::wstring& folder) {
  const std::wstring probe = folder + L"\\quillbox-" + std::to_wstring(::GetCurrentProcessId());
  const OwnHandle file(::CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                     FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  return IsOpen(file);
}

std::wstring UsersDataFolder() {
  std::wstring folder(::GetEnvironmentVariableW(L"LOCALAPPDATA", nullptr, 0), L'\0');
  folder.resize(
      ::GetEnvironmentVariableW(L"LOCALAPPDATA", folder.data(), static_cast<DWORD>(folder.size())));
  folder += L"\\Quillbox";
  SECURITY_ATTRIBUTES rights = ForOwnerAlone();
  ::CreateDirectoryW(folder.c_str(), &rights);
  return folder;
}

}  // namespace

ApplicationFolder FindApplicationFolder() {
  const std::wstring program = FolderOfExecutable();
  const std::wstring data = CanBeWritten(program) ? program : UsersDataFolder();
  return {PathOfWide(program), PathOfWide(data), '\\'};
}

namespace {

// What Windows says of one region.
class Locale {
 public:
  explicit Locale(const wchar_t* name) : name_(name) {}

  std::u16string Text(LCTYPE what) const {
    std::array<wchar_t, 256> text{};
    const int length = ::GetLocaleInfoEx(name_, what, text.data(), static_cast<int>(text.size()));
    return {text.begin(), text.begin() + std::max(length - 1, 0)};
  }

  std::string TextOr(LCTYPE what, const std::string& standIn) const {
    return WithStandIns(Text(what)).value_or(standIn);
  }

  std::string NameOr(LCTYPE what, const std::string& english) const {
    const std::string name = TextOr(what, "");
    return name.empty() ? english : name;
  }

  std::size_t NumberOr(LCTYPE what, std::size_t standIn) const {
    const std::string text = TextOr(what, "");
    std::size_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() ? number : standIn;
  }

 private:
  const wchar_t* const name_;
};

// By the numbers that Windows gives them.
constexpr std::array<const char*, 4> kPositive = {"$n", "n$", "$ n", "n $"};
constexpr std::array<const char*, 16> kNegative = {"($n)", "-$n",  "$-n",   "$n-",  "(n$)", "-n$",
                                                   "n-$",  "n$-",  "-n $",  "-$ n", "n $-", "$ n-",
                                                   "$ -n", "n- $", "($ n)", "(n $)"};

void FillNumbers(const Locale& locale, RegionalSettings& region) {
  region.Decimal = locale.NameOr(LOCALE_SDECIMAL, ".");
  region.Group = locale.TextOr(LOCALE_STHOUSAND, "");
  if (region.Decimal == region.Group) region.Group = "";
}

void FillCurrency(const Locale& locale, RegionalSettings& region) {
  const std::string code = locale.NameOr(LOCALE_SINTLSYMBOL, region.CurrencySymbol);
  region.CurrencySymbol = locale.NameOr(LOCALE_SCURRENCY, code);
  region.CurrencyDecimals =
      static_cast<int>(std::min<std::size_t>(locale.NumberOr(LOCALE_ICURRDIGITS, 2), 9));
  const std::size_t positive = locale.NumberOr(LOCALE_ICURRENCY, 0);
  const std::size_t negative = locale.NumberOr(LOCALE_INEGCURR, 0);
  region.PositiveCurrency = kPositive[positive < kPositive.size() ? positive : 0];
  region.NegativeCurrency = kNegative[negative < kNegative.size() ? negative : 0];
}

// The region holds the English names already. Windows counts days from Monday.
void FillNames(const Locale& locale, RegionalSettings& region) {
  for (unsigned i = 0; i < 7; ++i) {
    std::string& name = region.Weekdays.at((i + 1) % 7);
    name = locale.NameOr(LOCALE_SDAYNAME1 + i, name);
  }
  for (unsigned i = 0; i < 12; ++i) {
    region.Months.at(i) = locale.NameOr(LOCALE_SMONTHNAME1 + i, region.Months.at(i));
    region.MonthsShort.at(i) =
        locale.NameOr(LOCALE_SABBREVMONTHNAME1 + i, region.MonthsShort.at(i));
  }
}

}  // namespace

RegionalSettings RegionOf(const wchar_t* name) {
  const Locale locale(name);
  RegionalSettings region;
  FillNumbers(locale, region);
  FillCurrency(locale, region);
  region.ShortDate = ShortDateFormat(locale.Text(LOCALE_SSHORTDATE));
  region.TimeSeparator = TimeSeparatorIn(locale.Text(LOCALE_STIMEFORMAT));
  region.Am = locale.TextOr(LOCALE_S1159, "AM");
  region.Pm = locale.TextOr(LOCALE_S2359, "PM");
  FillNames(locale, region);
  return region;
}

void WindowsSounds::PlaySoundFile(const std::string& file) {
  static const auto play = SystemFunction<decltype(&::PlaySoundW)>(L"winmm.dll", "PlaySoundW");
  const auto path = FindSoundFile(files_, folder_, file);
  if (!path || play == nullptr) return;
  play(WideOfPath(*path).c_str(), nullptr, SND_FILENAME | SND_ASYNC | SND_NOSTOP | SND_NODEFAULT);
}

namespace {

bool IsAddress(const std::string& target) {
  for (const std::string_view scheme : {"https://", "http://", "mailto:"}) {
    if (target.starts_with(scheme)) return true;
  }
  return false;
}

void HandOver(const std::wstring& target) {
  ::ShellExecuteW(nullptr, nullptr, target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace

void WindowsAddressOpener::Open(const std::string& target) {
  if (IsAddress(target)) HandOver(WideOfCodePage(target));
  if (IsOwnFile(target)) HandOver(WideOfPath(target));
}

void WindowsAddressOpener::OpenPrivately(const std::string& address) {
  if (address.starts_with("https://")) HandOver(WideOfCodePage(address));
}

bool WindowsAddressOpener::IsOwnFile(const std::string& path) const {
  if (path.find("\\..\\") != std::string::npos || path.find('/') != std::string::npos) return false;
  return path.starts_with(folder_.ProgramFile("")) || path.starts_with(folder_.DataFile(""));
}

}  // namespace quillbox

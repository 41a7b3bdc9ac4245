// What surrounds the program on the machine: its clocks, the environment, the network.
#include "system/system_surroundings.h"

#include <windows.h>

#include <wininet.h>

#include "windows_base/own_handle.h"
#include "windows_base/wide_text.h"

namespace quillbox {

std::chrono::local_seconds SystemClock::LocalTime() {
  using namespace std::chrono;
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  const year_month_day date = year(now.wYear) / month(now.wMonth) / day(now.wDay);
  return local_days(date) + hours(now.wHour) + minutes(now.wMinute) + seconds(now.wSecond);
}

TimePoint SystemClock::Now() {
  return TimePoint(::GetTickCount64());
}

// The system itself takes names in any case.
std::string SystemEnvironment::Variable(std::string_view name) {
  const std::wstring wide = WideOfCodePage(name);
  std::wstring value(::GetEnvironmentVariableW(wide.c_str(), nullptr, 0), L'\0');
  value.resize(
      ::GetEnvironmentVariableW(wide.c_str(), value.data(), static_cast<DWORD>(value.size())));
  return WholeCodePageOf(value).value_or("");
}

bool SystemNetworkState::IsOnline() {
  static const auto isConnected = SystemFunction<decltype(&::InternetGetConnectedState)>(
      L"wininet.dll", "InternetGetConnectedState");
  DWORD flags = 0;
  return isConnected == nullptr || isConnected(&flags, 0);  // true when it can't be told
}

}  // namespace quillbox

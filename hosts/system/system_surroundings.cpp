#include "system/system_surroundings.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <memory>
#include <optional>

#include "text/code_page.h"

namespace quillbox {

std::chrono::local_seconds SystemClock::LocalTime() {
  using namespace std::chrono;
  const std::time_t now = system_clock::to_time_t(floor<seconds>(system_clock::now()));
  ::tzset();  // the person may have travelled since the last call
  std::tm parts = {};
  ::localtime_r(&now, &parts);
  const year_month_day date = year(parts.tm_year + 1900) /
                              month(static_cast<unsigned>(parts.tm_mon) + 1) /
                              day(static_cast<unsigned>(parts.tm_mday));
  return local_days(date) + hours(parts.tm_hour) + minutes(parts.tm_min) + seconds(parts.tm_sec);
}

TimePoint SystemClock::Now() {
  return std::chrono::duration_cast<TimePoint>(std::chrono::steady_clock::now().time_since_epoch());
}

namespace {

// The value of the first variable whose name `matches`.
template <class Predicate>
std::optional<std::string_view> FindVariable(Predicate matches) {
  for (char** entry = ::environ; entry != nullptr && *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos || !matches(text.substr(0, equals))) continue;
    return text.substr(equals + 1);
  }
  return std::nullopt;
}

}  // namespace

std::string SystemEnvironment::Variable(std::string_view name) {
  auto value = FindVariable([&](std::string_view other) { return other == name; });
  if (!value) value = FindVariable([&](std::string_view o) { return EqualIgnoringCase(o, name); });
  return FromUtf8(value.value_or("")).value_or("");
}

std::string ConfigFolder() {
  const char* const config = std::getenv("XDG_CONFIG_HOME");
  if (config != nullptr && *config == '/') return config;
  const char* const home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? std::string(home) + "/.config" : "";
}

namespace {

// An address that the interface gives itself says nothing of a network behind it.
bool IsLinkLocal(const sockaddr& address) {
  if (address.sa_family != AF_INET6) return false;
  return IN6_IS_ADDR_LINKLOCAL(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
}

bool LeadsOut(const ifaddrs& entry) {
  constexpr unsigned kWorking = IFF_UP | IFF_RUNNING;
  if ((entry.ifa_flags & kWorking) != kWorking || (entry.ifa_flags & IFF_LOOPBACK) != 0) {
    return false;
  }
  const sockaddr* const address = entry.ifa_addr;
  return address != nullptr && !IsLinkLocal(*address) &&
         (address->sa_family == AF_INET || address->sa_family == AF_INET6);
}

}  // namespace

bool SystemNetworkState::IsOnline() {
  ifaddrs* first = nullptr;
  if (::getifaddrs(&first) != 0) return true;  // it can't be told
  const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(first, &::freeifaddrs);
  for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
    if (LeadsOut(*entry)) return true;
  }
  return false;
}

}  // namespace quillbox

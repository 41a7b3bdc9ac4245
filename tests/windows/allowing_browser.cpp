// A browser for tests: it gets the page whose address it is given and follows where that leads. A
// service that takes each visit of its consent page for a yes needs no more. It believes every
// server to be what it says.
#include <windows.h>

#include <winhttp.h>

#include <cwchar>
#include <iterator>

int wmain(int count, wchar_t** arguments) {
  if (count != 2) return 2;
  wchar_t host[256] = {};
  URL_COMPONENTS parts{};
  parts.dwStructSize = sizeof parts;
  parts.lpszHostName = host;
  parts.dwHostNameLength = static_cast<DWORD>(std::size(host));
  parts.dwUrlPathLength = 1;
  if (!::WinHttpCrackUrl(arguments[1], 0, 0, &parts)) return 2;

  const HINTERNET session = ::WinHttpOpen(L"allowing_browser", WINHTTP_ACCESS_TYPE_NO_PROXY,
                                          WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0);
  DWORD always = WINHTTP_OPTION_REDIRECT_POLICY_ALWAYS;
  ::WinHttpSetOption(session, WINHTTP_OPTION_REDIRECT_POLICY, &always, sizeof always);
  const bool secure = parts.nScheme == INTERNET_SCHEME_HTTPS;
  const HINTERNET request = ::WinHttpOpenRequest(
      ::WinHttpConnect(session, host, parts.nPort, 0), L"GET", parts.lpszUrlPath, nullptr,
      WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES, secure ? WINHTTP_FLAG_SECURE : 0);
  DWORD trusting = SECURITY_FLAG_IGNORE_UNKNOWN_CA | SECURITY_FLAG_IGNORE_CERT_CN_INVALID;
  ::WinHttpSetOption(request, WINHTTP_OPTION_SECURITY_FLAGS, &trusting, sizeof trusting);
  const bool answered =
      ::WinHttpSendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, nullptr, 0, 0, 0) &&
      ::WinHttpReceiveResponse(request, nullptr);
  return answered ? 0 : 1;
}

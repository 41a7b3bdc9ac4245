// What a test sees of the desktop on which this is started, and what the system says there. It
// lives until the folder that it is given holds the file "end". There it takes what to do from the
// file "ask", which it removes, and answers with the file "answer":
//   windows           each visible window as a line of JSON; one of the program has its fixed name
//   taskbar-created   tells all windows of a new taskbar
//   end-of-session    asks the program's window, then tells it
//   installed         what the installer has noted, each as a line "name=value"
//   SECTION           the program's settings of that section, likewise
// So nothing has to be started for a question, and the keyboard stays where it is.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

namespace {

using Json = nlohmann::json;

std::string Utf8(const std::wstring& wide) {
  std::string text(wide.size() * 3 + 1, '\0');
  const int size =
      ::WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), static_cast<int>(wide.size()), text.data(),
                            static_cast<int>(text.size()), nullptr, nullptr);
  text.resize(static_cast<std::size_t>(size));
  return text;
}

std::string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  // The message, for a control of another process gives its text to nothing else.
  text.resize(static_cast<std::size_t>(
      ::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return Utf8(text);
}

std::string ClassOf(HWND window) {
  wchar_t name[64] = {};
  ::GetClassNameW(window, name, 64);
  return Utf8(name);
}

std::string FixedNameOf(HWND window) {
  const auto atom =
      static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(::GetPropW(window, L"QuillboxName")));
  wchar_t name[64] = {};
  if (atom != 0) ::GlobalGetAtomNameW(atom, name, 64);
  return Utf8(name);
}

Json Described(HWND window) {
  RECT place{};
  ::GetWindowRect(window, &place);
  Json told = {{"name", FixedNameOf(window)},
               {"class", ClassOf(window)},
               {"text", TextOf(window)},
               {"place", {place.left, place.top, place.right, place.bottom}},
               {"enabled", ::IsWindowEnabled(window) != FALSE},
               {"topmost", (::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0}};
  if (told["class"] == "Button") {
    told["checked"] = ::SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
  }
  return told;
}

BOOL CALLBACK DescribeIfVisible(HWND window, LPARAM answer) {
  if (::IsWindowVisible(window)) {
    *reinterpret_cast<std::string*>(answer) += Described(window).dump() + '\n';
  }
  return TRUE;
}

BOOL CALLBACK DescribeWithChildren(HWND window, LPARAM answer) {
  if (!::IsWindowVisible(window)) return TRUE;
  DescribeIfVisible(window, answer);
  ::EnumChildWindows(window, DescribeIfVisible, answer);
  return TRUE;
}

BOOL CALLBACK EndSessionOf(HWND window, LPARAM answer) {
  if (::GetPropW(window, L"Quillbox_APPLICATION") == nullptr) return TRUE;
  const bool agrees = ::SendMessageW(window, WM_QUERYENDSESSION, 0, 0) != FALSE;
  *reinterpret_cast<std::string*>(answer) += agrees ? "it agrees\n" : "it refuses\n";
  ::SendNotifyMessageW(window, WM_ENDSESSION, TRUE, 0);
  return TRUE;
}

std::string Values(const std::string& place) {
  std::string settings;
  HKEY key = nullptr;
  ::RegOpenKeyExA(HKEY_CURRENT_USER, ("Software\\" + place).c_str(), 0, KEY_READ, &key);
  char name[256] = {}, value[4096] = {};
  for (DWORD i = 0, nameSize = sizeof name, size = sizeof value;
       ::RegEnumValueA(key, i, name, &nameSize, nullptr, nullptr, reinterpret_cast<BYTE*>(value),
                       &size) == ERROR_SUCCESS;
       ++i, nameSize = sizeof name, size = sizeof value) {
    settings += std::string(name) + '=' + value + '\n';
  }
  ::RegCloseKey(key);
  return settings;
}

std::string AnswerTo(const std::string& word) {
  std::string answer;
  const auto told = reinterpret_cast<LPARAM>(&answer);
  if (word == "windows") ::EnumWindows(DescribeWithChildren, told);
  if (word == "end-of-session") ::EnumWindows(EndSessionOf, told);
  if (word == "taskbar-created") {
    ::SendNotifyMessageW(HWND_BROADCAST, ::RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  }
  if (word == "installed") {
    answer = Values("Microsoft\\Windows\\CurrentVersion\\Uninstall\\Quillbox");
  } else if (answer.empty()) {
    answer = Values("Quillbox\\" + word);
  }
  return answer;
}

}  // namespace

int main(int, char** arguments) {
  const std::filesystem::path folder = arguments[1];
  while (!std::filesystem::exists(folder / "end")) {
    ::Sleep(20);
    std::string word;
    if (!(std::ifstream(folder / "ask") >> word)) continue;
    std::filesystem::remove(folder / "ask");
    std::ofstream(folder / "answering", std::ios::binary) << AnswerTo(word);
    std::filesystem::rename(folder / "answering", folder / "answer");
  }
}

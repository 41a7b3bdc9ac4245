#include "windows/registry_store.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "text/code_page.h"
#include "windows_base/own_handle.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

constexpr wchar_t kPending[] = L"Pending";

struct KeyCloser {
  using pointer = HKEY;
  void operator()(HKEY key) const { ::RegCloseKey(key); }
};
using OwnKey = std::unique_ptr<HKEY, KeyCloser>;

std::wstring StoredName(std::string_view name) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string stored;
  for (const char c : name) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= ' ' && c != '\\' && c != '%') {
      stored += c;
      continue;
    }
    stored += '%';
    stored += kHex[code >> 4];
    stored += kHex[code & 15];
  }
  return WideOfCodePage(stored.empty() ? "%" : stored);
}

OwnKey Open(const std::wstring& path, REGSAM access) {
  HKEY key = nullptr;
  ::RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, access, &key);
  return OwnKey(key);
}

OwnKey OpenOrMake(const std::wstring& path) {
  HKEY key = nullptr;
  ::RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                    KEY_QUERY_VALUE | KEY_SET_VALUE, nullptr, &key, nullptr);
  return OwnKey(key);
}

// The bytes of a value of that type. Asked again when it has grown meanwhile.
std::optional<std::string> BytesOf(const OwnKey& key, const std::wstring& name, DWORD type) {
  std::string bytes;
  for (int tries = 0; key && tries < 5; ++tries) {
    DWORD found = 0, size = static_cast<DWORD>(bytes.size());
    const LSTATUS status =
        ::RegQueryValueExW(key.get(), name.c_str(), nullptr, &found,
                           reinterpret_cast<BYTE*>(bytes.empty() ? nullptr : bytes.data()), &size);
    if ((status != ERROR_SUCCESS && status != ERROR_MORE_DATA) || found != type) break;
    const bool isWhole = status == ERROR_SUCCESS && size <= bytes.size();
    bytes.resize(size);
    if (isWhole) return bytes;
  }
  return std::nullopt;
}

bool SetBytes(const OwnKey& key, const std::wstring& name, DWORD type, const void* bytes,
              std::size_t size) {
  return ::RegSetValueExW(key.get(), name.c_str(), 0, type, static_cast<const BYTE*>(bytes),
                          static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

bool CarryOut(const OwnKey& section, const SettingChange& change) {
  const std::wstring name = StoredName(change.Key);
  if (!change.Value) {
    const LSTATUS status = ::RegDeleteValueW(section.get(), name.c_str());
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
  }
  const std::wstring text = WideOfCodePage(*change.Value);
  return SetBytes(section, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

// A batch as bytes: for each change its three texts, each with a mark ("+", "-" for no value) and
// its length in four bytes before it.
void AppendText(std::string& bytes, const std::optional<std::string>& text) {
  bytes += text ? '+' : '-';
  const auto size = static_cast<std::uint32_t>(text ? text->size() : 0);
  for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(size >> shift);
  bytes += text.value_or("");
}

std::string BytesOfBatch(std::span<const SettingChange> changes) {
  std::string bytes;
  for (const SettingChange& change : changes) {
    AppendText(bytes, change.Section);
    AppendText(bytes, change.Key);
    AppendText(bytes, change.Value);
  }
  return bytes;
}

// Takes one text from the front. What a stranger has damaged ends it.
std::optional<std::string> TakeText(std::string_view& bytes) {
  constexpr std::size_t kHead = 5;
  if (bytes.size() < kHead) return bytes = {}, std::nullopt;
  std::uint32_t size = 0;
  for (std::size_t i = kHead - 1; i > 0; --i)
    size = size << 8U | static_cast<unsigned char>(bytes[i]);
  const bool isText = bytes.front() == '+';
  bytes.remove_prefix(kHead);
  if (size > bytes.size()) return bytes = {}, std::nullopt;
  std::string text(bytes.substr(0, size));
  bytes.remove_prefix(size);
  if (!isText) return std::nullopt;
  return text;
}

std::vector<SettingChange> BatchOf(std::string_view bytes) {
  std::vector<SettingChange> changes;
  while (!bytes.empty()) {
    auto section = TakeText(bytes), key = TakeText(bytes), value = TakeText(bytes);
    if (section && key) changes.push_back({std::move(*section), std::move(*key), std::move(value)});
  }
  return changes;
}

// Null when there is a section that can't be opened for writing.
std::optional<std::vector<OwnKey>> SectionsOf(const std::wstring& root,
                                              std::span<const SettingChange> changes) {
  std::vector<OwnKey> sections;
  for (const SettingChange& change : changes) {
    sections.push_back(OpenOrMake(root + L"\\" + StoredName(change.Section)));
    if (!sections.back()) return std::nullopt;
  }
  return sections;
}

bool CarryOutAll(const OwnKey& root, const std::vector<OwnKey>& sections,
                 std::span<const SettingChange> changes) {
  for (std::size_t i = 0; i < changes.size(); ++i) {
    if (!CarryOut(sections[i], changes[i])) return false;
  }
  return ::RegDeleteValueW(root.get(), kPending) == ERROR_SUCCESS;
}

// What is pending, if anything; whether nothing is any more.
bool Finish(const OwnKey& root, const std::wstring& path) {
  const auto pending = BytesOf(root, kPending, REG_BINARY);
  if (!pending) return true;
  const std::vector<SettingChange> changes = BatchOf(*pending);
  const auto sections = SectionsOf(path, changes);
  return sections && CarryOutAll(root, *sections, changes);
}

// Held by the process that writes. Freed by the system when that dies.
class WritersLock {
 public:
  WritersLock(const std::wstring& root, std::chrono::milliseconds patience) {
    std::wstring name = L"Local\\" + root;
    for (std::size_t i = name.find(L'\\') + 1; i < name.size(); ++i) {
      if (name[i] == L'\\') name[i] = L'-';
    }
    mutex_.reset(::CreateMutexW(nullptr, FALSE, name.c_str()));
    if (!mutex_) return;
    const DWORD got = ::WaitForSingleObject(mutex_.get(), static_cast<DWORD>(patience.count()));
    isHeld_ = got == WAIT_OBJECT_0 || got == WAIT_ABANDONED;
  }
  ~WritersLock() {
    if (isHeld_) ::ReleaseMutex(mutex_.get());
  }
  WritersLock(const WritersLock&) = delete;
  WritersLock& operator=(const WritersLock&) = delete;

  bool IsHeld() const { return isHeld_; }

 private:
  OwnHandle mutex_;
  bool isHeld_ = false;
};

}  // namespace

RegistryStore::RegistryStore(std::wstring root, std::chrono::milliseconds patience)
    : root_(std::move(root)), patience_(patience) {
  const OwnKey key = Open(root_, KEY_QUERY_VALUE | KEY_SET_VALUE);
  if (!key || !BytesOf(key, kPending, REG_BINARY)) return;
  const WritersLock lock(root_, patience_);
  if (lock.IsHeld()) Finish(key, root_);
}

std::string RegistryStore::Read(std::string_view section, std::string_view key) {
  const auto pending = BytesOf(Open(root_, KEY_QUERY_VALUE), kPending, REG_BINARY);
  std::optional<std::string> value;
  const OwnKey node = Open(root_ + L"\\" + StoredName(section), KEY_QUERY_VALUE);
  if (const auto bytes = BytesOf(node, StoredName(key), REG_SZ)) {
    const std::size_t length = bytes->size() / sizeof(wchar_t);
    std::wstring text(length, L'\0');
    std::copy_n(bytes->data(), length * sizeof(wchar_t), reinterpret_cast<char*>(text.data()));
    if (text.ends_with(L'\0')) text.pop_back();
    value = CodePageOf(text);
  }
  for (const SettingChange& change : BatchOf(pending.value_or(""))) {
    if (EqualIgnoringCase(change.Section, section) && EqualIgnoringCase(change.Key, key)) {
      value = change.Value;
    }
  }
  return value.value_or("");
}

bool RegistryStore::Apply(std::span<const SettingChange> changes) {
  const WritersLock lock(root_, patience_);
  const OwnKey root = OpenOrMake(root_);
  if (!lock.IsHeld() || !root || !Finish(root, root_)) return false;
  const auto sections = SectionsOf(root_, changes);
  if (!sections) return false;
  if (changes.size() == 1) return CarryOut(sections->front(), changes.front());
  const std::string batch = BytesOfBatch(changes);
  if (batch.empty()) return true;
  if (!SetBytes(root, kPending, REG_BINARY, batch.data(), batch.size())) return false;
  // From here on all of them are there: what can't be carried out now will be at the next chance.
  CarryOutAll(root, *sections, changes);
  return true;
}

}  // namespace quillbox

// The per-user store: a tree in the person's part of the registry.
#pragma once

#include <chrono>
#include <string>

#include "platform/storage.h"

namespace quillbox {

// "HKEY_CURRENT_USER\Software\Quillbox\<section>", in it a text for each key. The form must not
// change: names as they are, but "\", "%" and what is below a blank as "%" and two hexadecimal
// digits (capitals); the empty name is a "%" alone.
//
// The registry writes one value at a time. So a batch of several is first written down as a whole
// into the one value "Pending" of the tree's root, then carried out, and then that value goes.
// Reading looks there first; who finds a batch that a process left there carries it out. So the
// writing of "Pending" is the moment in which all changes happen.
class RegistryStore : public PerUserStore {
 public:
  // `root`: below HKEY_CURRENT_USER. Another process that writes is waited for; one that has not
  // come to an end within `patience` lets this write fail. Carries out what a process that died has
  // left.
  explicit RegistryStore(std::wstring root = L"Software\\Quillbox",
                         std::chrono::milliseconds patience = std::chrono::seconds(1));

  // A section that is longer than 255 characters can't be kept.
  std::string Read(std::string_view section, std::string_view key) override;
  bool Apply(std::span<const SettingChange> changes) override;

 private:
  const std::wstring root_;
  const std::chrono::milliseconds patience_;
};

}  // namespace quillbox

// The per-user store: a settings file of the person's.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <tuple>

#include "platform/storage.h"
#include "system/settings_text.h"

namespace quillbox {

// "Quillbox/Quillbox.conf" in the person's folder for configuration, in the form of SettingsText.
// File and folder are for their owner alone; who has more rights loses them at the next save. Each
// call goes to the disk, so that what another process has written is seen; the file is parsed anew
// only when it is not the one that was parsed last.
//
// A file that is there but can't be read (a folder, a pipe, a device, a link to nowhere, one
// without permission, one above kLargest) reads as empty and is never replaced: nothing is kept
// then.
class SettingsFile : public PerUserStore {
 public:
  // In bytes. A thousand accounts need less than a quarter.
  static constexpr std::uint64_t kLargest = 2U << 20U;

  // Below the folder ConfigFolder(); `files` must outlive the store. Another process that saves is
  // waited for; one that has not come to an end within `patience` lets this save fail, and so at
  // once the next ones until it has.
  explicit SettingsFile(Files& files, std::chrono::milliseconds patience = std::chrono::seconds(1));

  std::string Read(std::string_view section, std::string_view key) override;
  bool Apply(std::span<const SettingChange> changes) override;

 private:
  // Device, file, size and last change: what a file on the disk is told from another one by.
  using Mark = std::tuple<std::uint64_t, std::uint64_t, std::int64_t, std::int64_t, std::int64_t>;

  SettingsText* Load();
  void Take(std::string text);
  bool Save(std::span<const SettingChange> changes);

  Files& files_;
  const std::string folder_, path_;  // empty when the person has no folder for configuration
  const std::chrono::milliseconds patience_;
  bool gaveUpWaiting_ = false;
  std::optional<std::string> text_;  // what a file held; nothing when settings_ is something else
  SettingsText settings_;            // as text_ says
  std::optional<Mark> mark_;  // of the file that holds text_; nothing when it may have changed
};

}  // namespace quillbox

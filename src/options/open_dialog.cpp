#include "options/open_dialog.h"

namespace quillbox {

FileDialogResult OpenDialog::OpenFileDialog(FileQuestion question) {
  question.File = lastFile_;
  const std::optional<std::string> chosen = chooser_.Choose(question);
  if (!chosen) return {.Cancelled = true};
  lastFile_ = *chosen;
  const std::size_t nameBegin = chosen->rfind(separator_) + 1;  // 0 without a separator
  return {
      .FileCount = 1, .Files = {chosen->substr(nameBegin)}, .Folder = chosen->substr(0, nameBegin)};
}

std::string FileNameOf(std::string_view path, char separator) {
  const char separators[] = {'\\', separator};
  return std::string(path.substr(path.find_last_of(std::string_view(separators, 2)) + 1));
}

}  // namespace quillbox

// A report in a file, and the yardstick for what is made of it: one pass of reading and splitting.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

// The file is gone at the end.
class SavedReport {
 public:
  explicit SavedReport(const std::string& content)
      : path_(std::filesystem::temp_directory_path() / "quillbox-bench.dat") {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~SavedReport() { std::filesystem::remove(path_); }
  SavedReport(const SavedReport&) = delete;
  SavedReport& operator=(const SavedReport&) = delete;

  std::string Read() const {
    std::string content(std::filesystem::file_size(path_), '\0');
    std::ifstream(path_, std::ios::binary)
        .read(content.data(), static_cast<std::streamsize>(content.size()));
    return content;
  }

  std::int64_t Size() const { return static_cast<std::int64_t>(std::filesystem::file_size(path_)); }

 private:
  std::filesystem::path path_;
};

// Every cell of the report as a piece of the text.
inline std::vector<std::string_view> CellsOf(std::string_view text) {
  std::vector<std::string_view> cells;
  for (std::size_t end = 0; (end = text.find_first_of("\t\n")) != std::string_view::npos;) {
    cells.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  return cells;
}

}  // namespace quillbox

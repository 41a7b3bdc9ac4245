// Stored accounts and settings files.
#include <filesystem>
#include <random>
#include <string>

#include "config/account_list.h"
#include "config/profile_file.h"
#include "quillbox-replay/memory_stores.h"
#include "quillbox-replay/request.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

void RemoveFolder(const std::filesystem::path& folder) {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

// A settings file that lives as long as this object, in a folder of its own that only its owner can
// enter, below the system's folder for temporary files.
class TemporaryFile {
 public:
  // Throws RequestError when the file can't be made.
  explicit TemporaryFile(const std::string& content);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  std::string Path() const {
    const std::u8string path = (folder_ / "settings.ini").u8string();
    return {path.begin(), path.end()};
  }

 private:
  std::filesystem::path folder_;
};

// A name that is taken is never used: somebody else may have made it.
std::filesystem::path NewFolder() {
  std::error_code failure;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(failure);
  std::random_device random;
  for (int i = 0; i < 100 && !failure; ++i) {
    const auto folder = parent / ("quillbox-replay-" + std::to_string(random()));
    if (!std::filesystem::create_directory(folder, failure)) continue;
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, failure);
    if (!failure) return folder;
  }
  throw RequestError("no temporary folder can be made");
}

TemporaryFile::TemporaryFile(const std::string& content) : folder_(NewFolder()) {
  if (SystemFiles().WriteNew(Path(), content)) return;
  RemoveFolder(folder_);
  throw RequestError("no temporary file can be written");
}

TemporaryFile::~TemporaryFile() {
  RemoveFolder(folder_);
}

void AccountListOf(const Request& request, JsonWriter& answer) {
  MemoryStore settings = SettingsOf(request);
  const AccountList list = LoadAccountList(StoreOnSettings(settings).Store);
  answer.Name("accounts");
  answer.Texts(list.Accounts);
  answer.Name("usernames");
  answer.Texts(list.Usernames);
  answer.Name("passwords");
  answer.Texts(list.Passwords);
}

struct Step {
  enum class Kind { kRead, kWrite, kDelete };
  Kind Kind;
  SettingChange Change;
};

// `["read", section, key]`, `["write", section, key, value]` or `["delete", section, key]`.
Step StepOf(const JsonValue& step) {
  const auto text = [&step](std::size_t i) {
    if (i >= step.Items.size() || step.Items[i].Kind != JsonValue::Type::kString) {
      throw RequestError(
          "a step must be a list of texts: what to do, section, key and for a write value");
    }
    return step.Items[i].Text;
  };
  const std::string what = text(0);
  if (what == "read" && step.Items.size() == 3) return {Step::Kind::kRead, {text(1), text(2), {}}};
  if (what == "delete" && step.Items.size() == 3) {
    return {Step::Kind::kDelete, {text(1), text(2), {}}};
  }
  if (what == "write" && step.Items.size() == 4) {
    return {Step::Kind::kWrite, {text(1), text(2), text(3)}};
  }
  throw RequestError("unknown step \"" + what + "\", or one with too few or too many texts");
}

std::vector<Step> StepsOf(const Request& request) {
  std::vector<Step> steps;
  for (const JsonValue& step : request.Member("steps", JsonValue::Type::kArray).Items) {
    steps.push_back(StepOf(step));
  }
  return steps;
}

void Profile(const Request& request, JsonWriter& answer) {
  const std::vector<Step> steps = StepsOf(request);
  const TemporaryFile file(request.Text("text"));
  SystemFiles files;

  answer.Name("results");
  answer.BeginArray();
  for (const Step& step : steps) {
    if (step.Kind == Step::Kind::kRead) {
      answer.Text(IniRead(files, step.Change.Section, step.Change.Key, file.Path()));
    } else {
      IniWrite(files, std::span(&step.Change, 1), file.Path());
      answer.Null();
    }
  }
  answer.EndArray();

  const std::optional<std::string> text = files.Read(file.Path());
  if (!text) throw RequestError("the temporary settings file can't be read");
  answer.Name("text");
  answer.Text(*text);
}

constexpr Operation kSettingsOperations[] = {
    {"accountList", AccountListOf},
    {"profile", Profile},
};

}  // namespace

std::span<const Operation> SettingsOperations() {
  return kSettingsOperations;
}

}  // namespace quillbox

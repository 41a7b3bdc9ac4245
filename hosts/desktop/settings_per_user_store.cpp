#include "desktop/settings_per_user_store.h"

#include <QFile>
#include <QSettings>
#include <QStringList>
#include <utility>
#include <vector>

#include "desktop/settings_file_guard.h"
#include "desktop/stored_name.h"
#include "qt_base/unicode_text.h"
#include "text/letter_case.h"

namespace quillbox {
namespace {

// The person's own settings alone, without the system-wide ones behind them.
class UserSettings : public QSettings {
 public:
  UserSettings() : QSettings(NativeFormat, UserScope, "Quillbox", "Quillbox") {
    setFallbacksEnabled(false);
  }
};

// The name among `stored` that means `name` in any case, else the one to store it under.
QString FindName(const QStringList& stored, std::string_view name) {
  QString exact = ToStoredName(name);
  if (stored.contains(exact)) return exact;
  for (const QString& candidate : stored) {
    const auto text = FromStoredName(candidate);
    if (text && EqualIgnoringCase(*text, name)) return candidate;
  }
  return exact;
}

QString FindPath(QSettings& settings, std::string_view section, std::string_view key) {
  const QString group = FindName(settings.childGroups(), section);
  settings.beginGroup(group);
  QString path = group + '/' + FindName(settings.childKeys(), key);
  settings.endGroup();
  return path;
}

void SetOrRemove(QSettings& settings, const QString& path, const QVariant& value) {
  if (value.isValid()) {
    settings.setValue(path, value);
  } else {
    settings.remove(path);
  }
}

}  // namespace

std::string SettingsPerUserStore::Read(std::string_view section, std::string_view key) {
  UserSettings settings;
  const QVariant value = settings.value(FindPath(settings, section, key));
  return ToCodePage(value.toString()).value_or("");
}

void SettingsPerUserStore::Apply(std::span<const SettingChange> changes) {
  UserSettings settings;
  const std::string file = QFile::encodeName(settings.fileName()).toStdString();
  KeepForOwnerAlone(file);
  const FileMark before = MarkOf(file);

  std::vector<std::pair<QString, QVariant>> undo;
  for (const SettingChange& change : changes) {
    const QString path = FindPath(settings, change.Section, change.Key);
    const QVariant old = settings.value(path);
    const QVariant wanted = change.Value ? QVariant(ToUnicode(*change.Value)) : QVariant();
    if (old == wanted) continue;  // the disk has it already, and a sync takes milliseconds
    undo.emplace_back(path, old);
    SetOrRemove(settings, path, wanted);
  }
  if (undo.empty()) return;
  settings.sync();
  if (MarkOf(file) != before) return;

  // Nothing went to the disk. Qt would go on answering from memory what it couldn't write, and
  // write it much later; so it is given back what the disk has.
  for (auto step = undo.rbegin(); step != undo.rend(); ++step) {
    SetOrRemove(settings, step->first, step->second);
  }
}

}  // namespace quillbox

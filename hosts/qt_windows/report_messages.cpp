#include "qt_windows/report_messages.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "qt_base/unicode_text.h"

namespace quillbox {
namespace {

void TakeItems(const QJsonArray& items, ListField& field) {
  while (!field.Items().empty()) field.Remove(field.Items().size() - 1);
  for (const auto& item : items) field.Add(ToCodePage(item.toString()).value_or("?"));
}

void TakeList(const QJsonObject& message, ListField& field) {
  TakeItems(message["items"].toArray(), field);
  const int selected = message["selected"].toInt(-1);
  const bool isEntry = selected >= 0 && selected < static_cast<int>(field.Items().size());
  if (isEntry) field.ShowSelected(static_cast<std::size_t>(selected));
  field.SetEnabled(message["enabled"].toBool());
}

}  // namespace

QList<QJsonObject> ReportMessages::Take(const QByteArray& arrived) {
  QList<QJsonObject> messages;
  rest_ += arrived;
  for (qsizetype end = rest_.indexOf('\n'); end >= 0; end = rest_.indexOf('\n')) {
    const QByteArray line = rest_.left(end);
    rest_.remove(0, end + 1);
    const QJsonDocument document =
        tooLong_ || line.size() > longest_ ? QJsonDocument() : QJsonDocument::fromJson(line);
    tooLong_ = false;
    if (document.isObject()) messages.append(document.object());
  }
  if (rest_.size() > longest_) {
    rest_.clear();
    tooLong_ = true;
  }
  return messages;
}

QByteArray MessageLine(const QJsonObject& message) {
  return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject FieldMessage(const ListField& field) {
  QJsonArray items;
  for (const std::string& item : field.Items()) items.append(ToUnicode(item));
  const auto selected = field.Selected();
  return {{"do", "field"},
          {"name", ToUnicode(field.Name())},
          {"items", items},
          {"selected", selected ? static_cast<int>(*selected) : -1},
          {"enabled", field.Enabled()}};
}

QJsonObject FieldMessage(const Button& field) {
  return {{"do", "field"}, {"name", ToUnicode(field.Name())}, {"enabled", field.Enabled()}};
}

void TakeField(const QJsonObject& message, ReportsFields& fields) {
  const QString name = message["name"].toString();
  if (ListField* const list = FindList(fields, name)) TakeList(message, *list);
  if (name == ToUnicode(fields.Command1.Name())) {
    fields.Command1.SetEnabled(message["enabled"].toBool());
  }
}

void ForEachList(ReportsFields& fields, const std::function<void(ListField&)>& act) {
  for (ListField* const list : {&fields.Combo1, &fields.Combo2, &fields.Combo3, &fields.Combo4}) {
    act(*list);
  }
}

ListField* FindList(ReportsFields& fields, const QString& name) {
  ListField* found = nullptr;
  ForEachList(fields, [&](ListField& list) {
    if (ToUnicode(list.Name()) == name) found = &list;
  });
  return found;
}

}  // namespace quillbox

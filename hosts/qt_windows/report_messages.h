// What the program and the Reports window's own process say to each other: JSON objects, a line
// each. Form of the lines: see docs/report-window.md.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <functional>

#include "reports/reports_fields.h"

namespace quillbox {

// Cuts what arrives into messages. A line that is no JSON object is skipped, and so is one that is
// longer than `longest` bytes.
class ReportMessages {
 public:
  explicit ReportMessages(qsizetype longest) : longest_(longest) {}

  QList<QJsonObject> Take(const QByteArray& arrived);

 private:
  qsizetype longest_;
  QByteArray rest_;
  bool tooLong_ = false;
};

// The message's line, with its end.
QByteArray MessageLine(const QJsonObject& message);

// The whole state of a field, and taking it over. A message that makes no sense changes nothing.
QJsonObject FieldMessage(const ListField& field);
QJsonObject FieldMessage(const Button& field);
void TakeField(const QJsonObject& message, ReportsFields& fields);

// The list of that fixed name; null when there is none.
ListField* FindList(ReportsFields& fields, const QString& name);

// Calls `act` for each list of the window.
void ForEachList(ReportsFields& fields, const std::function<void(ListField&)>& act);

}  // namespace quillbox

// What passes between the program and the window's process.
#include "qt_windows/report_messages.h"

#include <gmock/gmock.h>

#include <QJsonArray>

namespace quillbox {
namespace {

using testing::ElementsAre;

TEST(ReportMessages, AreCutOutOfWhatArrivesAndNonsenseIsSkipped) {
  const std::string longest(100, 'x');
  const struct Case {
    std::vector<std::string> Arrived;
    std::vector<int> Numbers;
  } kCases[] = {
      {{"{\"n\":1}\n"}, {1}},
      {{"{\"n\":1}\n{\"n\":2}\n"}, {1, 2}},
      {{"{\"n\"", ":1}", "\n{\"n\":2}"}, {1}},
      {{"{\"n\":1}\n", "broken\n[2]\n\n{\"n\":3}\n"}, {1, 3}},
      {{longest, longest + "\n{\"n\":4}\n"}, {4}},
      {{longest + longest + "\n{\"n\":5}\n"}, {5}},
      {{longest, longest, "{\"n\":6}\n{\"n\":7}\n"}, {7}},
  };
  for (const Case& c : kCases) {
    ReportMessages messages(100);
    std::vector<int> numbers;
    for (const std::string& arrived : c.Arrived) {
      for (const QJsonObject& message : messages.Take(QByteArray::fromStdString(arrived))) {
        numbers.push_back(message["n"].toInt());
      }
    }
    EXPECT_EQ(numbers, c.Numbers) << c.Arrived.front();
  }
}

TEST(ReportMessages, CarryTheWholeStateOfAField) {
  ReportsFields here, there;
  here.Combo1.Add("caf\xe9 <b>");
  here.Combo1.Add("two");
  here.Combo1.Select(1);
  here.Combo4.SetEnabled(false);
  here.Command1.SetEnabled(false);
  there.Combo1.Add("old");
  ForEachList(here, [&](ListField& list) { TakeField(FieldMessage(list), there); });
  TakeField(FieldMessage(here.Command1), there);
  EXPECT_THAT(there.Combo1.Items(), ElementsAre("caf\xe9 <b>", "two"));
  EXPECT_EQ(there.Combo1.Selected(), 1U);
  EXPECT_FALSE(there.Combo4.Enabled());
  EXPECT_FALSE(there.Command1.Enabled());
}

TEST(ReportMessages, ThatMakeNoSenseChangeNothing) {
  ReportsFields fields;
  fields.Combo1.Add("one");
  TakeField({{"name", "Combo9"}, {"items", QJsonArray{"x"}}}, fields);
  TakeField({{"name", "Combo2"}, {"items", "x"}, {"selected", 7}, {"enabled", true}}, fields);
  EXPECT_THAT(fields.Combo1.Items(), ElementsAre("one"));
  EXPECT_EQ(fields.Combo2.Selected(), std::nullopt);
}

}  // namespace
}  // namespace quillbox

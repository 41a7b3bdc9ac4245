#include "options/entry_message.h"

namespace quillbox {
namespace {

std::string Quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

std::string NameOf(AccountField field) {
  switch (field) {
    case AccountField::kName:
      return Quoted("Account Name");
    case AccountField::kUsername:
      return Quoted("E-mail Address");
    case AccountField::kPassword:
      break;
  }
  return Quoted("Password");
}

}  // namespace

std::string IncompleteMessage(const TextField& field) {
  const std::string& label = field.Caption();  // ends in a colon
  return "You must complete the " + Quoted(label.substr(0, label.size() - 1)) + " field!";
}

std::string EntryMessage(const EntryFinding& finding, std::string_view account) {
  const std::string field = NameOf(finding.Field);
  const std::string refused =
      "The " + field + " of the account " + Quoted(account) + " can't be stored: ";
  switch (finding.Problem) {
    case EntryProblem::kCharacter:
      return "The " + field + " field holds a character that can't be stored!";
    case EntryProblem::kKeyTaken:
      return std::string(kNameExistsMessage);
    case EntryProblem::kNoKey:
      return "The " + field +
             " field can't hold \"=\", begin with \"[\" or \";\", or begin or end with a blank!";
    case EntryProblem::kPasswordRange:
      return refused + "it is too long, or an accented letter stands too far back in it!";
    case EntryProblem::kThreeBars:
      return refused + "it would hold three bars in a row!";
    case EntryProblem::kBarAtEnd:
      return refused +
             "it would get a bar at its end. Please change its last character or its length!";
    case EntryProblem::kTooLong:
      break;
  }
  return "The " + field + " fields of all accounts together are too long to be stored!";
}

}  // namespace quillbox

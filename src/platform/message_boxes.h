// Modal message boxes.
#pragma once

#include <string>

namespace quillbox {

enum class BoxIcon { kNone, kInformation, kExclamation };
enum class BoxButtons { kOk, kYesNo };
enum class BoxAnswer { kOk, kYes, kNo };

struct Message {
  std::string Text;  // code page, lines end in CR LF
  BoxIcon Icon = BoxIcon::kNone;
  BoxButtons Buttons = BoxButtons::kOk;
  bool InForeground = false;
  std::string Title = "Quillbox";
};

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  // Returns when the person has answered; events are handled meanwhile. A Yes/No box that is closed
  // without an answer counts as No.
  virtual BoxAnswer Show(const Message& message) = 0;
};

}  // namespace quillbox

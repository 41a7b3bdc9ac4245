// Telling the person, once, that there is no place for the icon.
#pragma once

#include <QTimer>
#include <chrono>

namespace quillbox {

class NoTrayNotice {
 public:
  explicit NoTrayNotice(std::chrono::milliseconds wait = std::chrono::seconds(10));

  // The person is told when the wait is over, unless Cancel comes first. At most once a run.
  void Begin();
  void Cancel() { timer_.stop(); }

 private:
  void Show();

  QTimer timer_;
  bool told_ = false;
};

}  // namespace quillbox

// Telling the person, once, that there is no place for the icon.
#pragma once

#include <QTimer>

namespace quillbox {

class NoTrayNotice {
 public:
  NoTrayNotice();

  // From now on the person is told after 10 s, unless Cancel comes first. At most once a run.
  void Begin();
  void Cancel() { timer_.stop(); }

 private:
  void Show();

  QTimer timer_;
  bool told_ = false;
};

}  // namespace quillbox

#include "desktop/qt_event_pump.h"

#include <QCoreApplication>
#include <thread>

namespace quillbox {

void QtEventPump::PumpEvents() {
  QCoreApplication::processEvents();
}

void QtEventPump::Sleep(std::chrono::milliseconds duration) {
  std::this_thread::sleep_for(duration);
}

}  // namespace quillbox

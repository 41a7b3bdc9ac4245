// A sound in the form in which a device takes it.
#pragma once

#include <QAudioFormat>
#include <QByteArray>

#include "sound/wave.h"

namespace quillbox {

struct DeviceSound {
  QAudioFormat Format;
  QByteArray Frames;
};

// Samples of 24 bits become 32 bits. A short silence follows the sound: what a device has not
// played when it is told that there is no more can be lost.
DeviceSound ForDevice(const Wave& wave);

}  // namespace quillbox

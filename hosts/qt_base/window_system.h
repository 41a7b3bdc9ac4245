// What the window system lets a program do, and what the system does for this process.
#pragma once

namespace quillbox {

// On X11 a program can place its windows, find the cursor anywhere, and show a menu that takes the
// mouse and the keyboard without having another window. Elsewhere none of it can be relied on.
bool OnX11();

// False also for a program that speaks X11 on a Wayland desktop: the pointer's place is not told
// there while it is over the windows of others, a panel's among them.
bool OnX11Desktop();

// While it lives, a QApplication that is made speaks X11 where the desktop offers it beside
// Wayland, which most do, and Wayland otherwise. Has no effect when the person chose with
// QT_QPA_PLATFORM, and none on the programs that are started after its end.
class X11Preference {
 public:
  X11Preference();
  ~X11Preference();
  X11Preference(const X11Preference&) = delete;
  X11Preference& operator=(const X11Preference&) = delete;

 private:
  bool chosen_;
};

// While it lives, a QApplication that finds no display to open ends the process with one sentence
// on standard error and the status 1. By itself it would abort. What else is said meanwhile is said
// at its end.
class DisplayNeeded {
 public:
  // `program`: its name, for the sentence.
  explicit DisplayNeeded(const char* program);
  ~DisplayNeeded();
  DisplayNeeded(const DisplayNeeded&) = delete;
  DisplayNeeded& operator=(const DisplayNeeded&) = delete;
};

// For the child between its making and its program: the system kills it when the thread that
// started it ends. Does nothing on systems that know no such thing.
void EndWithParent();

// Gives back to the system what the program no longer needs but still holds. After a window has
// been closed: its picture may have been many times as large as all that the program needs at rest.
void GiveBackSpareMemory();

}  // namespace quillbox

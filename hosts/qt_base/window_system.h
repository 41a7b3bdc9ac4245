// What the window system lets a program do.
#pragma once

namespace quillbox {

// On X11 a program can place its windows, find the cursor anywhere, and show a menu that takes the
// mouse and the keyboard without having another window. Elsewhere none of it can be relied on.
bool OnX11();

}  // namespace quillbox

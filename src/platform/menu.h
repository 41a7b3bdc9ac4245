// A menu as a plain value.
#pragma once

#include <string>
#include <vector>

namespace quillbox {

struct MenuItem {
  std::string Name;     // the designed name ("RefreshNow"); empty for items made at run time
  std::string Caption;  // code page; "&" stands for itself; empty for a separator
  int Command = 0;      // command number of an item made at run time
  bool Enabled = true;
  bool Default = false;  // the menu's default item
  bool Submenu = false;  // opens Items, also when there are none
  std::vector<MenuItem> Items;

  bool Separator() const { return Caption.empty(); }
};

using Menu = std::vector<MenuItem>;

}  // namespace quillbox

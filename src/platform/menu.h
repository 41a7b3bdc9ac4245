// A menu as a plain value.
#pragma once

#include <string>
#include <vector>

namespace quillbox {

struct MenuItem {
  std::string Name;     // the designed name ("RefreshNow"); empty for items made at run time
  std::string Caption;  // code page; "&" stands for itself
  int Command = 0;      // command number of an item made at run time
  bool Enabled = true;
  bool Default = false;  // the menu's default item
  bool Submenu = false;  // opens Items, also when there are none
  bool Separator = false;
  std::vector<MenuItem> Items;
};

using Menu = std::vector<MenuItem>;

}  // namespace quillbox

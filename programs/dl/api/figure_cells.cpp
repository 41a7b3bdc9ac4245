#include "api/figure_cells.h"

#include <algorithm>
#include <cstdio>

namespace quillbox {
namespace {

// Beyond what any account earns; keeps a cell short whatever the service writes.
constexpr double kMost = 1e15;

// A number that isn't above zero, be it minus zero, is zero. The program sets no locale, so the
// mark is the point.
std::string Fixed(double number, int decimals) {
  char text[64];
  const double shown = number > 0 ? std::min(number, kMost) : 0;
  std::snprintf(text, sizeof text, "%.*f", decimals, shown);
  return text;
}

}  // namespace

std::string CountCell(double count) {
  return Fixed(count, 0);
}

std::string PercentCell(double fraction) {
  return Fixed(fraction * 100, 2) + "%";
}

std::string MoneyCell(double amount) {
  return Fixed(amount, 2);
}

}  // namespace quillbox

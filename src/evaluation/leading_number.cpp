// LeadingNumber: the number at the head of a text, whatever follows it.
#include <limits>
#include <string>

#include "evaluation/conversions.h"
#include "evaluation/failure_rule.h"

namespace quillbox {
namespace {

// Walks over a text as if it held no blanks, tabs and line feeds.
class DenseText {
 public:
  explicit DenseText(std::string_view text) : rest_(text) { Skip(); }

  // 0 at the end.
  char Front() const { return rest_.empty() ? '\0' : rest_.front(); }

  bool FrontIsDigit() const { return Front() >= '0' && Front() <= '9'; }

  bool Take(char c) {
    if (rest_.empty() || rest_.front() != c) return false;
    Advance();
    return true;
  }

  void Advance() {
    rest_.remove_prefix(1);
    Skip();
  }

 private:
  void Skip() {
    while (rest_.starts_with(' ') || rest_.starts_with('\t') || rest_.starts_with('\n')) {
      rest_.remove_prefix(1);
    }
  }

  std::string_view rest_;
};

bool TakeMinus(DenseText& in) {
  if (in.Take('-')) return true;
  in.Take('+');
  return false;
}

// 0 when what follows is no exponent.
std::int64_t TakeExponent(DenseText& in) {
  constexpr std::int64_t kLimit = 1'000'000'000'000;
  DenseText ahead = in;
  if (!ahead.Take('e') && !ahead.Take('E')) return 0;
  const bool negative = TakeMinus(ahead);
  std::int64_t exponent = 0;
  for (; ahead.FrontIsDigit(); ahead.Advance()) {
    if (exponent < kLimit) exponent = exponent * 10 + (ahead.Front() - '0');
  }
  return negative ? -exponent : exponent;
}

ExactDecimal TakeNumber(DenseText& in) {
  const bool negative = TakeMinus(in);
  std::string digits;
  std::int64_t point = 0;
  for (bool decimals = false;;) {
    if (in.FrontIsDigit()) {
      digits += in.Front();
      in.Advance();
      if (!decimals) ++point;
    } else if (decimals || !in.Take('.')) {
      break;
    } else {
      decimals = true;
    }
  }
  return {negative, digits, point + TakeExponent(in)};
}

}  // namespace

double LeadingNumber(std::string_view text) {
  DenseText in(text);
  const ExactDecimal number = TakeNumber(in);
  constexpr double kLargest = std::numeric_limits<double>::max();
  double value = number.Negative() ? -kLargest : kLargest;
  Attempt([&] { value = number.Value(); });
  return value;
}

}  // namespace quillbox

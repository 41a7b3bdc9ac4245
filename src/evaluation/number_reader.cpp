#include "evaluation/number_reader.h"

#include <algorithm>
#include <string>

#include "evaluation/failure_rule.h"

namespace quillbox {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsSign(char c) {
  return c == '+' || c == '-';
}

// Held within a trillion.
std::int64_t TakeExponentDigits(std::string_view& text) {
  constexpr std::int64_t kLimit = 1'000'000'000'000;
  std::int64_t exponent = 0;
  while (!text.empty() && IsDigit(text.front())) {
    exponent = std::min(exponent * 10 + (text.front() - '0'), kLimit);
    text.remove_prefix(1);
  }
  return exponent;
}

class NumberReader {
 public:
  NumberReader(std::string_view text, const RegionalSettings& region)
      : rest_(text), region_(region) {}

  WrittenNumber Read() {
    while (TakeBlankSignOrSymbol() || TakeOpening()) {
    }
    TakeDigits();
    TakeExponent();
    while (TakeBlankSignOrSymbol() || TakeClosing()) {
    }
    if (!rest_.empty() || opened_ != closed_) throw ConversionFailed{};
    return {ExactDecimal(negative_, digits_, point_ + exponent_), exponent_};
  }

 private:
  bool Take(std::string_view token) {
    if (token.empty() || !rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }

  bool TakeBlankSignOrSymbol() {
    if (Take(" ") || Take("\xA0")) return true;
    if (!symbolSeen_ && Take(region_.CurrencySymbol)) return symbolSeen_ = true;
    if (signSeen_ || rest_.empty() || !IsSign(rest_.front())) return false;
    negative_ = rest_.front() == '-';
    rest_.remove_prefix(1);
    return signSeen_ = true;
  }

  // Parentheses take the place of the one sign.
  bool TakeOpening() {
    if (signSeen_ || !Take("(")) return false;
    return signSeen_ = opened_ = negative_ = true;
  }

  bool TakeClosing() {
    if (!opened_ || closed_ || !Take(")")) return false;
    return closed_ = true;
  }

  void TakeDigits() {
    bool decimals = false;
    for (;;) {
      if (!rest_.empty() && IsDigit(rest_.front())) {
        digits_ += rest_.front();
        rest_.remove_prefix(1);
        if (!decimals) ++point_;
      } else if (!decimals && Take(region_.Decimal)) {
        decimals = true;
      } else if (!Take(region_.Group)) {
        break;
      }
    }
    if (digits_.empty()) throw ConversionFailed{};
  }

  void TakeExponent() {
    std::string_view ahead = rest_;
    if (ahead.empty() || (ahead.front() != 'E' && ahead.front() != 'e')) return;
    ahead.remove_prefix(1);
    const bool negative = ahead.starts_with('-');
    if (!ahead.empty() && IsSign(ahead.front())) ahead.remove_prefix(1);
    if (ahead.empty() || !IsDigit(ahead.front())) return;
    exponent_ = TakeExponentDigits(ahead);
    if (negative) exponent_ = -exponent_;
    rest_ = ahead;
  }

  std::string_view rest_;
  const RegionalSettings& region_;
  bool negative_ = false, signSeen_ = false, symbolSeen_ = false;
  bool opened_ = false, closed_ = false;
  std::string digits_;
  std::int64_t point_ = 0;
  std::int64_t exponent_ = 0;
};

}  // namespace

WrittenNumber ReadNumber(std::string_view text, const RegionalSettings& region) {
  return NumberReader(text, region).Read();
}

}  // namespace quillbox

#include "region/conversions.h"

#include <algorithm>
#include <limits>
#include <string>

#include "region/failure_rule.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr std::int64_t kLargestExponentRead = 1'000'000'000'000;

bool IsSign(char c) {
  return c == '+' || c == '-';
}

// Held within kLargestExponentRead.
std::int64_t TakeExponentDigits(std::string_view& text) {
  std::int64_t exponent = 0;
  while (!text.empty() && IsDigit(text.front())) {
    exponent = std::min(exponent * 10 + (text.front() - '0'), kLargestExponentRead);
    text.remove_prefix(1);
  }
  return exponent;
}

struct WrittenNumber {
  ExactDecimal Number;
  std::int64_t Exponent = 0;  // as written behind the "E"; held within a trillion
};

// The grammar of a number in a region's notation.
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

WrittenNumber ReadNumber(std::string_view text, const RegionalSettings& region) {
  return NumberReader(text, region).Read();
}

// Walks over a text as if it held no blanks, tabs and line feeds.
class DenseText {
 public:
  explicit DenseText(std::string_view text) : rest_(text) { Skip(); }

  // 0 at the end.
  char Front() const { return rest_.empty() ? '\0' : rest_.front(); }

  bool FrontIsDigit() const { return IsDigit(Front()); }

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
std::int64_t TakeLeadingExponent(DenseText& in) {
  DenseText ahead = in;
  if (!ahead.Take('e') && !ahead.Take('E')) return 0;
  const bool negative = TakeMinus(ahead);
  std::int64_t exponent = 0;
  for (; ahead.FrontIsDigit(); ahead.Advance()) {
    if (exponent < kLargestExponentRead) exponent = exponent * 10 + (ahead.Front() - '0');
  }
  return negative ? -exponent : exponent;
}

ExactDecimal TakeLeadingNumber(DenseText& in) {
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
  return {negative, digits, point + TakeLeadingExponent(in)};
}

}  // namespace

double LeadingNumber(std::string_view text) {
  DenseText in(text);
  const ExactDecimal number = TakeLeadingNumber(in);
  constexpr double kLargest = std::numeric_limits<double>::max();
  double value = number.Negative() ? -kLargest : kLargest;
  Attempt([&] { value = number.Value(); });
  return value;
}

double ToDouble(std::string_view text, const RegionalSettings& region) {
  return ReadNumber(text, region).Number.Value();
}

std::int64_t ToCurrency(std::string_view text, const RegionalSettings& region) {
  return ReadNumber(text, region).Number.Shifted(4).Rounded(0, Rounding::kHalfEven).WholePart();
}

ExactDecimal ToDecimal(std::string_view text, const RegionalSettings& region) {
  constexpr std::int64_t kLargestExponent = 9999;
  WrittenNumber written = ReadNumber(text, region);
  const bool sane = written.Exponent <= kLargestExponent && written.Exponent >= -kLargestExponent;
  if (!sane && !written.Number.Zero()) throw ConversionFailed{};
  return written.Number;
}

std::int32_t ToLong(std::string_view text, const RegionalSettings& region) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int64_t whole =
      ReadNumber(text, region).Number.Rounded(0, Rounding::kHalfEven).WholePart();
  if (whole < Limits::min() || whole > Limits::max()) throw ConversionFailed{};
  return static_cast<std::int32_t>(whole);
}

}  // namespace quillbox

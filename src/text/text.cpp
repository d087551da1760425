#include "text/text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

StringView LTrim(StringView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  return first == StringView::npos ? StringView() : text.substr(first);
}

StringView RTrim(StringView text) { return text.substr(0, text.find_last_not_of(u' ') + 1); }

StringView Trim(StringView text) { return LTrim(RTrim(text)); }

bool IsBlank(StringView text) { return text.find_first_not_of(u' ') == StringView::npos; }

namespace {

// Takes the characters of a number off the front of a text, spaces between them left out.
class NumberScanner {
 public:
  explicit NumberScanner(StringView text) : text_(text) {}

  char16_t Peek() {
    while (at_ < text_.size() && text_[at_] == u' ') ++at_;
    return at_ < text_.size() ? text_[at_] : u'\0';
  }
  void Skip() { ++at_; }
  bool Take(StringView oneOf, std::string& number) {
    const char16_t c = Peek();
    if (c == u'\0' || oneOf.find(c) == StringView::npos) return false;
    number += static_cast<char>(c);
    Skip();
    return true;
  }
  std::size_t TakeDigits(std::string& number) {
    const std::size_t before = number.size();
    while (Take(u"0123456789", number)) {
    }
    return number.size() - before;
  }

 private:
  StringView text_;
  std::size_t at_ = 0;
};

// A number out of range is either too large or next to nothing: its first digit that counts tells.
double LimitOf(const std::string& mantissa, long long exponent) {
  const std::size_t first = mantissa.find_first_of("123456789");
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const auto magnitude = static_cast<long long>(point) - static_cast<long long>(first) + exponent;
  return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

}  // namespace

double Val(StringView text) {
  NumberScanner scanner(text);
  std::string sign;
  scanner.Take(u"+-", sign);

  std::string number;
  std::size_t digits = scanner.TakeDigits(number);
  if (scanner.Take(u".", number)) digits += scanner.TakeDigits(number);
  if (digits == 0) return 0.0;

  const std::string mantissa = number;
  long long exponent = 0;
  std::string power;
  if (scanner.Take(u"EeDd", power)) {
    power = "e";
    if (!scanner.Take(u"-", power)) {
      std::string plus;
      scanner.Take(u"+", plus);
    }
    if (scanner.TakeDigits(power) > 0) {
      number += power;
      const char* const first = power.data() + 1;
      if (std::from_chars(first, power.data() + power.size(), exponent).ec != std::errc())
        exponent = *first == '-' ? -1'000'000'000'000 : 1'000'000'000'000;
    }
  }

  double value = 0.0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error == std::errc::result_out_of_range) value = LimitOf(mantissa, exponent);
  return sign == "-" ? -value : value;
}

String Str(long long number) {
  const std::string digits = std::to_string(number);
  return String(digits.begin(), digits.end());
}

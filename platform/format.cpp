#include "platform/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cwchar>
#include <limits>
#include <string_view>

#include "platform/wide_string.h"

namespace {

using qdr::FormatArgument;

constexpr int kMostCharacters = 4095;
constexpr int kDefaultDigits = 6;
// Digits of the largest double before its point, its sign and its point, and the precision.
constexpr std::size_t kRealBuffer = 320 + kMostCharacters;

// One conversion of a format: what stands between '%' and its letter, and the letter.
struct Conversion {
  bool left = false;
  bool plus = false;
  bool space = false;
  bool alternate = false;
  bool zeros = false;
  int width = 0;
  int precision = -1;
  wchar_t letter = L'\0';
};

class Arguments {
 public:
  explicit Arguments(std::initializer_list<FormatArgument> list) : m_list(list) {}

  FormatArgument next() {
    return m_taken < m_list.size() ? m_list.begin()[m_taken++] : FormatArgument();
  }

 private:
  std::initializer_list<FormatArgument> m_list;
  std::size_t m_taken = 0;
};

std::wstring widened(std::string_view ascii) {
  return {ascii.begin(), ascii.end()};
}

std::int64_t truncated(double value) {
  constexpr double kLimit = 9223372036854775808.0;
  if (std::isnan(value)) return 0;
  if (value >= kLimit) return std::numeric_limits<std::int64_t>::max();
  if (value < -kLimit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

std::int64_t integerOf(const FormatArgument& argument) {
  switch (argument.kind()) {
    case FormatArgument::Kind::integer:
      return argument.integer();
    case FormatArgument::Kind::real:
      return truncated(argument.real());
    case FormatArgument::Kind::wide:
      return _wtoi(argument.wide());
    case FormatArgument::Kind::narrow:
      return _wtoi(CString(argument.narrow()));
    case FormatArgument::Kind::none:
      break;
  }
  return 0;
}

double realOf(const FormatArgument& argument) {
  switch (argument.kind()) {
    case FormatArgument::Kind::integer:
      return static_cast<double>(argument.integer());
    case FormatArgument::Kind::real:
      return argument.real();
    case FormatArgument::Kind::wide:
      return _wtof(argument.wide());
    case FormatArgument::Kind::narrow:
      return _wtof(CString(argument.narrow()));
    case FormatArgument::Kind::none:
      break;
  }
  return 0.0;
}

std::wstring realDigits(double value, std::chars_format form, int precision) {
  std::array<char, kRealBuffer> buffer;
  char* const first = buffer.data();
  char* const last = first + buffer.size();
  const auto written = std::to_chars(first, last, value, form, precision);
  return widened({first, static_cast<std::size_t>(written.ptr - first)});
}

std::wstring textOf(const FormatArgument& argument) {
  switch (argument.kind()) {
    case FormatArgument::Kind::integer:
      return std::to_wstring(argument.integer());
    case FormatArgument::Kind::real:
      return realDigits(argument.real(), std::chars_format::general, kDefaultDigits);
    case FormatArgument::Kind::wide:
      return argument.wide() ? argument.wide() : L"";
    case FormatArgument::Kind::narrow:
      return qdr::fromUtf8(argument.narrow() ? argument.narrow() : "");
    case FormatArgument::Kind::none:
      break;
  }
  return {};
}

// Brings `prefix` (sign, "0x") and `body` to the width: blanks outside, zeros between the two.
std::wstring padded(const Conversion& conversion, std::wstring prefix, std::wstring body,
                    bool mayTakeZeros) {
  const std::size_t length = prefix.size() + body.size();
  const auto width = static_cast<std::size_t>(conversion.width);
  const std::size_t missing = width > length ? width - length : 0;
  if (conversion.left) return prefix + body + std::wstring(missing, L' ');
  if (conversion.zeros && mayTakeZeros) return prefix + std::wstring(missing, L'0') + body;
  return std::wstring(missing, L' ') + prefix + body;
}

std::wstring signOf(const Conversion& conversion, bool negative) {
  if (negative) return L"-";
  if (conversion.plus) return L"+";
  return conversion.space ? L" " : L"";
}

std::wstring digitsOf(std::uint64_t magnitude, int base, bool upper) {
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, base);
  std::wstring digits = widened({buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())});
  if (upper) std::transform(digits.begin(), digits.end(), digits.begin(), qdr::upperCase);
  return digits;
}

// As in C, a 0 with precision 0 has no digits.
std::wstring paddedInteger(const Conversion& conversion, std::wstring prefix, std::wstring digits) {
  const auto least = static_cast<std::size_t>(std::max(conversion.precision, 0));
  if (conversion.precision == 0 && digits == L"0") digits.clear();
  if (digits.size() < least) digits.insert(0, least - digits.size(), L'0');
  const bool octal = conversion.alternate && conversion.letter == L'o';
  if (octal && !digits.starts_with(L'0')) digits.insert(0, 1, L'0');
  return padded(conversion, std::move(prefix), std::move(digits), conversion.precision < 0);
}

std::wstring signedInteger(const Conversion& conversion, const FormatArgument& argument) {
  std::int64_t value = integerOf(argument);
  if (argument.kind() == FormatArgument::Kind::integer && argument.bits() == 32)
    value = static_cast<std::int32_t>(value);
  const bool negative = value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  return paddedInteger(conversion, signOf(conversion, negative),
                       digitsOf(negative ? ~bits + 1 : bits, 10, false));
}

std::wstring unsignedInteger(const Conversion& conversion, const FormatArgument& argument) {
  auto value = static_cast<std::uint64_t>(integerOf(argument));
  if (argument.kind() == FormatArgument::Kind::integer && argument.bits() == 32)
    value = static_cast<std::uint32_t>(value);
  const wchar_t letter = conversion.letter;
  const bool upper = letter == L'X';
  const int base = letter == L'u' ? 10 : (letter == L'o' ? 8 : 16);
  std::wstring prefix;
  if (conversion.alternate && value != 0 && base == 16) prefix = upper ? L"0X" : L"0x";
  return paddedInteger(conversion, std::move(prefix), digitsOf(value, base, upper));
}

// The digits of "%#g": the form of "%g", with the zeros at its end.
std::wstring generalWithZeros(double value, int precision) {
  constexpr int kLeastExponent = -4;
  const int significant = std::max(precision, 1);
  const std::wstring scientific = realDigits(value, std::chars_format::scientific, significant - 1);
  const int exponent = _wtoi(scientific.c_str() + scientific.find(L'e') + 1);
  if (exponent < kLeastExponent || exponent >= significant) return scientific;
  return realDigits(value, std::chars_format::fixed, significant - 1 - exponent);
}

std::wstring magnitudeDigits(const Conversion& conversion, double magnitude) {
  const wchar_t letter = qdr::lowerCase(conversion.letter);
  const auto form = letter == L'f'   ? std::chars_format::fixed
                    : letter == L'e' ? std::chars_format::scientific
                                     : std::chars_format::general;
  const int precision = conversion.precision < 0 ? kDefaultDigits : conversion.precision;
  if (!conversion.alternate || !std::isfinite(magnitude))
    return realDigits(magnitude, form, precision);
  std::wstring digits = letter == L'g' ? generalWithZeros(magnitude, precision)
                                       : realDigits(magnitude, form, precision);
  if (digits.find(L'.') == std::wstring::npos)
    digits.insert(std::min(digits.find(L'e'), digits.size()), 1, L'.');
  return digits;
}

std::wstring real(const Conversion& conversion, const FormatArgument& argument) {
  const double value = realOf(argument);
  std::wstring digits = magnitudeDigits(conversion, std::abs(value));
  if (qdr::lowerCase(conversion.letter) != conversion.letter)
    std::transform(digits.begin(), digits.end(), digits.begin(), qdr::upperCase);
  return padded(conversion, signOf(conversion, std::signbit(value)), std::move(digits),
                std::isfinite(value));
}

std::wstring text(const Conversion& conversion, const FormatArgument& argument) {
  std::wstring body = textOf(argument);
  if (conversion.precision >= 0)
    body.resize(std::min(body.size(), std::size_t(conversion.precision)));
  return padded(conversion, {}, std::move(body), false);
}

std::wstring character(const Conversion& conversion, const FormatArgument& argument) {
  const bool isText = argument.kind() == FormatArgument::Kind::wide ||
                      argument.kind() == FormatArgument::Kind::narrow;
  std::wstring body = isText ? textOf(argument).substr(0, 1)
                             : std::wstring(1, static_cast<wchar_t>(integerOf(argument)));
  return padded(conversion, {}, std::move(body), false);
}

using Writer = std::wstring (*)(const Conversion&, const FormatArgument&);

Writer writerOf(wchar_t letter) {
  switch (letter) {
    case L'd':
    case L'i':
      return signedInteger;
    case L'u':
    case L'x':
    case L'X':
    case L'o':
      return unsignedInteger;
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G':
      return real;
    case L's':
    case L'S':
      return text;
    case L'c':
    case L'C':
      return character;
    default:
      return nullptr;
  }
}

// Reads one conversion; `m_at` stands behind its '%' before and behind its letter after.
class ConversionReader {
 public:
  ConversionReader(const wchar_t*& at, Arguments& arguments) : m_at(at), m_arguments(arguments) {}

  Conversion read() {
    Conversion conversion;
    while (takeFlag(conversion))
      ++m_at;
    conversion.width = takeNumber();
    if (conversion.width < 0) {
      conversion.left = true;
      conversion.width = -conversion.width;
    }
    if (*m_at == L'.') {
      ++m_at;
      conversion.precision = takeNumber();
    }
    skipLength();
    conversion.letter = *m_at;
    if (*m_at != L'\0') ++m_at;
    return conversion;
  }

 private:
  bool takeFlag(Conversion& conversion) const {
    switch (*m_at) {
      case L'-':
        return conversion.left = true;
      case L'+':
        return conversion.plus = true;
      case L' ':
        return conversion.space = true;
      case L'#':
        return conversion.alternate = true;
      case L'0':
        return conversion.zeros = true;
      default:
        return false;
    }
  }

  int takeNumber() {
    if (*m_at == L'*') {
      ++m_at;
      constexpr std::int64_t kMost = kMostCharacters;
      return static_cast<int>(std::clamp(integerOf(m_arguments.next()), -kMost, kMost));
    }
    int number = 0;
    for (; *m_at >= L'0' && *m_at <= L'9'; ++m_at)
      number = std::min(number * 10 + static_cast<int>(*m_at - L'0'), kMostCharacters);
    return number;
  }

  void skipLength() {
    while (*m_at == L'l' || *m_at == L'h' || *m_at == L'w')
      ++m_at;
    if (std::wcsncmp(m_at, L"I64", 3) == 0 || std::wcsncmp(m_at, L"I32", 3) == 0) m_at += 3;
  }

  const wchar_t*& m_at;
  Arguments& m_arguments;
};

}  // namespace

namespace qdr {

std::wstring formatted(const wchar_t* format, std::initializer_list<FormatArgument> list) {
  std::wstring result;
  Arguments arguments(list);
  const wchar_t* at = format ? format : L"";
  while (*at != L'\0') {
    if (*at != L'%') {
      result += *at++;
      continue;
    }
    const wchar_t* const start = at++;
    const Conversion conversion = ConversionReader(at, arguments).read();
    if (const Writer write = writerOf(conversion.letter))
      result += write(conversion, arguments.next());
    else if (conversion.letter == L'%')
      result += L'%';
    else
      result.append(start, at);
  }
  return result;
}

}  // namespace qdr

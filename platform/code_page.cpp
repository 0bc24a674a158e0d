#include "platform/code_page.h"

#include <iconv.h>

#include <cstdint>

namespace {

constexpr wchar_t kFirstBeyondAscii = 128;
constexpr std::size_t kMostBytes = 8;

// The base letters from U+00C0 to U+017F, a row of 32 to a line. A ligature has its first letter.
constexpr wchar_t kFirstAccented = 0xC0;
constexpr char kBaseLetters[] =
    "AAAAAAACEEEEIIIIDNOOOOO\0OUUUUYTs"
    "aaaaaaaceeeeiiiidnooooo\0ouuuuyty"
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGg"
    "GgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlL"
    "lLlNnNnNnnNnOoOoOoOoRrRrRrSsSsSs"
    "SsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
constexpr std::size_t kAccentedCount = sizeof kBaseLetters - 1;
static_assert(kAccentedCount == 0x180 - 0xC0);

// The code page of the C library by its name; without it only ASCII has bytes.
class IconvCodePage : public ICodePage {
 public:
  explicit IconvCodePage(const char* name) : m_converter(iconv_open(name, "UTF-32LE")) {}
  ~IconvCodePage() override {
    if (isOpen()) iconv_close(m_converter);
  }
  IconvCodePage(const IconvCodePage&) = delete;
  IconvCodePage& operator=(const IconvCodePage&) = delete;

  std::string bytesOf(wchar_t character) override {
    if (character >= 0 && character < kFirstBeyondAscii) return {static_cast<char>(character)};
    if (!isOpen()) return {};
    const auto code = static_cast<std::uint32_t>(character);
    char in[4];
    for (unsigned i = 0; i < sizeof in; ++i)
      in[i] = static_cast<char>(code >> (8 * i));
    char out[kMostBytes];
    char* from = in;
    char* to = out;
    std::size_t fromLeft = sizeof in;
    std::size_t toLeft = sizeof out;
    // An answer above 0 counts characters that were replaced by others.
    if (iconv(m_converter, &from, &fromLeft, &to, &toLeft) != 0) return {};
    return {out, sizeof out - toLeft};
  }

 private:
  bool isOpen() const { return m_converter != reinterpret_cast<iconv_t>(-1); }

  iconv_t m_converter;
};

ICodePage*& chosenCodePage() {
  static ICodePage* chosen = nullptr;
  return chosen;
}

ICodePage& codePage() {
  static IconvCodePage korean("CP949");
  return chosenCodePage() ? *chosenCodePage() : korean;
}

}  // namespace

namespace qdr {

std::string toCodePage(std::wstring_view text) {
  std::string result;
  result.reserve(text.size());
  ICodePage& page = codePage();
  for (const wchar_t character : text) {
    std::string bytes = page.bytesOf(character);
    if (bytes.empty()) bytes = page.bytesOf(baseLetter(character));
    result += bytes.empty() || bytes.front() == '\0' ? "?" : bytes;
  }
  return result;
}

void setCodePage(ICodePage* page) {
  chosenCodePage() = page;
}

wchar_t baseLetter(wchar_t character) {
  const auto place = static_cast<std::size_t>(character - kFirstAccented);
  if (character < kFirstAccented || place >= kAccentedCount) return L'\0';
  return static_cast<wchar_t>(kBaseLetters[place]);
}

}  // namespace qdr

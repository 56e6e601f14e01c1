// Reading the registry-export text form.
#include <optional>

#include "cli/reg_text.h"
#include "platform/wstr.h"

namespace velmo::cli {
namespace {

constexpr std::string_view kRoots[] = {"HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE"};

struct Line {
  int number;
  std::string text;
};

std::string_view TrimRight(std::string_view s) {
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
  return s;
}

std::string_view TrimLeft(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  return s;
}

// UTF-8 without a byte-order mark, whatever the file's encoding.
std::string AsUtf8(std::string_view text) {
  if (text.size() >= 2 && static_cast<BYTE>(text[0]) == 0xFF && static_cast<BYTE>(text[1]) == 0xFE) {
    std::u16string units((text.size() - 2) / 2, u'\0');
    for (size_t i = 0; i < units.size(); ++i)
      units[i] = static_cast<char16_t>(static_cast<BYTE>(text[2 + 2 * i]) |
                                       static_cast<BYTE>(text[3 + 2 * i]) << 8);
    return ToUtf8(FromUtf16(units));
  }
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  return std::string(text);
}

// Physical lines joined into logical ones: a hex list may continue on the next
// line after a trailing backslash.
std::vector<Line> LogicalLines(const std::string& text) {
  std::vector<Line> lines;
  size_t start = 0;
  int number = 0;
  bool continuing = false;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string_view line = TrimRight(std::string_view(text).substr(start, end - start));
    start = end + 1;
    ++number;
    if (continuing) {
      lines.back().text += TrimLeft(line);
    } else {
      lines.push_back({number, std::string(line)});
    }
    std::string& joined = lines.back().text;
    const size_t equals = joined.find("=hex");
    continuing = equals != std::string::npos && !joined.empty() && joined.back() == '\\';
    if (continuing) joined.pop_back();
  }
  return lines;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// 1 to max_digits hex digits, the whole of s.
std::optional<DWORD> HexNumber(std::string_view s, size_t max_digits) {
  if (s.empty() || s.size() > max_digits) return std::nullopt;
  DWORD value = 0;
  for (char c : s) {
    const int d = HexDigit(c);
    if (d < 0) return std::nullopt;
    value = value << 4 | static_cast<DWORD>(d);
  }
  return value;
}

bool ValidUtf8(const std::string& s) { return ToUtf8(FromUtf8(s)) == s; }

class Parser {
 public:
  explicit Parser(std::vector<RegTextError>* errors) : errors_(errors) {}

  void Parse(const std::vector<Line>& lines, std::vector<registry::RawKey>* keys) {
    bool header_seen = false;
    for (const Line& line : lines) {
      line_ = line.number;
      std::string_view text = TrimLeft(line.text);
      if (text.empty() || text.front() == ';') continue;
      if (!header_seen) {
        header_seen = true;
        if (text != kRegFileHeader) Error("the file must begin with \"" + std::string(kRegFileHeader) + "\"");
        continue;
      }
      if (text.front() == '[') {
        KeyLine(text, keys);
      } else if (keys->empty()) {
        Error("a value before the first [KEY] line");
      } else {
        ValueLine(text, &keys->back());
      }
    }
    if (!header_seen) {
      line_ = 1;
      Error("empty file: no \"" + std::string(kRegFileHeader) + "\" line");
    }
  }

 private:
  void Error(std::string message) { errors_->push_back({line_, std::move(message)}); }

  void KeyLine(std::string_view text, std::vector<registry::RawKey>* keys) {
    if (text.back() != ']' || text.size() < 3) return Error("a key line must be [PATH]");
    const std::string path(text.substr(1, text.size() - 2));
    if (path.front() == '-') return Error("deleting a key is not supported");
    const std::string_view root = std::string_view(path).substr(0, path.find('\\'));
    bool known = false;
    for (std::string_view r : kRoots) known = known || root == r;
    if (!known) return Error("the key must be under HKEY_CURRENT_USER or HKEY_LOCAL_MACHINE");
    if (!ValidUtf8(path)) return Error("the key name is not valid UTF-8");
    keys->push_back({FromUtf8(path), {}});
  }

  // A quoted string with the escapes \\ and \"; the rest after it in *rest.
  std::optional<std::string> Quoted(std::string_view text, std::string_view* rest) {
    std::string out;
    for (size_t i = 1; i < text.size(); ++i) {
      const char c = text[i];
      if (c == '"') {
        *rest = text.substr(i + 1);
        if (!ValidUtf8(out)) {
          Error("text that is not valid UTF-8");
          return std::nullopt;
        }
        return out;
      }
      if (c == '\\') {
        if (i + 1 == text.size() || (text[i + 1] != '\\' && text[i + 1] != '"')) {
          Error("only \\\\ and \\\" may follow a backslash in quotes");
          return std::nullopt;
        }
        out += text[++i];
        continue;
      }
      out += c;
    }
    Error("a quoted text without its closing quote");
    return std::nullopt;
  }

  void ValueLine(std::string_view text, registry::RawKey* key) {
    registry::RawValue value;
    std::string_view rest;
    if (text.front() == '@') {
      rest = text.substr(1);
    } else if (text.front() == '"') {
      std::optional<std::string> name = Quoted(text, &rest);
      if (!name) return;
      value.name = FromUtf8(*name);
    } else {
      return Error("a value line must be \"NAME\"=DATA or @=DATA");
    }
    if (rest.empty() || rest.front() != '=') return Error("'=' expected after the value name");
    if (Data(rest.substr(1), &value)) key->values.push_back(std::move(value));
  }

  bool Data(std::string_view data, registry::RawValue* value) {
    if (data.front() == '"') {
      std::string_view after;
      std::optional<std::string> text = Quoted(data, &after);
      if (!text) return false;
      if (!after.empty()) return Error("text after the closing quote"), false;
      value->type = REG_SZ;
      for (char16_t unit : ToUtf16(FromUtf8(*text) + L'\0'))
        value->bytes.insert(value->bytes.end(), {BYTE(unit & 0xFF), BYTE(unit >> 8)});
      return true;
    }
    if (data.substr(0, 6) == "dword:") {
      const std::optional<DWORD> n = HexNumber(data.substr(6), 8);
      if (!n) return Error("dword: needs 1 to 8 hex digits"), false;
      value->type = REG_DWORD;
      value->bytes = {BYTE(*n), BYTE(*n >> 8), BYTE(*n >> 16), BYTE(*n >> 24)};
      return true;
    }
    if (data.substr(0, 4) == "hex:") {
      value->type = REG_BINARY;
      return HexBytes(data.substr(4), &value->bytes);
    }
    if (data.substr(0, 4) == "hex(") {
      const size_t close = data.find("):");
      const std::optional<DWORD> type =
          close == std::string_view::npos ? std::nullopt : HexNumber(data.substr(4, close - 4), 8);
      if (!type) return Error("hex(TYPE): needs the type in hex"), false;
      value->type = *type;
      return HexBytes(data.substr(close + 2), &value->bytes);
    }
    if (data == "-") return Error("deleting a value is not supported"), false;
    return Error("unknown data: expected \"text\", dword:, hex: or hex(TYPE):"), false;
  }

  bool HexBytes(std::string_view list, std::vector<BYTE>* bytes) {
    list = TrimRight(TrimLeft(list));
    if (list.empty()) return true;
    size_t start = 0;
    while (start <= list.size()) {
      size_t comma = list.find(',', start);
      if (comma == std::string_view::npos) comma = list.size();
      const std::optional<DWORD> byte =
          HexNumber(TrimRight(TrimLeft(list.substr(start, comma - start))), 2);
      if (!byte) return Error("hex bytes must be two hex digits separated by commas"), false;
      bytes->push_back(static_cast<BYTE>(*byte));
      start = comma + 1;
    }
    return true;
  }

  std::vector<RegTextError>* errors_;
  int line_ = 0;
};

}  // namespace

bool ParseRegText(std::string_view text, std::vector<registry::RawKey>* keys,
                  std::vector<RegTextError>* errors) {
  keys->clear();
  errors->clear();
  Parser(errors).Parse(LogicalLines(AsUtf8(text)), keys);
  if (!errors->empty()) keys->clear();
  return errors->empty();
}

}  // namespace velmo::cli

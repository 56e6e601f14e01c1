// Writing the registry-export text form.
#include <cstdio>

#include "cli/reg_text.h"
#include "platform/wstr.h"

namespace velmo::cli {
namespace {

constexpr size_t kWrapColumn = 80;

std::string Quoted(std::wstring_view text) {
  std::string out = "\"";
  for (char c : ToUtf8(text)) {
    if (c == '\\' || c == '"') out += '\\';
    out += c;
  }
  return out + '"';
}

// The text of a REG_SZ value when its bytes are exactly that text and one
// terminator, with nothing a line of the text form cannot carry.
bool AsPlainText(const std::vector<BYTE>& bytes, std::wstring* text) {
  if (bytes.size() < 2 || bytes.size() % 2 != 0) return false;
  std::u16string units(bytes.size() / 2, u'\0');
  for (size_t i = 0; i < units.size(); ++i)
    units[i] = static_cast<char16_t>(bytes[2 * i] | (bytes[2 * i + 1] << 8));
  if (units.back() != 0) return false;
  units.pop_back();
  for (char16_t u : units)
    if (u < 0x20 || u == 0x7F) return false;
  *text = FromUtf16(units);
  return ToUtf16(*text) == units;  // no unpaired surrogates
}

// "hex:" or "hex(N):" and the bytes, wrapped like the usual exports.
std::string HexList(std::string prefix_and_name, const std::vector<BYTE>& bytes) {
  std::string out = prefix_and_name;
  size_t column = out.size();
  for (size_t i = 0; i < bytes.size(); ++i) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%02x", bytes[i]);
    out += hex;
    column += 2;
    if (i + 1 == bytes.size()) break;
    out += ',';
    ++column;
    if (column > kWrapColumn - 4) {
      out += "\\\n  ";
      column = 2;
    }
  }
  return out;
}

std::string ValueLine(const registry::RawValue& v) {
  const std::string name = (v.name.empty() ? std::string("@") : Quoted(v.name)) + "=";
  std::wstring text;
  if (v.type == REG_SZ && AsPlainText(v.bytes, &text)) return name + Quoted(text);
  if (v.type == REG_DWORD && v.bytes.size() == 4) {
    char dword[16];
    std::snprintf(dword, sizeof dword, "%08x",
                  v.bytes[0] | v.bytes[1] << 8 | v.bytes[2] << 16 | unsigned(v.bytes[3]) << 24);
    return name + "dword:" + dword;
  }
  if (v.type == REG_BINARY) return HexList(name + "hex:", v.bytes);
  char prefix[24];
  std::snprintf(prefix, sizeof prefix, "hex(%x):", v.type);
  return HexList(name + prefix, v.bytes);
}

}  // namespace

std::string FormatRegText(const std::vector<registry::RawKey>& keys) {
  std::string out = std::string(kRegFileHeader) + "\n\n";
  for (const registry::RawKey& key : keys) {
    out += "[" + ToUtf8(key.path) + "]\n";
    for (const registry::RawValue& v : key.values) out += ValueLine(v) + "\n";
    out += "\n";
  }
  return out;
}

}  // namespace velmo::cli

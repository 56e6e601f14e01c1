#include "links/vcard.h"

#include <algorithm>
#include <cctype>

#include "platform/wstr.h"

namespace velmo {
namespace {

struct Line {
  std::string group_and_name;  // upper case, group dropped
  std::vector<std::string> params;  // upper case
  std::string value;
};

std::string Upper(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

bool HasParam(const Line& line, std::string_view wanted) {
  for (const std::string& p : line.params) {
    // "TYPE=CELL,VOICE", "TYPE=cell", or a bare "CELL" of version 2.1.
    std::string_view values = p;
    if (values.rfind("TYPE=", 0) == 0) values.remove_prefix(5);
    size_t start = 0;
    while (start <= values.size()) {
      size_t end = values.find(',', start);
      if (end == std::string_view::npos) end = values.size();
      std::string_view v = values.substr(start, end - start);
      if (!v.empty() && v.front() == '"') v.remove_prefix(1);
      if (!v.empty() && v.back() == '"') v.remove_suffix(1);
      if (v == wanted) return true;
      start = end + 1;
    }
  }
  return false;
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

std::string DecodeQuotedPrintable(std::string_view in) {
  std::string out;
  for (size_t i = 0; i < in.size(); ++i) {
    if (in[i] == '=' && i + 2 < in.size() && HexValue(in[i + 1]) >= 0 && HexValue(in[i + 2]) >= 0) {
      out.push_back(static_cast<char>(HexValue(in[i + 1]) * 16 + HexValue(in[i + 2])));
      i += 2;
    } else {
      out.push_back(in[i]);
    }
  }
  return out;
}

// One value with its backslash escapes undone, cut to the longest kept.
std::wstring Unescape(std::string_view in) {
  std::string out;
  for (size_t i = 0; i < in.size(); ++i) {
    if (in[i] != '\\' || i + 1 == in.size()) {
      out.push_back(in[i]);
      continue;
    }
    const char c = in[++i];
    out.push_back(c == 'n' || c == 'N' ? '\n' : c);
  }
  std::wstring wide = FromUtf8(out);
  if (wide.size() > kMaxVCardValueChars) wide.resize(kMaxVCardValueChars);
  return wide;
}

// Splits at separators not escaped with a backslash.
std::vector<std::string_view> SplitUnescaped(std::string_view in, char separator) {
  std::vector<std::string_view> parts;
  size_t start = 0;
  for (size_t i = 0; i < in.size(); ++i) {
    if (in[i] == '\\') {
      ++i;
    } else if (in[i] == separator) {
      parts.push_back(in.substr(start, i - start));
      start = i + 1;
    }
  }
  parts.push_back(in.substr(start));
  return parts;
}

bool ParseLine(std::string_view text, Line* line) {
  // The name and parameters end at the first ":" outside double quotes.
  bool quoted = false;
  size_t colon = std::string_view::npos;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (text[i] == ':' && !quoted) {
      colon = i;
      break;
    }
  }
  if (colon == std::string_view::npos) return false;
  std::vector<std::string_view> head = SplitUnescaped(text.substr(0, colon), ';');
  std::string_view name = head[0];
  if (const size_t dot = name.rfind('.'); dot != std::string_view::npos) name.remove_prefix(dot + 1);
  line->group_and_name = Upper(name);
  line->params.clear();
  for (size_t i = 1; i < head.size(); ++i) line->params.push_back(Upper(head[i]));
  line->value.assign(text.substr(colon + 1));
  if (HasParam(*line, "QUOTED-PRINTABLE") || HasParam(*line, "ENCODING=QUOTED-PRINTABLE"))
    line->value = DecodeQuotedPrintable(line->value);
  return true;
}

// The logical lines: folded ones joined, and a quoted-printable value's soft
// line breaks ("=" at the end) joined too.
std::vector<std::string> Unfold(std::string_view text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view raw = text.substr(start, end - start);
    if (!raw.empty() && raw.back() == '\r') raw.remove_suffix(1);
    const bool continues = !raw.empty() && (raw[0] == ' ' || raw[0] == '\t');
    const bool soft_break = !lines.empty() && !lines.back().empty() && lines.back().back() == '=' &&
                            Upper(lines.back()).find("QUOTED-PRINTABLE") != std::string::npos;
    if (continues && !lines.empty()) {
      lines.back().append(raw.substr(1));
    } else if (soft_break) {
      lines.back().pop_back();
      lines.back().append(raw);
    } else {
      lines.emplace_back(raw);
    }
    start = end + 1;
  }
  return lines;
}

PhoneKind KindOf(const Line& line) {
  if (HasParam(line, "CELL")) return PhoneKind::kMobile;
  if (HasParam(line, "HOME")) return PhoneKind::kHome;
  if (HasParam(line, "WORK")) return PhoneKind::kWork;
  return PhoneKind::kOther;
}

std::wstring NameFromN(std::string_view value) {
  // Family;Given;Middle;Prefix;Suffix
  const std::vector<std::string_view> parts = SplitUnescaped(value, ';');
  std::wstring name;
  for (size_t i : {size_t{3}, size_t{1}, size_t{2}, size_t{0}, size_t{4}}) {
    if (i >= parts.size()) continue;
    const std::wstring part = Unescape(parts[i]);
    if (part.empty()) continue;
    if (!name.empty()) name += L' ';
    name += part;
  }
  return name;
}

void AddLine(const Line& line, Contact* c, std::wstring* from_n, std::wstring* org) {
  const std::string& name = line.group_and_name;
  if (name == "FN") {
    c->name = Unescape(line.value);
  } else if (name == "N") {
    *from_n = NameFromN(line.value);
  } else if (name == "ORG") {
    *org = Unescape(SplitUnescaped(line.value, ';')[0]);
  } else if (name == "TEL") {
    std::string_view v = line.value;
    if (v.rfind("tel:", 0) == 0) v.remove_prefix(4);
    const std::wstring number = Unescape(v);
    if (!number.empty()) c->phones.push_back({KindOf(line), number});
  } else if (name == "EMAIL") {
    std::string_view v = line.value;
    if (v.rfind("mailto:", 0) == 0) v.remove_prefix(7);
    const std::wstring address = Unescape(v);
    if (!address.empty()) c->emails.push_back(address);
  } else if (name == "CATEGORIES") {
    for (std::string_view part : SplitUnescaped(line.value, ',')) {
      std::wstring category = Unescape(part);
      std::replace(category.begin(), category.end(), L',', L' ');
      if (category.empty()) continue;
      if (!c->categories.empty()) c->categories += L',';
      c->categories += category;
    }
  } else if (name == "UID") {
    c->uid = Unescape(line.value);
  }
}

}  // namespace

std::vector<Contact> ParseVCards(std::string_view text, std::vector<std::string>* problems) {
  std::vector<Contact> cards;
  bool in_card = false, any_card = false;
  size_t card_line = 0, number = 0;
  Contact card;
  std::wstring from_n, org;
  for (const std::string& raw : Unfold(text)) {
    ++number;
    Line line;
    if (!ParseLine(raw, &line)) continue;
    const std::string value = Upper(line.value);
    if (line.group_and_name == "BEGIN" && value == "VCARD") {
      if (in_card) problems->push_back("line " + std::to_string(card_line) + ": a card that is not closed");
      in_card = any_card = true;
      card_line = number;
      card = Contact{};
      from_n.clear();
      org.clear();
    } else if (line.group_and_name == "END" && value == "VCARD" && in_card) {
      in_card = false;
      if (card.name.empty()) card.name = !from_n.empty() ? from_n : org;
      if (card.name.empty() && !card.emails.empty()) card.name = card.emails[0];
      if (card.name.empty() && !card.phones.empty()) card.name = card.phones[0].number;
      if (card.name.empty()) {
        problems->push_back("line " + std::to_string(card_line) + ": a card with no name, number or address");
      } else if (cards.size() < kMaxCardsPerFile) {
        cards.push_back(std::move(card));
      }
    } else if (in_card) {
      AddLine(line, &card, &from_n, &org);
    }
  }
  if (in_card) problems->push_back("line " + std::to_string(card_line) + ": a card that is not closed");
  if (!any_card) problems->push_back("no vCard in it");
  return cards;
}

}  // namespace velmo

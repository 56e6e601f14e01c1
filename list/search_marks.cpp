// Upper-casing is ICU's simple, one-to-one case mapping, so positions and lengths
// stay those of the original text.
#include "list/search_marks.h"

#include <unicode/uchar.h>

#include <string>

#include "list/list_state.h"
#include "list/view_ids.h"
#include "platform/ansi_codepage.h"
#include "store/notes_text.h"
#include "store/task.h"

namespace velmo {
namespace {

std::wstring UpperCase(std::wstring_view text) {
  std::wstring upper(text);
  for (wchar_t& c : upper) {
    const auto code = static_cast<UChar32>(c);
    if (code >= 0 && code <= 0x10FFFF) c = static_cast<wchar_t>(u_toupper(code));
  }
  return upper;
}

// The character as the case-insensitive search compares it: ASCII by table,
// the rest by ICU.
wchar_t Folded(wchar_t c) {
  if (c >= 0 && c < 0x80) return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - (L'a' - L'A')) : c;
  const auto code = static_cast<UChar32>(c);
  return code >= 0 && code <= 0x10FFFF ? static_cast<wchar_t>(u_toupper(code)) : c;
}

// Whether `needle` occurs in the `length` characters that at(i) gives. Notes
// run to many kilobytes: comparing in place spares a converted copy of each.
template <typename At>
bool Occurs(size_t length, const At& at, std::wstring_view needle) {
  if (needle.empty()) return true;
  for (size_t i = 0; i + needle.size() <= length; ++i) {
    if (at(i) != needle[0]) continue;
    size_t k = 1;
    while (k < needle.size() && at(i + k) == needle[k]) ++k;
    if (k == needle.size()) return true;
  }
  return false;
}

// Each Windows-1252 byte as the character it stands for, and folded.
struct AnsiTables {
  wchar_t plain[256];
  wchar_t folded[256];
};

const AnsiTables& Ansi() {
  static const AnsiTables tables = [] {
    AnsiTables t{};
    for (int b = 0; b < 256; ++b) {
      t.plain[b] = Windows1252Char(static_cast<unsigned char>(b));
      t.folded[b] = Folded(t.plain[b]);
    }
    return t;
  }();
  return tables;
}

// The search in the notes as stored, one character per byte.
bool AnsiContainsSearchText(std::string_view ansi, std::wstring_view text, bool case_sensitive) {
  const wchar_t* map = case_sensitive ? Ansi().plain : Ansi().folded;
  const std::wstring needle = case_sensitive ? std::wstring(text) : UpperCase(text);
  return Occurs(ansi.size(), [&](size_t i) { return map[static_cast<unsigned char>(ansi[i])]; }, needle);
}

}  // namespace

bool ContainsSearchText(std::wstring_view field, std::wstring_view text, bool case_sensitive) {
  if (case_sensitive) return field.find(text) != std::wstring_view::npos;
  return Occurs(field.size(), [&](size_t i) { return Folded(field[i]); }, UpperCase(text));
}

DWORD SearchMarks(std::wstring_view subject, std::wstring_view notes, const Settings& s) {
  DWORD marks = 0;
  if (s.search_notes && ContainsSearchText(notes, s.search, s.search_case_sensitive))
    marks |= kSearchMatchNotes;
  if (s.search_subjects && ContainsSearchText(subject, s.search, s.search_case_sensitive))
    marks |= kSearchMatchSubject;
  return marks;
}

DWORD RecordSearchMarks(std::wstring_view subject, std::string_view ansi_notes) {
  if (CurrentView() != kViewSearch) return 0;
  const Settings& s = CurrentSettings();
  DWORD marks = 0;
  if (s.search_notes && AnsiContainsSearchText(NotesText(ansi_notes), s.search, s.search_case_sensitive))
    marks |= kSearchMatchNotes;
  if (s.search_subjects && ContainsSearchText(subject, s.search, s.search_case_sensitive))
    marks |= kSearchMatchSubject;
  return marks;
}

}  // namespace velmo

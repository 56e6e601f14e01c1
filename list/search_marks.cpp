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

}  // namespace

// The character as the case-insensitive search compares it: ASCII by table,
// the rest by ICU.
wchar_t Folded(wchar_t c) {
  if (c >= 0 && c < 0x80) return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - (L'a' - L'A')) : c;
  const auto code = static_cast<UChar32>(c);
  return code >= 0 && code <= 0x10FFFF ? static_cast<wchar_t>(u_toupper(code)) : c;
}

bool ContainsSearchText(std::wstring_view field, std::wstring_view text, bool case_sensitive) {
  if (case_sensitive) return field.find(text) != std::wstring_view::npos;
  if (text.empty()) return true;
  // Compared in place, a character at a time: notes run to many kilobytes and
  // an upper-case copy of each would cost more than the search.
  const std::wstring needle = UpperCase(text);
  for (size_t i = 0; i + needle.size() <= field.size(); ++i) {
    if (Folded(field[i]) != needle[0]) continue;
    size_t k = 1;
    while (k < needle.size() && Folded(field[i + k]) == needle[k]) ++k;
    if (k == needle.size()) return true;
  }
  return false;
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
  // The notes are decoded only when they are searched.
  return SearchMarks(subject, s.search_notes ? FromWindows1252(NotesText(ansi_notes)) : std::wstring(), s);
}

}  // namespace velmo

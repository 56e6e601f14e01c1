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

bool ContainsSearchText(std::wstring_view field, std::wstring_view text, bool case_sensitive) {
  if (case_sensitive) return field.find(text) != std::wstring_view::npos;
  return UpperCase(field).find(UpperCase(text)) != std::wstring::npos;
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
  return SearchMarks(subject, FromWindows1252(NotesText(ansi_notes)), CurrentSettings());
}

}  // namespace velmo

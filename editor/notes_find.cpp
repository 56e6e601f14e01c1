// Finding a text in the notes.
#include "editor/notes_find.h"

#include <unicode/uchar.h>

namespace velmo {
namespace {

UChar32 Folded(wchar_t ch) { return u_foldCase(static_cast<UChar32>(ch), U_FOLD_CASE_DEFAULT); }

bool MatchesAt(std::wstring_view text, std::wstring_view what, size_t at) {
  for (size_t i = 0; i < what.size(); ++i) {
    if (Folded(text[at + i]) != Folded(what[i])) return false;
  }
  return true;
}

size_t FindIn(std::wstring_view text, std::wstring_view what, size_t from, size_t to) {
  for (size_t at = from; at < to; ++at) {
    if (MatchesAt(text, what, at)) return at;
  }
  return std::wstring_view::npos;
}

}  // namespace

size_t FindNoCase(std::wstring_view text, std::wstring_view what, size_t from) {
  if (what.empty() || what.size() > text.size()) return std::wstring_view::npos;
  const size_t last_start = text.size() - what.size() + 1;
  if (from > last_start) from = last_start;
  const size_t found = FindIn(text, what, from, last_start);
  return found != std::wstring_view::npos ? found : FindIn(text, what, 0, from);
}

}  // namespace velmo

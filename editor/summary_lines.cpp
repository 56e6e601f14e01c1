#include "editor/summary_lines.h"

#include <string_view>

#include "categories/category_icons.h"
#include "categories/category_list.h"
#include "categories/category_names.h"
#include "categories/category_state.h"
#include "editor/recurrence_words.h"
#include "editor/recurrence_writer.h"
#include "format/current_pictures.h"
#include "format/date_text.h"
#include "format/relative_date.h"
#include "links/link_spans.h"
#include "platform/ui/screen.h"
#include "res/dialogs_views.h"
#include "res/strings.h"

namespace velmo {
namespace {

constexpr UINT kNoSubjectText = 197;
constexpr UINT kPriorityTexts[] = {40015, 40014, 40013};  // "Low", "Normal", "High"
constexpr UINT kSensitivityNormalText = 39993, kSensitivityPrivateText = 39995;
constexpr UINT kTeamTaskText = 489;

bool IsSet(DATE d) { return d != kNoDate; }

// One unit of wrapping: a word with the blanks after it, or an icon.
struct Token {
  std::wstring text;
  SummaryInk ink;
  const CellIcon* icon = nullptr;
  int Width() const { return icon ? kIconCells : ui::TextWidth(text); }
};

class Wrapper {
 public:
  Wrapper(std::vector<SummaryLine>* out, int width) : out_(out), width_(width < 1 ? 1 : width) {}

  void Text(std::wstring_view text, SummaryInk ink) {
    size_t i = 0;
    while (i < text.size()) {
      size_t word_end = text.find(L' ', i);
      if (word_end == std::wstring_view::npos) word_end = text.size();
      size_t end = text.find_first_not_of(L' ', word_end);
      if (end == std::wstring_view::npos) end = text.size();
      Add({std::wstring(text.substr(i, end - i)), ink});
      i = end;
    }
  }
  void Icon(const CellIcon* icon) { Add({L"", SummaryInk::kIcon, icon}); }
  // The blanks at the end of a line are dropped: they would only reach past the page.
  void EndLine() {
    while (!line_.empty() && !line_.back().icon) {
      std::wstring& text = line_.back().text;
      text.erase(text.find_last_not_of(L' ') + 1);
      if (!text.empty()) break;
      line_.pop_back();
    }
    out_->push_back(std::move(line_));
    line_.clear();
    used_ = 0;
  }

 private:
  void Add(Token token) {
    std::wstring_view word = token.text;
    while (!word.empty() && word.back() == L' ') word.remove_suffix(1);
    const int word_width = token.icon ? kIconCells : ui::TextWidth(word);
    if (used_ > 0 && used_ + word_width > width_) EndLine();
    if (word_width > width_) return Split(std::move(token));
    Put(std::move(token));
  }
  // A word wider than the page, cut where the page ends; its blanks stay with
  // its last part.
  void Split(Token token) {
    const size_t blanks = token.text.find_last_not_of(L' ') + 1;
    std::wstring part;
    for (size_t i = 0; i < blanks; ++i) {
      const wchar_t c = token.text[i];
      if (!part.empty() && used_ + ui::TextWidth(part) + ui::CellWidth(c) > width_) {
        Put({part, token.ink});
        EndLine();
        part.clear();
      }
      part.push_back(c);
    }
    Put({part + token.text.substr(blanks), token.ink});
  }
  void Put(Token token) {
    used_ += token.Width();
    if (!line_.empty() && !token.icon && line_.back().ink == token.ink && !line_.back().icon) {
      line_.back().text += token.text;
    } else {
      line_.push_back({std::move(token.text), token.ink, token.icon});
    }
  }

  std::vector<SummaryLine>* out_;
  int width_;
  SummaryLine line_;
  int used_ = 0;
};

std::wstring Label(UINT id) { return res::Text(id) + L' '; }

void Field(Wrapper& w, UINT label, const std::wstring& value) {
  w.Text(Label(label), SummaryInk::kLabel);
  w.Text(value, SummaryInk::kText);
  w.EndLine();
}

std::wstring ReminderText(DATE reminder) {
  return format::RelativeDateText(reminder, true) + L' ' +
         format::TimeText(reminder, format::Pictures().time);
}

std::wstring RecurrenceText(const SummaryTask& t) {
  const DATE base = RecurrenceBaseDate(t.start, t.due, t.pattern.PatternStartDate);
  std::wstring words = MatchRecurrence(&t.pattern, base).words;
  if (t.pattern.NoEndDate || !IsSet(t.pattern.PatternEndDate)) return words;
  const std::wstring until =
      format::DateText(t.pattern.PatternEndDate, format::Pictures().short_date_long_year);
  return RecurrenceUntilText(words, until, OccurrenceCount(t.pattern));
}

// Each category with its icon when it has one; an empty text is No Category.
void Categories(Wrapper& w, std::wstring_view text) {
  w.Text(Label(res::kTextSummaryCategories), SummaryInk::kLabel);
  const CategoryList& catalogue = CategoryCatalogue();
  bool first = true;
  while (true) {
    const size_t comma = text.find(L',');
    const std::wstring_view name = NormalizeCategoryName(text.substr(0, comma));
    if (!first) w.Text(L", ", SummaryInk::kText);
    first = false;
    const int index = FindCategory(catalogue, name);
    const CellIcon* icon =
        index < 0 ? nullptr : CategoryCells(catalogue.entries[static_cast<size_t>(index)]);
    if (icon) w.Icon(icon);
    w.Text(std::wstring(name.empty() ? kNoCategoryMarker : name), SummaryInk::kText);
    if (comma == std::wstring_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  w.EndLine();
}

// The notes line by line, their links marked.
void Notes(Wrapper& w, std::wstring_view notes) {
  w.Text(res::Text(res::kTextSummaryNotes), SummaryInk::kLabel);
  w.EndLine();
  const std::vector<LinkSpan> links = FindLinkSpans(notes);
  size_t link = 0, at = 0;
  while (at <= notes.size()) {
    size_t end = notes.find(L'\n', at);
    if (end == std::wstring_view::npos) end = notes.size();
    size_t text_end = end > at && notes[end - 1] == L'\r' ? end - 1 : end;
    size_t i = at;
    while (i < text_end) {
      if (link < links.size() && links[link].start == i) {
        w.Text(notes.substr(i, links[link].length), SummaryInk::kLink);
        i += links[link++].length;
        continue;
      }
      const size_t next = link < links.size() && links[link].start < text_end ? links[link].start
                                                                               : text_end;
      w.Text(notes.substr(i, next - i), SummaryInk::kText);
      i = next;
    }
    w.EndLine();
    at = end + 1;
  }
}

}  // namespace

std::vector<SummaryLine> SummaryLines(const SummaryTask& t, int width) {
  std::vector<SummaryLine> lines;
  Wrapper w(&lines, width);
  w.Text(t.subject.empty() ? res::Text(kNoSubjectText) : t.subject, SummaryInk::kTitle);
  w.EndLine();
  const LONG priority = t.importance >= 0 && t.importance <= 2 ? t.importance : 1;
  Field(w, res::kTextSummaryPriority, res::Text(kPriorityTexts[priority]));
  if (IsSet(t.start)) Field(w, res::kTextSummaryStart, format::RelativeDateText(t.start, true));
  if (IsSet(t.due)) Field(w, res::kTextSummaryDue, format::RelativeDateText(t.due, true));
  if (t.reminder_set && IsSet(t.reminder)) Field(w, res::kTextSummaryReminder, ReminderText(t.reminder));
  if (t.recurring) Field(w, res::kTextSummaryOccurs, RecurrenceText(t));
  if (!t.categories.empty()) Categories(w, t.categories);
  Field(w, res::kTextSummarySensitivity,
        res::Text(t.sensitivity == 2 ? kSensitivityPrivateText : kSensitivityNormalText));
  if (t.team_task) {
    w.Text(res::Text(kTeamTaskText), SummaryInk::kLabel);
    w.EndLine();
  }
  if (t.complete) {
    Field(w, res::kTextSummaryCompleted,
          IsSet(t.completed) ? format::RelativeDateText(t.completed, true) : std::wstring());
  } else {
    w.Text(res::Text(res::kTextSummaryActive), SummaryInk::kLabel);
    w.EndLine();
  }
  if (!t.notes.empty()) Notes(w, t.notes);
  return lines;
}

std::wstring LineText(const SummaryLine& line) {
  std::wstring text;
  for (const SummaryPiece& p : line) text += p.icon ? std::wstring(kIconCells, L' ') : p.text;
  return text;
}

}  // namespace velmo

// todo.txt: "x " marks a completed task (then its completion date), "(A) " its
// priority (A high, B normal, C and below low), +project and @context words
// become categories, due:DATE the due date and t:DATE the start.
#include <cstdio>
#include <sstream>

#include "platform/wstr.h"
#include "sync/import_sources.h"

namespace velmo::sync {
namespace {

DATE DayOf(const std::string& word) {
  int y, m, d;
  char end;
  if (std::sscanf(word.c_str(), "%4d-%2d-%2d%c", &y, &m, &d, &end) != 3) return kNoDate;
  return MakeDate(y, m, d);
}

void AddCategory(const std::string& name, std::wstring* categories) {
  if (!categories->empty()) *categories += L',';
  *categories += FromUtf8(name);
}

void TakeLine(const std::string& line, ImportResult* out) {
  std::istringstream words(line);
  std::string word;
  ImportedTask task;
  poom::TaskValues& v = task.values;
  std::string subject;
  bool first = true;
  bool dates_allowed = true;
  while (words >> word) {
    if (first && word == "x") {
      v.complete = true;
    } else if (!subject.size() && word.size() == 3 && word[0] == '(' && word[2] == ')' && word[1] >= 'A' &&
               word[1] <= 'Z' && dates_allowed) {
      v.importance = word[1] == 'A' ? olImportanceHigh : word[1] == 'B' ? olImportanceNormal : olImportanceLow;
    } else if (dates_allowed && subject.empty() && DayOf(word) != kNoDate) {
      if (v.complete && v.completed == kNoDate) v.completed = DayOf(word);  // then the creation date
    } else if (word.rfind("due:", 0) == 0 && DayOf(word.substr(4)) != kNoDate) {
      v.due = DayOf(word.substr(4));
    } else if (word.rfind("t:", 0) == 0 && DayOf(word.substr(2)) != kNoDate) {
      v.start = DayOf(word.substr(2));
    } else if (word.size() > 1 && (word[0] == '+' || word[0] == '@')) {
      AddCategory(word.substr(1), &v.categories);
    } else {
      dates_allowed = false;
      if (!subject.empty()) subject += ' ';
      subject += word;
    }
    first = false;
  }
  if (v.start != kNoDate && (v.due == kNoDate || v.due < v.start)) v.due = v.start;
  v.subject = FromUtf8(subject);
  if (!v.subject.empty() || !v.categories.empty()) out->tasks.push_back(std::move(task));
}

}  // namespace

void ReadTodoTxtTasks(std::string_view text, ImportResult* out) {
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.find_first_not_of(" \t") != std::string::npos) TakeLine(line, out);
  }
}

}  // namespace velmo::sync

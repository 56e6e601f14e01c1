// Taskwarrior's `task export`: a JSON array of objects. Only the little JSON
// that export writes is read: objects, arrays, strings and numbers.
#include <cstdio>
#include <ctime>
#include <map>
#include <memory>
#include <vector>

#include "platform/wstr.h"
#include "sync/import_sources.h"

namespace velmo::sync {
namespace {

struct Json {
  enum class Kind { kNull, kText, kNumber, kArray, kObject } kind = Kind::kNull;
  std::string text;
  std::vector<Json> items;
  std::map<std::string, Json> fields;
  const Json* Field(const char* name) const {
    const auto f = fields.find(name);
    return f == fields.end() ? nullptr : &f->second;
  }
};

class JsonReader {
 public:
  explicit JsonReader(std::string_view text) : s_(text) {}
  bool Read(Json* out) { return Value(out, 0) && (Skip(), i_ == s_.size()); }

 private:
  void Skip() {
    while (i_ < s_.size() && (s_[i_] == ' ' || s_[i_] == '\n' || s_[i_] == '\r' || s_[i_] == '\t')) ++i_;
  }
  bool Take(char c) {
    Skip();
    if (i_ < s_.size() && s_[i_] == c) return ++i_, true;
    return false;
  }
  bool Text(std::string* out) {
    if (!Take('"')) return false;
    while (i_ < s_.size() && s_[i_] != '"') {
      char c = s_[i_++];
      if (c == '\\' && i_ < s_.size()) {
        c = s_[i_++];
        if (c == 'n') c = '\n';
        else if (c == 't') c = '\t';
        else if (c == 'u' && i_ + 4 <= s_.size()) {
          unsigned code = 0;
          std::sscanf(std::string(s_.substr(i_, 4)).c_str(), "%4x", &code);
          i_ += 4;
          *out += ToUtf8(std::wstring(1, static_cast<wchar_t>(code)));
          continue;
        }
      }
      *out += c;
    }
    return i_++ < s_.size();
  }
  bool Value(Json* out, int depth) {
    if (depth > 16) return false;
    Skip();
    if (i_ >= s_.size()) return false;
    if (s_[i_] == '"') {
      out->kind = Json::Kind::kText;
      return Text(&out->text);
    }
    if (Take('[')) {
      out->kind = Json::Kind::kArray;
      if (Take(']')) return true;
      do {
        out->items.emplace_back();
        if (!Value(&out->items.back(), depth + 1)) return false;
      } while (Take(','));
      return Take(']');
    }
    if (Take('{')) {
      out->kind = Json::Kind::kObject;
      if (Take('}')) return true;
      do {
        std::string name;
        Skip();
        if (!Text(&name) || !Take(':') || !Value(&out->fields[name], depth + 1)) return false;
      } while (Take(','));
      return Take('}');
    }
    out->kind = Json::Kind::kNumber;
    const std::size_t start = i_;
    while (i_ < s_.size() && std::string_view("-+.eE0123456789truefalsn").find(s_[i_]) != std::string_view::npos) ++i_;
    out->text = std::string(s_.substr(start, i_ - start));
    return i_ > start;
  }

  std::string_view s_;
  std::size_t i_ = 0;
};

// "20310304T120000Z" (UTC) as a local date.
DATE DateOf(const Json* value) {
  if (!value || value->kind != Json::Kind::kText) return kNoDate;
  std::tm tm{};
  if (std::sscanf(value->text.c_str(), "%4d%2d%2dT%2d%2d%2dZ", &tm.tm_year, &tm.tm_mon, &tm.tm_mday,
                  &tm.tm_hour, &tm.tm_min, &tm.tm_sec) != 6)
    return kNoDate;
  tm.tm_year -= 1900;
  tm.tm_mon -= 1;
  const std::time_t epoch = timegm(&tm);
  std::tm local{};
  localtime_r(&epoch, &local);
  return MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                  local.tm_sec);
}

std::wstring TextOf(const Json* value) {
  return value && value->kind == Json::Kind::kText ? FromUtf8(value->text) : std::wstring();
}

void TakeTask(const Json& t, ImportResult* out) {
  const std::wstring status = TextOf(t.Field("status"));
  if (status == L"deleted" || status == L"recurring") return;
  ImportedTask task;
  poom::TaskValues& v = task.values;
  v.subject = TextOf(t.Field("description"));
  v.due = DateOf(t.Field("due"));
  v.start = DateOf(t.Field("scheduled"));
  if (v.start != kNoDate && (v.due == kNoDate || v.due < v.start)) v.start = kNoDate;
  v.complete = status == L"completed";
  if (v.complete) v.completed = DateOf(t.Field("end"));
  const std::wstring priority = TextOf(t.Field("priority"));
  v.importance = priority == L"H" ? olImportanceHigh : priority == L"L" ? olImportanceLow : olImportanceNormal;
  if (const Json* tags = t.Field("tags"))
    for (const Json& tag : tags->items) v.categories += (v.categories.empty() ? L"" : L",") + TextOf(&tag);
  if (const Json* project = t.Field("project"))
    v.categories += (v.categories.empty() ? L"" : L",") + TextOf(project);
  if (const Json* notes = t.Field("annotations"))
    for (const Json& a : notes->items) v.body += (v.body.empty() ? L"" : L"\r\n") + TextOf(a.Field("description"));
  task.uid = ToUtf8(TextOf(t.Field("uuid")));
  out->tasks.push_back(std::move(task));
}

}  // namespace

bool ReadTaskwarriorTasks(std::string_view text, ImportResult* out) {
  Json root;
  if (!JsonReader(text).Read(&root)) return false;
  if (root.kind == Json::Kind::kObject) return TakeTask(root, out), true;
  if (root.kind != Json::Kind::kArray) return false;
  for (const Json& t : root.items)
    if (t.kind == Json::Kind::kObject) TakeTask(t, out);
  return true;
}

}  // namespace velmo::sync

#include "categories/category_list.h"

#include <algorithm>

#include "categories/category_icons.h"
#include "categories/category_names.h"
#include "categories/category_state.h"
#include "platform/beep.h"

namespace velmo {
namespace {

bool NameBefore(const CategoryEntry& e, std::wstring_view name) {
  return CompareCategoryNames(e.name, name) < 0;
}

bool NameAfter(std::wstring_view name, const CategoryEntry& e) {
  return CompareCategoryNames(name, e.name) < 0;
}

}  // namespace

int FindCategory(const CategoryList& list, std::wstring_view name) {
  // Lists only grow through AddCategory, which keeps them sorted.
  const auto it = std::lower_bound(list.entries.begin(), list.entries.end(), name, NameBefore);
  if (it == list.entries.end() || !SameCategoryName(it->name, name)) return -1;
  return static_cast<int>(it - list.entries.begin());
}

int AddCategory(CategoryList& list, std::wstring_view name, WORD marks, UINT mode) {
  name = NormalizeCategoryName(name);
  if (const int found = FindCategory(list, name); found >= 0) {
    list.entries[static_cast<size_t>(found)].marks |= marks;
    return found;
  }
  if (list.count() >= kMaxCategories) {
    MessageBeep(MB_ICONEXCLAMATION);
    return -1;
  }
  CategoryEntry entry;
  entry.name.assign(name);
  entry.marks = marks;
  if (&list == &CategoryCatalogue()) LoadCategoryIcon(entry, nullptr, true);
  // The list was sorted before, so putting the new name after every name that
  // does not compare greater gives what repeated neighbour swaps would give.
  const auto at = std::upper_bound(list.entries.begin(), list.entries.end(), name, NameAfter);
  const auto placed = list.entries.insert(at, std::move(entry));
  if (mode == kAddCategoryMerge) return -1;
  return static_cast<int>(placed - list.entries.begin());
}

int ParseCategories(CategoryList& list, std::wstring_view text, WORD marks, bool skip_empty) {
  if (text.empty() && skip_empty) return -1;
  size_t start = 0;
  for (size_t comma = text.find(L','); comma != std::wstring_view::npos;
       comma = text.find(L',', start)) {
    AddCategory(list, text.substr(start, comma - start), marks, kAddCategoryMerge);
    start = comma + 1;
    if (start < text.size() && text[start] == L' ') ++start;
  }
  return AddCategory(list, text.substr(start), marks, kAddCategoryFindIndex);
}

int ParseCategories(CategoryList& list, const wchar_t* text, WORD marks, bool skip_empty) {
  if (text == nullptr) return -1;
  return ParseCategories(list, std::wstring_view(text), marks, skip_empty);
}

std::wstring JoinCategories(const CategoryList& list, bool with_space) {
  const std::wstring_view separator = with_space ? L", " : L",";
  std::wstring out;
  for (const CategoryEntry& e : list.entries) {
    const std::wstring_view name = CategoryNameForString(e.name);
    const size_t extra = (out.empty() ? 0 : separator.size()) + name.size();
    if (out.size() + extra >= kCategoriesTextBuffer) break;
    if (!out.empty()) out += separator;
    out += name;
  }
  return out;
}

void FreeCategoryList(CategoryList& list) { list.entries.clear(); }

}  // namespace velmo

#include "list/view_title.h"

#include "categories/category_names.h"
#include "categories/category_state.h"
#include "list/list_state.h"
#include "list/view_ids.h"
#include "res/strings.h"

namespace velmo {

std::wstring TitleCategoryText(UINT view, int filter_count, std::wstring_view first_name) {
  if (filter_count >= 2) {
    return res::Text(view == kViewAllTasks ? kTitleMultipleAllTasks : kTitleMultiple);
  }
  if (filter_count == 1) return CategoryNameForDisplay(first_name);
  return {};
}

std::wstring FormatViewTitle(UINT view, std::wstring_view count, std::wstring_view category_text,
                             int filter_count, const Settings& s) {
  std::wstring title;
  if (view == kViewActive && s.a_days > 0) {
    title = res::FormatId(kTitleActiveDays, {count, std::to_wstring(s.a_days), category_text});
  } else if (view == kViewNextDays && s.n_days > 1) {
    title = res::FormatId(kTitleNextDaysMany, {count, std::to_wstring(s.n_days), category_text});
  } else if (view == kViewAllTasks && filter_count == 0) {
    title = res::FormatId(kTitleAllTasksPlain, {count});
  } else {
    title = res::FormatId(view + kTitleStringOffset, {count, category_text});
  }
  if (title.size() > kTitleMaxChars) title.resize(kTitleMaxChars);
  return title;
}

std::wstring ListTitle(int rows, int position) {
  const std::wstring count = position < 0 ? std::to_wstring(rows)
                                          : std::to_wstring(position + 1) + L"/" +
                                                std::to_wstring(rows);
  const CategoryList& filter = CategoryFilterList();
  const std::wstring_view first = filter.empty() ? std::wstring_view() : filter.entries[0].name;
  const UINT view = CurrentView();
  return FormatViewTitle(view, count, TitleCategoryText(view, filter.count(), first),
                         filter.count(), CurrentSettings());
}

}  // namespace velmo

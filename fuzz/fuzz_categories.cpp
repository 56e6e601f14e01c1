// Categories text of any length and content: parsing never crashes, never
// keeps more than 384 entries, keeps the list sorted without duplicates, and
// what JoinCategories writes parses back to the same names.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "categories/category_filter.h"
#include "categories/category_list.h"
#include "categories/category_names.h"
#include "categories/category_state.h"
#include "platform/device.h"
#include "platform/wstr.h"

namespace {

void Check(bool ok) {
  if (!ok) std::abort();
}

void CheckList(const velmo::CategoryList& list) {
  Check(list.count() <= velmo::kMaxCategories);
  for (size_t i = 1; i < list.entries.size(); ++i)
    Check(velmo::CompareCategoryNames(list.entries[i - 1].name, list.entries[i].name) < 0);
}

// First byte: bit 0 raw UTF-32 units (any value) or UTF-8; bit 1 skipEmpty.
std::wstring Decode(const uint8_t* data, size_t size, bool raw) {
  if (!raw) return velmo::FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
  std::wstring text(size / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), data, text.size() * sizeof(wchar_t));
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // An empty device root: no icon folder, so every named category gets a letter.
  const auto root = std::filesystem::temp_directory_path() / "velmo-fuzz-categories";
  std::filesystem::create_directories(root);
  velmo::device::SetRoot(root);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::wstring text = Decode(data + 1, size - 1, data[0] & 1);
  const bool skip_empty = data[0] & 2;

  velmo::CategoryList list;
  const int last = velmo::ParseCategories(list, text, velmo::InLoadedTasks, skip_empty);
  CheckList(list);
  Check(last >= -1 && last < list.count());

  const std::wstring joined = velmo::JoinCategories(list, data[0] & 4);
  Check(joined.size() < velmo::kCategoriesTextBuffer);
  if (joined.size() + 64 < velmo::kCategoriesTextBuffer) {
    velmo::CategoryList again;
    velmo::ParseCategories(again, joined, 0, true);
    Check(again.count() == list.count());
    for (size_t i = 0; i < list.entries.size(); ++i)
      Check(again.entries[i].name == list.entries[i].name);
  }

  // The catalogue path: each new name gets its icon; the filter must agree.
  velmo::InitCategories(0, text, L"");
  velmo::ParseCategories(velmo::CategoryCatalogue(), text, velmo::InLoadedTasks, skip_empty);
  CheckList(velmo::CategoryCatalogue());
  CheckList(velmo::CategoryFilterList());
  velmo::Task task;
  task.oid = 1;
  task.categories = text;
  // The filter made from the same text holds every category the task has.
  Check(velmo::TaskPassesFilter(task));
  return 0;
}

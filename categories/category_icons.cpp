#include "categories/category_icons.h"

#include <memory>
#include <optional>
#include <system_error>

#include "categories/category_names.h"
#include "categories/category_state.h"
#include "categories/category_strings.h"
#include "categories/dib_file.h"
#include "categories/letter_icon.h"
#include "platform/device.h"
#include "platform/wstr.h"
#include "res/strings.h"
#include "settings/settings.h"

namespace velmo {
namespace {

constexpr std::wstring_view kNoCategoryFileName = L"~NoCategory";
constexpr std::wstring_view kBitmapExtension = L".bmp";
constexpr std::wstring_view kCharactersNotInFileNames = L"\\/:*?\"<>|";

struct IconState {
  std::unique_ptr<CategoryImageList> images;
  IconFolder folder;
  bool folder_has_bitmaps = false;
  bool no_category_loaded = false;
};

IconState& State() {
  static IconState state;
  return state;
}

bool HasBitmapExtension(const std::filesystem::path& file) {
  const std::wstring ext = FromUtf8(file.extension().string());
  return SameCategoryName(ext, kBitmapExtension);
}

// The folder is searched once, for "*.bmp", the way the platform's search
// matches: without regard to case.
bool FolderHoldsBitmaps(const std::filesystem::path& directory) {
  std::error_code ec;
  for (std::filesystem::directory_iterator it(directory, ec), end; !ec && it != end;
       it.increment(ec))
    if (HasBitmapExtension(it->path()) && !it->is_directory(ec)) return true;
  return false;
}

// The file of that name, or one whose name differs only in case, as the
// platform's file system would find it.
std::filesystem::path FindIconFile(const std::filesystem::path& directory,
                                   const std::wstring& file_name) {
  std::filesystem::path exact = directory / ToUtf8(file_name);
  std::error_code ec;
  if (std::filesystem::exists(exact, ec)) return exact;
  for (std::filesystem::directory_iterator it(directory, ec), end; !ec && it != end;
       it.increment(ec))
    if (SameCategoryName(FromUtf8(it->path().filename().string()), file_name)) return it->path();
  return exact;
}

CategoryImageList& MakeImageList() {
  IconState& s = State();
  if (!s.images) {
    s.images = std::make_unique<CategoryImageList>(kSmallIconSize, kSmallIconSize);
    s.folder = CategoryIconFolder(CurrentSettings().path);
    s.folder_has_bitmaps = FolderHoldsBitmaps(s.folder.directory);
    s.no_category_loaded = false;
  }
  return *s.images;
}

void Show(const IconReporter* owner, UINT id, const std::wstring& insert) {
  if (owner && *owner) (*owner)(res::Text(kIdsCategoriesCaption), res::FormatId(id, {insert}));
}

}  // namespace

IconFolder CategoryIconFolder(std::wstring_view path_setting) {
  const size_t cut = path_setting.find_last_of(L"\\/");
  IconFolder folder;
  folder.shown = cut == std::wstring_view::npos ? L"" : path_setting.substr(0, cut + 1);
  if (!folder.shown.empty() && folder.shown.front() == L'/')
    folder.directory = ToUtf8(folder.shown);
  else
    folder.directory = device::MapPlatformPath(folder.shown);
  return folder;
}

std::wstring CategoryIconFileName(std::wstring_view name) {
  if (name.empty()) return std::wstring(kNoCategoryFileName);
  std::wstring file(name);
  for (wchar_t& c : file)
    if (kCharactersNotInFileNames.find(c) != std::wstring_view::npos) c = L'_';
  return file;
}

bool LoadCategoryIcon(CategoryEntry& entry, const IconReporter* owner, bool report) {
  CategoryImageList& images = MakeImageList();
  IconState& s = State();
  entry.icon_index = -1;
  entry.letter_icon = false;

  std::optional<DWORD> error;  // none: the folder holds no bitmap at all
  std::wstring shown_file;
  if (s.folder_has_bitmaps) {
    const std::wstring file = CategoryIconFileName(entry.name) + std::wstring(kBitmapExtension);
    shown_file = s.folder.shown + file;
    Bitmap bitmap;
    error = LoadDibFile(FindIconFile(s.folder.directory, file), &bitmap);
    if (*error == ERROR_SUCCESS) {
      if (entry.name.empty()) s.no_category_loaded = true;
      CategoryImage icon;
      icon.pixels = FitBitmap(bitmap, images.cx(), images.cy(), kIconKeyColor, nullptr);
      icon.cells = CellsFromBitmap(icon.pixels, kIconKeyColor);
      entry.icon_index = images.AddMasked(std::move(icon));
      return report;
    }
  }
  if (!entry.name.empty()) {
    entry.icon_index = images.AddMasked(DrawLetterIcon(entry.name, images.cx(), images.cy()));
    entry.letter_icon = true;
  }

  if (!owner || !*owner) return report;
  if (!error) {
    if (report) Show(owner, kIdsIconsShouldBeAdded, s.folder.shown);
    return false;
  }
  if (*error == ERROR_FILE_NOT_FOUND) {
    if (report) Show(owner, kIdsIconFileNotFound, shown_file);
    return false;
  }
  Show(owner, kIdsIconBadFile, shown_file);
  return report;
}

void DestroyCategoryImages() { State().images.reset(); }

void ReloadCategoryIcons(const IconReporter* owner,
                         const std::function<bool(const CategoryEntry&)>& shown) {
  DestroyCategoryImages();
  bool report = true;
  for (CategoryEntry& e : CategoryCatalogue().entries) {
    if (shown && shown(e))
      report = LoadCategoryIcon(e, owner, report);
    else
      LoadCategoryIcon(e, nullptr, true);
  }
}

const CategoryImageList* CategoryImages() { return State().images.get(); }

const CellIcon* CategoryCells(const CategoryEntry& entry) {
  const CategoryImageList* images = CategoryImages();
  const CategoryImage* image = images ? images->Get(entry.icon_index) : nullptr;
  return image ? &image->cells : nullptr;
}

bool IconFolderHasBitmaps() { return State().folder_has_bitmaps; }
bool NoCategoryBitmapLoaded() { return State().no_category_loaded; }

}  // namespace velmo

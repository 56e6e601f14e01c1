// Category icons: a bitmap file per category in the icon folder (the folder of
// the "Path" setting), or a drawn letter; the image list that holds them; and
// the warnings about missing or bad files, of which one pass over many
// categories shows at most one "not found".
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "categories/category_image_list.h"
#include "categories/category_list.h"

namespace velmo {

// Shows a warning message box (the owner window's); null: no owner, no message.
using IconReporter = std::function<void(const std::wstring& caption, const std::wstring& text)>;

struct IconFolder {
  std::wstring shown;               // as the setting writes it, ending in its separator
  std::filesystem::path directory;  // where it is on this machine
};

// The part of the "Path" setting up to and including its last "\" (a path of
// the device, under the device root) or "/" (a path of this machine).
IconFolder CategoryIconFolder(std::wstring_view path_setting);

// The file name (without ".bmp") for a category: characters that a file name
// cannot hold become "_"; No Category is "~NoCategory".
std::wstring CategoryIconFileName(std::wstring_view name);

// Loads the entry's icon into the image list (made on first use, when the icon
// folder is taken from the "Path" setting and searched once): its bitmap
// file fitted into the icon size, else for a named category a letter icon.
// Returns the report flag for the next call: "not found" and "should be added"
// are shown only while it is true and turn it false; "Bad File" is shown every
// time. Without an owner nothing is shown and the flag is returned unchanged.
bool LoadCategoryIcon(CategoryEntry& entry, const IconReporter* owner, bool report);

// Destroys the image list; every entry's icon index is stale until reloaded.
void DestroyCategoryImages();

// "Reload Icons": destroys the image list and loads every catalogue entry's icon
// again, reporting to `owner` for the entries `shown` accepts and silently for
// the rest.
void ReloadCategoryIcons(const IconReporter* owner,
                         const std::function<bool(const CategoryEntry&)>& shown);

// The image list, or nullptr before the first icon is loaded.
const CategoryImageList* CategoryImages();
// The terminal form of an entry's icon, or nullptr when it has none.
const CellIcon* CategoryCells(const CategoryEntry& entry);

// Whether the icon folder held any bitmap when the image list was made, and
// whether No Category's bitmap was loaded since.
bool IconFolderHasBitmaps();
bool NoCategoryBitmapLoaded();

}  // namespace velmo

// Numbers of the categories area's entries in the string table.
#pragma once

#include "platform/wintypes.h"

namespace velmo {

constexpr UINT kIdsCategoriesCaption = 165;   // "Categories"
constexpr UINT kIdsIconFileNotFound = 368;    // "File not found:\r\n%1"
constexpr UINT kIdsIconBadFile = 369;         // "Bad File:\r\n%1"
constexpr UINT kIdsIconsShouldBeAdded = 370;  // "Icons (CategoryName.bmp) should be added in:\r\n%1"
constexpr UINT kIdsNoCategory = 801;          // "No Category"

}  // namespace velmo

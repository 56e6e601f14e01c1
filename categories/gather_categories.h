// Collecting the categories used in the contacts and appointments databases
// into the catalogue, so that the Categories dialogs can offer them.
#pragma once

#include <functional>
#include <string_view>

#include "categories/category_list.h"

namespace velmo {

enum class OtherDatabase { kContacts, kAppointments };

// Reads the categories property of every record of one of the other databases
// on the mounted volume and hands each value that is present to `each`.
// Returns false when the database does not open. The task store provides it.
using CategoriesSource =
    std::function<bool(OtherDatabase which, const std::function<void(std::wstring_view)>& each)>;

// The store plugs its reader in at start-up; without one nothing is gathered.
void SetCategoriesSource(CategoriesSource source);

// Parses every categories value of that database into `list` with InContacts or
// InAppointments (an empty value is No Category). A database that does not open
// contributes nothing.
void GatherDatabaseCategories(OtherDatabase which, const CategoriesSource& source,
                              CategoryList& list);

// The same into the catalogue, through the store's reader.
void GatherDatabaseCategories(OtherDatabase which);

}  // namespace velmo

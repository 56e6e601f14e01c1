// The categories used in the contacts and appointments databases of the tasks'
// volume, read for the categories catalogue.
#pragma once

#include "categories/gather_categories.h"

namespace velmo {

// Hands every categories value present in the records of that database to
// `each`. False when the database does not open.
bool ReadOtherDatabaseCategories(OtherDatabase which,
                                 const std::function<void(std::wstring_view)>& each);

// Plugs the reader into the categories catalogue (SetCategoriesSource).
void ProvideOtherDatabaseCategories();

}  // namespace velmo

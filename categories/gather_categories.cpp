#include "categories/gather_categories.h"

#include "categories/category_state.h"

namespace velmo {
namespace {

CategoriesSource& Source() {
  static CategoriesSource source;
  return source;
}

}  // namespace

void SetCategoriesSource(CategoriesSource source) { Source() = std::move(source); }

void GatherDatabaseCategories(OtherDatabase which, const CategoriesSource& source,
                              CategoryList& list) {
  if (!source) return;
  const WORD marks = which == OtherDatabase::kContacts ? InContacts : InAppointments;
  source(which, [&](std::wstring_view categories) {
    ParseCategories(list, categories, marks, false);
  });
}

void GatherDatabaseCategories(OtherDatabase which) {
  GatherDatabaseCategories(which, Source(), CategoryCatalogue());
}

}  // namespace velmo

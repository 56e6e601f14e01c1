#include "platform/ui/resource_strings.h"

namespace velmo::ui {
namespace {

StringLookup g_lookup = nullptr;

}  // namespace

void SetStringLookup(StringLookup lookup) { g_lookup = lookup; }

std::wstring ResourceText(UINT id) {
  const wchar_t* text = g_lookup ? g_lookup(id) : nullptr;
  return text ? text : L"";
}

}  // namespace velmo::ui

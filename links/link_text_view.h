// The text view that marks links itself: the Links View's control. Its text
// is put in between a begin and an end message; at the end it finds the links
// (numbers, e-mail and web addresses), underlines them and chooses the first.
// Up and Down choose the previous and next link (or scroll where there is
// none); the dialog around it acts on the chosen one.
#pragma once

#include <string>

#include "links/link_spans.h"
#include "platform/ui/messages.h"
#include "platform/ui/types.h"

namespace velmo {

constexpr UINT kTextViewBegin = 1524;      // clears the text
constexpr UINT kTextViewEnd = 1525;        // finds the links and shows the text
constexpr UINT kTextViewBreak = 1529;      // a line break between parts
constexpr UINT kTextViewAdd = 1530;        // lParam: the text (const wchar_t*) to add
constexpr UINT kTextViewChosenLink = 1531;  // lParam: ChosenLink* filled; TRUE when one is chosen

struct ChosenLink {
  LinkKind kind = LinkKind::kEmail;
  std::wstring text;
};

// Registers the class (res::kLinkTextViewClass) on the current screen; a second
// registration changes nothing.
void RegisterLinkTextView();

}  // namespace velmo

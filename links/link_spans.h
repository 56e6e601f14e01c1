// Where the links of a text stand: every telephone number, e-mail address and
// web address the scanners find, so that a view of the text can mark them.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace velmo {

enum class LinkKind { kPhone, kEmail, kWeb };

struct LinkSpan {
  size_t start;
  size_t length;
  LinkKind kind;
  bool operator==(const LinkSpan&) const = default;
};

// The links of `text` in order, none overlapping another. A link never spans
// a line break, so each line is scanned on its own; after each link the scan
// goes on behind it. A web address loses the punctuation its sentence put
// after it.
std::vector<LinkSpan> FindLinkSpans(std::wstring_view text);

}  // namespace velmo

// Finding a text in the notes, without regard to case (Unicode case folding,
// one character for one, so a match is as long as the text looked for).
#pragma once

#include <cstddef>
#include <string_view>

namespace velmo {

// Where `what` stands in `text`, looking from `from` to the end and then from
// the start; npos when nowhere (or when `what` is empty).
size_t FindNoCase(std::wstring_view text, std::wstring_view what, size_t from);

}  // namespace velmo

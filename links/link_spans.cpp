#include "links/link_spans.h"

#include <optional>
#include <string>

#include "links/scanners.h"

namespace velmo {
namespace {

// The first link in `rest` (a NUL-terminated copy of what is left of a line):
// the one of the three scanners' finds that starts earliest.
std::optional<LinkSpan> FirstLink(const std::wstring& rest) {
  std::optional<LinkSpan> best;
  auto consider = [&](const std::wstring& found, LinkKind kind) {
    if (found.empty()) return;
    const size_t at = rest.find(found);
    if (at == std::wstring::npos) return;
    if (!best || at < best->start) best = LinkSpan{at, found.size(), kind};
  };
  consider(FindPhoneNumber(rest), LinkKind::kPhone);
  EmailAddress mail;
  if (FindEmail(rest, &mail)) consider(mail.Text(), LinkKind::kEmail);
  std::wstring web;
  if (FindWebAddress(rest, &web)) {
    CutTrailingPunctuation(&web);
    consider(web, LinkKind::kWeb);
  }
  return best;
}

void ScanLine(std::wstring_view line, size_t offset, std::vector<LinkSpan>* spans) {
  size_t done = 0;
  while (done < line.size()) {
    const std::wstring rest(line.substr(done));
    const std::optional<LinkSpan> link = FirstLink(rest);
    if (!link) return;
    spans->push_back({offset + done + link->start, link->length, link->kind});
    done += link->start + link->length;
  }
}

}  // namespace

std::vector<LinkSpan> FindLinkSpans(std::wstring_view text) {
  std::vector<LinkSpan> spans;
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find_first_of(L"\r\n", start);
    if (end == std::wstring_view::npos) end = text.size();
    ScanLine(text.substr(start, end - start), start, &spans);
    start = end + 1;
  }
  return spans;
}

}  // namespace velmo

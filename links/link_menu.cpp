#include "links/link_menu.h"

#include "links/phone_library.h"
#include "platform/ui/menu.h"
#include "res/strings.h"

namespace velmo {
namespace {

constexpr UINT kTextDial = 40118, kTextMessage = 40165;

void InsertTop(HMENU menu, UINT id, const std::wstring& text) {
  InsertMenuW(menu, 0, MF_BYPOSITION | MF_STRING, id, text.c_str());
}

void InsertSeparator(HMENU menu) { InsertMenuW(menu, 0, MF_BYPOSITION | MF_SEPARATOR, 0, nullptr); }

std::wstring PhoneItem(UINT text_id, const std::wstring& number) {
  std::wstring text = res::FormatId(text_id, {number});
  if (text.size() > kMaxPhoneItemChars) text.resize(kMaxPhoneItemChars);
  return text;
}

}  // namespace

int AddLinkItems(HMENU menu, const LinkTask& task) {
  int inserted = 0;
  auto top = [&](UINT id, const std::wstring& text) {
    // The first item inserted gets the separator under it.
    if (inserted == 0) {
      InsertSeparator(menu);
      ++inserted;
    }
    InsertTop(menu, id, text);
    ++inserted;
  };
  std::wstring web;
  if (FirstWebAddress(task, &web)) {
    CutTrailingPunctuation(&web);
    top(kCmdWebLink, web);
  }
  EmailAddress address;
  if (FirstEmail(task, &address)) top(kCmdMailLink, address.Text());
  if (!task.phone_number.empty() && PhoneLibraryPresent()) {
    top(kCmdTextMessage, PhoneItem(kTextMessage, task.phone_number));
    top(kCmdDial, PhoneItem(kTextDial, task.phone_number));
  }
  return inserted;
}

}  // namespace velmo

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
  std::wstring web;
  if (FirstWebAddress(task, &web)) {
    CutTrailingPunctuation(&web);
    InsertSeparator(menu);
    InsertTop(menu, kCmdWebLink, web);
    inserted += 2;
  }
  EmailAddress address;
  if (FirstEmail(task, &address)) {
    if (inserted == 0) InsertSeparator(menu), ++inserted;
    InsertTop(menu, kCmdMailLink, address.Text());
    ++inserted;
  }
  if (!task.phone_number.empty() && PhoneLibraryPresent()) {
    if (inserted == 0) InsertSeparator(menu), ++inserted;
    InsertTop(menu, kCmdTextMessage, PhoneItem(kTextMessage, task.phone_number));
    InsertTop(menu, kCmdDial, PhoneItem(kTextDial, task.phone_number));
    inserted += 2;
  }
  return inserted;
}

}  // namespace velmo

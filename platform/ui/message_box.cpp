// The message box, a dialog that paints its own frame, sign and text.
#include "platform/ui/message_box.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/ui/colours.h"
#include "platform/ui/dialog.h"
#include "platform/ui/gdi.h"
#include "platform/ui/glyphs.h"
#include "platform/ui/messages.h"
#include "platform/ui/resource_strings.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

constexpr UINT kOkText = 61000, kYesText = 61001, kNoText = 61002, kCancelText = 61003,
               kRetryText = 61004;
// The soft keys' commands, told apart from Enter's IDOK.
constexpr UINT kLeftKey = 0x7F01, kRightKey = 0x7F02;

struct Answers {
  UINT buttons;
  int left;
  UINT left_text;
  int right;  // 0: no right key
  UINT right_text;
  int cancel;  // the answer of Esc
};

constexpr Answers kAnswers[] = {
    {MB_OK, IDOK, kOkText, 0, 0, IDOK},
    {MB_OKCANCEL, IDOK, kOkText, IDCANCEL, kCancelText, IDCANCEL},
    {MB_YESNOCANCEL, IDYES, kYesText, IDNO, kNoText, IDCANCEL},
    {MB_YESNO, IDYES, kYesText, IDNO, kNoText, IDNO},
    {MB_RETRYCANCEL, IDRETRY, kRetryText, IDCANCEL, kCancelText, IDCANCEL},
};

struct Sign {
  UINT icon;
  wchar_t ch;
  COLORREF colour;
};

constexpr Sign kSigns[] = {
    {MB_ICONHAND, Glyph(kGlyphErrorSign), kSignRed},
    {MB_ICONQUESTION, L'?', kSignBlue},
    {MB_ICONEXCLAMATION, L'!', kSignAmber},
    {MB_ICONASTERISK, L'i', kSignBlue},
};

struct BoxState {
  std::wstring caption;
  std::vector<std::wstring> lines;
  const Answers* answers;
  const Sign* sign;
  int enter;  // the default answer
};

const Answers* AnswersFor(UINT type) {
  for (const Answers& a : kAnswers) {
    if (a.buttons == (type & 0xF)) return &a;
  }
  return nullptr;
}

const Sign* SignFor(UINT type) {
  for (const Sign& s : kSigns) {
    if (s.icon == (type & 0xF0)) return &s;
  }
  return nullptr;
}

int TextLeft(const BoxState& box) { return box.sign ? 4 : 2; }

void Paint(HWND hwnd, const BoxState& box) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  RECT rc;
  GetClientRect(hwnd, &rc);
  COLORREF bg = GetSysColor(COLOR_WINDOW);
  DrawFrame(hdc, rc, GetSysColor(COLOR_WINDOWFRAME), bg);
  SetBkColor(hdc, bg);
  SetTextColor(hdc, GetSysColor(COLOR_WINDOWTEXT));
  velmo::ui::SetTextAttributes(hdc, kAttrBold);
  RECT caption{2, 0, rc.right - 2, 1};
  std::wstring title = L" " + box.caption + L" ";
  DrawTextW(hdc, title.c_str(), -1, &caption, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
  if (box.sign) {
    SetTextColor(hdc, box.sign->colour);
    DrawCells(hdc, 2, 2, std::wstring_view(&box.sign->ch, 1));
  }
  velmo::ui::SetTextAttributes(hdc, 0);
  SetTextColor(hdc, GetSysColor(COLOR_WINDOWTEXT));
  RECT text{TextLeft(box), 2, rc.right - 2, rc.bottom - 2};
  for (const std::wstring& line : box.lines) {
    if (text.top >= text.bottom) break;
    DrawTextW(hdc, line.c_str(), -1, &text, DT_SINGLELINE | DT_NOPREFIX);
    ++text.top;
  }
  EndPaint(hwnd, &ps);
}

INT_PTR MessageBoxProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  auto* box = reinterpret_cast<BoxState*>(GetWindowLongPtrW(hwnd, DWLP_USER));
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(hwnd, DWLP_USER, lparam);
      box = reinterpret_cast<BoxState*>(lparam);
      std::wstring left = velmo::ui::ResourceText(box->answers->left_text);
      std::wstring right =
          box->answers->right ? velmo::ui::ResourceText(box->answers->right_text) : L"";
      SOFTKEY left_key{left.c_str(), kLeftKey, nullptr};
      SOFTKEY right_key{right.c_str(), kRightKey, nullptr};
      CreateSoftKeyBar(hwnd, &left_key, &right_key);
      return TRUE;
    }
    case WM_PAINT:
      if (box) Paint(hwnd, *box);
      return TRUE;
    case WM_COMMAND: {
      if (!box) return FALSE;
      int id = LOWORD(wparam);
      int answer = id == kLeftKey    ? box->answers->left
                   : id == kRightKey ? box->answers->right
                   : id == IDOK      ? box->enter
                   : id == IDCANCEL  ? box->answers->cancel
                                     : 0;
      if (answer) EndDialog(hwnd, answer);
      return TRUE;
    }
    default:
      return FALSE;
  }
}

}  // namespace
}  // namespace velmo::ui::internal

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
  using namespace velmo::ui::internal;
  const Answers* answers = AnswersFor(type);
  velmo::ui::Screen* screen = CurrentScreen();
  if (!answers || !screen) return 0;
  BoxState box;
  box.caption = caption ? caption : L"";
  box.answers = answers;
  box.sign = SignFor(type);
  box.enter = (type & MB_DEFBUTTON2) && answers->right ? answers->right : answers->left;
  RECT work = WorkArea();
  int work_width = work.right - work.left, work_height = work.bottom - work.top;
  int wrap = std::clamp(work_width - 4 - TextLeft(box), 1, 46);
  box.lines = WrapText(text ? text : L"", wrap);
  int widest = 0;
  for (const std::wstring& line : box.lines) widest = std::max(widest, velmo::ui::TextWidth(line));
  int width = std::max({widest + TextLeft(box) + 2, velmo::ui::TextWidth(box.caption) + 6, 24});
  int height = static_cast<int>(box.lines.size()) + 4;
  DLGTEMPLATEW tmpl{box.caption.c_str(), 0, std::min(width, work_width),
                    std::min(height, work_height), nullptr, 0};
  INT_PTR result = DialogBoxIndirectParamW(nullptr, &tmpl, owner, MessageBoxProc,
                                           reinterpret_cast<LPARAM>(&box));
  if (result < 0) return 0;
  // A box that could not get its answer (the loop was ended) is cancelled.
  return result == IDCANCEL ? answers->cancel : static_cast<int>(result);
}

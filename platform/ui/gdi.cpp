// Device contexts, brushes, fonts and text drawing on the screen's cells.
#include "platform/ui/gdi.h"

#include <algorithm>
#include <cwchar>
#include <memory>
#include <unordered_set>
#include <utility>

#include "platform/ui/glyphs.h"
#include "platform/ui/screen.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

struct GdiObject {
  enum class Kind { kBrush, kFont } kind;
  COLORREF colour = 0;
  int system_index = -1;  // brushes of system colours read the colour when used
  BYTE attrs = 0;         // fonts
  bool stock = false;
};

struct DeviceContext {
  HWND hwnd = nullptr;
  POINT origin{};  // screen cell of the client's (0, 0)
  RECT clip{};     // screen cells drawing may touch
  COLORREF text = RGB(0, 0, 0);
  COLORREF background = RGB(255, 255, 255);
  int bk_mode = OPAQUE;
  GdiObject* font = nullptr;
  BYTE extra_attrs = 0;
};

std::unordered_set<GdiObject*>& LiveObjects() {
  static std::unordered_set<GdiObject*> objects;
  return objects;
}

std::unordered_set<DeviceContext*>& LiveContexts() {
  static std::unordered_set<DeviceContext*> contexts;
  return contexts;
}

GdiObject* ObjectOf(HGDIOBJ handle) {
  auto* object = reinterpret_cast<GdiObject*>(handle);
  return LiveObjects().count(object) ? object : nullptr;
}

DeviceContext* ContextOf(HDC hdc) {
  auto* dc = reinterpret_cast<DeviceContext*>(hdc);
  return LiveContexts().count(dc) ? dc : nullptr;
}

HGDIOBJ NewObject(GdiObject object) {
  auto* created = new GdiObject(object);
  LiveObjects().insert(created);
  return reinterpret_cast<HGDIOBJ>(created);
}

GdiObject* DefaultFont() {
  static GdiObject* font = [] {
    auto* f = reinterpret_cast<GdiObject*>(NewObject(GdiObject{GdiObject::Kind::kFont}));
    f->stock = true;
    return f;
  }();
  return font;
}

COLORREF BrushColour(const GdiObject* brush) {
  return brush->system_index >= 0 ? GetSysColor(brush->system_index) : brush->colour;
}

BYTE Attributes(const DeviceContext* dc) {
  return static_cast<BYTE>((dc->font ? dc->font->attrs : 0) | dc->extra_attrs);
}

// Draws a text on one row, from client column x, clipped to `clip` (screen cells).
int DrawRow(DeviceContext* dc, int x, int y, std::wstring_view text, const RECT& clip) {
  Screen* screen = CurrentScreen();
  int sy = dc->origin.y + y;
  int column = x;
  if (!screen || sy < clip.top || sy >= clip.bottom) return TextWidth(text);
  BYTE attrs = Attributes(dc);
  for (wchar_t ch : text) {
    int w = CellWidth(ch);
    if (w == 0) continue;
    int sx = dc->origin.x + column;
    column += w;
    if (sx < clip.left || sx >= clip.right) continue;
    if (w == 2 && sx + 1 >= clip.right) ch = L' ';
    COLORREF bg = dc->bk_mode == TRANSPARENT ? screen->at(sx, sy).bg : dc->background;
    screen->PutChar(sx, sy, ch, dc->text, bg, attrs);
  }
  return column - x;
}

RECT ToScreen(const DeviceContext* dc, const RECT& r) {
  return RECT{r.left + dc->origin.x, r.top + dc->origin.y, r.right + dc->origin.x,
              r.bottom + dc->origin.y};
}

RECT Clip(const RECT& a, const RECT& b) {
  RECT out;
  IntersectRect(&out, &a, &b);
  return out;
}

std::wstring ExpandTabs(std::wstring_view text) {
  std::wstring out;
  for (wchar_t ch : text) {
    if (ch == L'\t') {
      do out += L' '; while (TextWidth(out) % 8);
    } else {
      out += ch;
    }
  }
  return out;
}

// Cuts a text to `width` columns, ending in "…" when it was longer.
std::wstring Ellipsize(std::wstring_view text, int width) {
  if (TextWidth(text) <= width) return std::wstring(text);
  std::wstring out;
  int used = 0;
  for (wchar_t ch : text) {
    int w = CellWidth(ch);
    if (used + w > width - 1) break;
    out += ch;
    used += w;
  }
  if (width > 0) out += Glyph(kGlyphEllipsis);
  return out;
}

}  // namespace

HDC CreateWindowDC(HWND hwnd) {
  auto* dc = new DeviceContext;
  dc->hwnd = hwnd;
  RECT r = ScreenRectOf(hwnd);
  dc->origin = POINT{r.left, r.top};
  // Clipped to the window and every ancestor.
  RECT clip = r;
  for (WindowData* w = Find(hwnd); w && w->parent; w = Find(w->parent)) {
    clip = Clip(clip, ScreenRectOf(w->parent));
  }
  if (Screen* screen = CurrentScreen()) {
    RECT whole{0, 0, screen->width(), screen->height()};
    clip = Clip(clip, whole);
  }
  dc->clip = clip;
  dc->text = GetSysColor(COLOR_WINDOWTEXT);
  dc->background = GetSysColor(COLOR_WINDOW);
  dc->font = DefaultFont();
  LiveContexts().insert(dc);
  return reinterpret_cast<HDC>(dc);
}

void FreeDC(HDC hdc) {
  DeviceContext* dc = ContextOf(hdc);
  if (!dc) return;
  LiveContexts().erase(dc);
  delete dc;
}

void ResetGdi() {
  for (DeviceContext* dc : LiveContexts()) delete dc;
  LiveContexts().clear();
}

int DrawCells(HDC hdc, int x, int y, std::wstring_view text) {
  DeviceContext* dc = ContextOf(hdc);
  return dc ? DrawRow(dc, x, y, text, dc->clip) : 0;
}

void DrawFrame(HDC hdc, const RECT& r, COLORREF fg, COLORREF bg) {
  DeviceContext* dc = ContextOf(hdc);
  if (!dc || r.right - r.left < 2 || r.bottom - r.top < 2) return;
  COLORREF old_text = dc->text, old_bg = dc->background;
  int old_mode = dc->bk_mode;
  dc->text = fg;
  dc->background = bg;
  dc->bk_mode = OPAQUE;
  int inner = r.right - r.left - 2;
  std::wstring horizontal(static_cast<size_t>(inner), Glyph(kGlyphFrameHorizontal));
  DrawRow(dc, r.left, r.top, Glyph(kGlyphFrameTopLeft) + horizontal + Glyph(kGlyphFrameTopRight), dc->clip);
  DrawRow(dc, r.left, r.bottom - 1, Glyph(kGlyphFrameBottomLeft) + horizontal + Glyph(kGlyphFrameBottomRight), dc->clip);
  for (int y = r.top + 1; y < r.bottom - 1; ++y) {
    DrawRow(dc, r.left, y, std::wstring(1, Glyph(kGlyphFrameVertical)), dc->clip);
    DrawRow(dc, r.right - 1, y, std::wstring(1, Glyph(kGlyphFrameVertical)), dc->clip);
  }
  dc->text = old_text;
  dc->background = old_bg;
  dc->bk_mode = old_mode;
}

std::vector<std::wstring> WrapText(std::wstring_view text, int width) {
  std::vector<std::wstring> lines;
  if (width < 1) width = 1;
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find(L'\n', start);
    std::wstring_view paragraph =
        text.substr(start, end == std::wstring_view::npos ? std::wstring_view::npos : end - start);
    if (!paragraph.empty() && paragraph.back() == L'\r') paragraph.remove_suffix(1);
    std::wstring line;
    int line_width = 0;
    size_t i = 0;
    while (i < paragraph.size()) {
      size_t word_end = paragraph.find(L' ', i);
      if (word_end == std::wstring_view::npos) word_end = paragraph.size();
      std::wstring_view word = paragraph.substr(i, word_end - i);
      int word_width = TextWidth(word);
      int needed = line.empty() ? word_width : line_width + 1 + word_width;
      if (needed > width && !line.empty()) {
        lines.push_back(line);
        line.clear();
        line_width = 0;
      }
      // A word longer than the line is cut where the line ends.
      while (word_width > width) {
        std::wstring part;
        int used = 0;
        size_t k = 0;
        while (k < word.size() && used + CellWidth(word[k]) <= width) used += CellWidth(word[k++]);
        if (k == 0) k = 1;
        part = word.substr(0, k);
        lines.push_back(part);
        word.remove_prefix(k);
        word_width = TextWidth(word);
      }
      if (!line.empty()) {
        line += L' ';
        ++line_width;
      }
      line += word;
      line_width += word_width;
      i = word_end + 1;
    }
    lines.push_back(line);
    if (end == std::wstring_view::npos) break;
    start = end + 1;
  }
  return lines;
}

}  // namespace velmo::ui::internal

using velmo::ui::internal::ContextOf;
using velmo::ui::internal::DeviceContext;
using velmo::ui::internal::GdiObject;
using velmo::ui::internal::ObjectOf;

HDC BeginPaint(HWND hwnd, PAINTSTRUCT* ps) {
  if (!velmo::ui::internal::Find(hwnd)) return nullptr;
  HDC hdc = velmo::ui::internal::CreateWindowDC(hwnd);
  if (ps) {
    ps->hdc = hdc;
    ps->fErase = FALSE;
    GetClientRect(hwnd, &ps->rcPaint);
  }
  return hdc;
}

BOOL EndPaint(HWND, const PAINTSTRUCT* ps) {
  if (ps) velmo::ui::internal::FreeDC(ps->hdc);
  return TRUE;
}

HDC GetDC(HWND hwnd) {
  return velmo::ui::internal::Find(hwnd) ? velmo::ui::internal::CreateWindowDC(hwnd) : nullptr;
}

int ReleaseDC(HWND, HDC hdc) {
  velmo::ui::internal::FreeDC(hdc);
  return 1;
}

COLORREF SetTextColor(HDC hdc, COLORREF colour) {
  DeviceContext* dc = ContextOf(hdc);
  if (!dc) return 0;
  return std::exchange(dc->text, colour);
}

COLORREF GetTextColor(HDC hdc) {
  DeviceContext* dc = ContextOf(hdc);
  return dc ? dc->text : 0;
}

COLORREF SetBkColor(HDC hdc, COLORREF colour) {
  DeviceContext* dc = ContextOf(hdc);
  if (!dc) return 0;
  return std::exchange(dc->background, colour);
}

COLORREF GetBkColor(HDC hdc) {
  DeviceContext* dc = ContextOf(hdc);
  return dc ? dc->background : 0;
}

int SetBkMode(HDC hdc, int mode) {
  DeviceContext* dc = ContextOf(hdc);
  if (!dc || (mode != OPAQUE && mode != TRANSPARENT)) return 0;
  return std::exchange(dc->bk_mode, mode);
}

HBRUSH CreateSolidBrush(COLORREF colour) {
  return velmo::ui::internal::NewObject(GdiObject{GdiObject::Kind::kBrush, colour});
}

HBRUSH GetSysColorBrush(int index) {
  static HBRUSH brushes[kSystemColourCount] = {};
  if (index < 0 || index >= kSystemColourCount) return nullptr;
  if (!brushes[index]) {
    GdiObject brush{GdiObject::Kind::kBrush};
    brush.system_index = index;
    brush.stock = true;
    brushes[index] = velmo::ui::internal::NewObject(brush);
  }
  return brushes[index];
}

HFONT CreateFontIndirectW(const LOGFONTW* font) {
  if (!font) return nullptr;
  GdiObject object{GdiObject::Kind::kFont};
  if (font->lfWeight >= 600) object.attrs |= velmo::ui::kAttrBold;
  if (font->lfItalic) object.attrs |= velmo::ui::kAttrItalic;
  if (font->lfUnderline) object.attrs |= velmo::ui::kAttrUnderline;
  return velmo::ui::internal::NewObject(object);
}

HGDIOBJ SelectObject(HDC hdc, HGDIOBJ handle) {
  DeviceContext* dc = ContextOf(hdc);
  GdiObject* object = ObjectOf(handle);
  if (!dc || !object) return nullptr;
  if (object->kind == GdiObject::Kind::kFont) {
    return reinterpret_cast<HGDIOBJ>(std::exchange(dc->font, object));
  }
  return nullptr;  // brushes are passed to the calls that fill
}

BOOL DeleteObject(HGDIOBJ handle) {
  GdiObject* object = ObjectOf(handle);
  if (!object) return FALSE;
  if (object->stock) return TRUE;
  for (DeviceContext* dc : velmo::ui::internal::LiveContexts()) {
    if (dc->font == object) dc->font = velmo::ui::internal::DefaultFont();
  }
  velmo::ui::internal::LiveObjects().erase(object);
  delete object;
  return TRUE;
}

BOOL FillRect(HDC hdc, const RECT* rect, HBRUSH brush) {
  DeviceContext* dc = ContextOf(hdc);
  GdiObject* object = ObjectOf(brush);
  velmo::ui::Screen* screen = velmo::ui::internal::CurrentScreen();
  if (!dc || !rect || !object || !screen) return FALSE;
  RECT r = velmo::ui::internal::Clip(velmo::ui::internal::ToScreen(dc, *rect), dc->clip);
  screen->Fill(r.left, r.top, r.right, r.bottom,
               velmo::ui::Cell{L' ', dc->text, velmo::ui::internal::BrushColour(object), 0});
  return TRUE;
}

BOOL TextOutW(HDC hdc, int x, int y, LPCWSTR text, int length) {
  DeviceContext* dc = ContextOf(hdc);
  if (!dc || !text) return FALSE;
  size_t n = length < 0 ? std::wcslen(text) : static_cast<size_t>(length);
  velmo::ui::internal::DrawRow(dc, x, y, std::wstring_view(text, n), dc->clip);
  return TRUE;
}

BOOL ExtTextOutW(HDC hdc, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                 UINT length, const int*) {
  DeviceContext* dc = ContextOf(hdc);
  if (!dc) return FALSE;
  RECT clip = dc->clip;
  if (rect && (options & ETO_OPAQUE)) {
    velmo::ui::Screen* screen = velmo::ui::internal::CurrentScreen();
    RECT r = velmo::ui::internal::Clip(velmo::ui::internal::ToScreen(dc, *rect), dc->clip);
    if (screen) {
      screen->Fill(r.left, r.top, r.right, r.bottom,
                   velmo::ui::Cell{L' ', dc->text, dc->background, 0});
    }
  }
  if (rect && (options & ETO_CLIPPED)) {
    clip = velmo::ui::internal::Clip(velmo::ui::internal::ToScreen(dc, *rect), clip);
  }
  if (text) velmo::ui::internal::DrawRow(dc, x, y, std::wstring_view(text, length), clip);
  return TRUE;
}

BOOL GetTextExtentPoint32W(HDC, LPCWSTR text, int length, SIZE* size) {
  if (!text || !size || length < 0) return FALSE;
  size->cx = velmo::ui::TextWidth(std::wstring_view(text, static_cast<size_t>(length)));
  size->cy = 1;
  return TRUE;
}

int DrawTextW(HDC hdc, LPCWSTR text, int length, RECT* rect, UINT format) {
  DeviceContext* dc = ContextOf(hdc);
  if (!dc || !text || !rect) return 0;
  std::wstring_view source(text, length < 0 ? std::wcslen(text) : static_cast<size_t>(length));
  int width = rect->right - rect->left;
  std::vector<std::wstring> lines;
  if (format & DT_SINGLELINE) {
    std::wstring line(source);
    std::replace(line.begin(), line.end(), L'\n', L' ');
    std::erase(line, L'\r');
    lines.push_back(line);
  } else if (format & DT_WORDBREAK) {
    lines = velmo::ui::internal::WrapText(source, width);
  } else {
    lines = velmo::ui::internal::WrapText(source, 1 << 20);
  }
  for (std::wstring& line : lines) {
    if (format & DT_EXPANDTABS) line = velmo::ui::internal::ExpandTabs(line);
    if (format & DT_END_ELLIPSIS) line = velmo::ui::internal::Ellipsize(line, width);
  }
  int height = static_cast<int>(lines.size());
  if (format & DT_CALCRECT) {
    int widest = 0;
    for (const std::wstring& line : lines) widest = std::max(widest, velmo::ui::TextWidth(line));
    rect->right = rect->left + widest;
    rect->bottom = rect->top + height;
    return height;
  }
  int top = rect->top;
  if (format & DT_SINGLELINE) {
    if (format & DT_VCENTER) top = rect->top + (rect->bottom - rect->top - 1) / 2;
    if (format & DT_BOTTOM) top = rect->bottom - 1;
  }
  RECT clip = dc->clip;
  if (!(format & DT_NOCLIP)) {
    clip = velmo::ui::internal::Clip(velmo::ui::internal::ToScreen(dc, *rect), clip);
  }
  for (size_t i = 0; i < lines.size(); ++i) {
    int w = velmo::ui::TextWidth(lines[i]);
    int x = rect->left;
    if (format & DT_RIGHT) x = rect->right - w;
    if (format & DT_CENTER) x = rect->left + (width - w) / 2;
    velmo::ui::internal::DrawRow(dc, x, top + static_cast<int>(i), lines[i], clip);
  }
  return height;
}

namespace velmo::ui {
BYTE SetTextAttributes(HDC hdc, BYTE attributes) {
  internal::DeviceContext* dc = internal::ContextOf(hdc);
  if (!dc) return 0;
  return std::exchange(dc->extra_attrs, attributes);
}
}  // namespace velmo::ui

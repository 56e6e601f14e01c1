#include "links/link_uris.h"

#include <cstring>
#include <cwctype>

#include "platform/wstr.h"

namespace velmo {
namespace {

// The characters a URI may hold as they are (reserved ones included), used
// for web addresses whose own structure must stay.
constexpr const char* kUriCharacters = ":/?#[]@!&'()*+,;=%";

bool Unreserved(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
         c == '-' || c == '.' || c == '_' || c == '~';
}

std::wstring DialString(const std::wstring& number) {
  std::wstring out;
  for (wchar_t c : number)
    if ((c >= L'0' && c <= L'9') || c == L'+' || c == L'w' || c == L'p') out.push_back(c);
  return out;
}

// Cuts an encoded text to at most `max` characters, never inside a "%XX".
std::wstring CutEncoded(std::wstring encoded, size_t max) {
  if (encoded.size() <= max) return encoded;
  encoded.resize(max);
  const size_t percent = encoded.rfind(L'%');
  if (percent != std::wstring::npos && percent + 3 > encoded.size()) encoded.resize(percent);
  return encoded;
}

}  // namespace

std::wstring PercentEncode(const std::wstring& text, const char* keep) {
  static const char kHex[] = "0123456789ABCDEF";
  std::wstring out;
  for (unsigned char c : ToUtf8(text)) {
    if (Unreserved(c) || (c != 0 && std::strchr(keep, c))) {
      out.push_back(c);
    } else {
      out.push_back(L'%');
      out.push_back(kHex[c >> 4]);
      out.push_back(kHex[c & 15]);
    }
  }
  return out;
}

std::wstring MailtoUri(const std::wstring& address) {
  return L"mailto:" + PercentEncode(address, "@");
}

std::wstring MailtoUri(const std::wstring& address, const std::wstring& subject,
                       const std::wstring& body) {
  std::wstring uri = MailtoUri(address) + L"?subject=";
  uri += CutEncoded(PercentEncode(subject), kMaxUriChars - uri.size() - 6);
  uri += L"&body=";
  if (uri.size() < kMaxUriChars) uri += CutEncoded(PercentEncode(body), kMaxUriChars - uri.size());
  return uri;
}

std::wstring SmsUri(const std::wstring& number) { return L"sms:" + DialString(number); }

std::wstring TelUri(const std::wstring& number) { return L"tel:" + DialString(number); }

std::wstring WebUri(const std::wstring& address) {
  const bool has_scheme = address.find(L"://") != std::wstring::npos;
  return CutEncoded((has_scheme ? L"" : L"http://") + PercentEncode(address, kUriCharacters),
                    kMaxUriChars);
}

std::wstring FileUri(const std::wstring& address) {
  std::wstring path = address.rfind(L"file://", 0) == 0 ? address.substr(7) : address;
  if (path.empty() || path[0] != L'/') path.insert(0, L"/");
  return L"file://" + PercentEncode(path, "/");
}

}  // namespace velmo

// The three link scanners: the first telephone number, e-mail address and web
// address in a text. They are fixed scanners (not general parsers): a number is
// a run of dialling characters that survives a list of tests meant to skip
// dates, times, internet addresses and part numbers; an e-mail address and a web
// address are what their read patterns take.
//
// Every scanner reads a NUL-terminated text (a std::wstring ends at its first
// NUL for them), never past its end, and accepts any content. The text is wide,
// or, in the overloads on char, the bytes of the device's ANSI code page
// (Windows-1252) as task notes are stored: the same text gives the same answer
// in either form.
#pragma once

#include <string>

namespace velmo {

// The first telephone number in the text, or an empty string when there is none.
std::wstring FindPhoneNumber(const wchar_t* text);
std::wstring FindPhoneNumber(const char* ansi_text);
inline std::wstring FindPhoneNumber(const std::wstring& text) { return FindPhoneNumber(text.c_str()); }

struct EmailAddress {
  std::wstring local_part;  // before the "@"
  std::wstring domain;      // after it
  std::wstring Text() const { return local_part + L'@' + domain; }
};

// True when the text holds an e-mail address; the first one is stored in
// *found unless found is null (the test-only use). Nothing is cut from the
// address: a full stop after it stays part of the domain.
bool FindEmail(const wchar_t* text, EmailAddress* found);
bool FindEmail(const char* ansi_text, EmailAddress* found);
inline bool FindEmail(const std::wstring& text, EmailAddress* found) { return FindEmail(text.c_str(), found); }

// True when the text holds a web address: the earliest one with a known scheme,
// else the first "www." host. The address is stored in *found, as read (up to
// the next blank), unless found is null.
bool FindWebAddress(const wchar_t* text, std::wstring* found);
bool FindWebAddress(const char* ansi_text, std::wstring* found);
inline bool FindWebAddress(const std::wstring& text, std::wstring* found) { return FindWebAddress(text.c_str(), found); }

// Before a web address is offered or opened, the punctuation that the sentence
// around it put at its end is cut off: . , ; ( ) ! : ? " - [ ] { }
void CutTrailingPunctuation(std::wstring* address);

}  // namespace velmo

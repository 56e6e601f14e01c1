// The phone: calls and text messages go to the desktop's handler of tel:
// addresses (a softphone or a linked phone), or to a dial command the user
// set ("Dial" under the "Applications" key: the program and its arguments,
// "%1" standing for the number and "%2" for the called party's name; without
// "%1" the number is added at the end). With neither, there is no phone: every
// phone item and command is absent.
#pragma once

#include <string>

#include "platform/wintypes.h"

namespace velmo {

constexpr const wchar_t* kDialCommandName = L"Dial";
constexpr const char* kTelHandlerType = "x-scheme-handler/tel";

// Looks for the phone again (start-up does it once).
void LoadPhoneLibrary();

// Whether there is a phone, as found by the last look (the first call looks).
bool PhoneLibraryPresent();

// Hands the number over for a call; `name` (may be empty) is the called
// party's name where the dial command takes one. FALSE without a phone or when
// the handler cannot be started; the program never waits for it.
BOOL PhoneMakeCall(const std::wstring& number, const std::wstring& name);

}  // namespace velmo

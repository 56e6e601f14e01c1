// The platform's basic types, sizes and error codes, as the program was written
// against them. Everything above the platform layer uses these names.
#pragma once

#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using UINT = unsigned int;
using BOOL = int;
using HRESULT = std::int32_t;
using WCHAR = wchar_t;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using LRESULT = std::intptr_t;
using HANDLE = void*;
using CEOID = DWORD;
using CEPROPID = DWORD;
using DATE = double;  // variant date: days since 30 December 1899, local time

inline HANDLE const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(~std::uintptr_t{0});

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;

struct FILETIME {
  DWORD dwLowDateTime;
  DWORD dwHighDateTime;
};

struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;
  WORD wDayOfWeek;
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};

// Last-error values the program tests for.
constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_INVALID_DATA = 13;
constexpr DWORD ERROR_WRITE_FAULT = 29;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_HANDLE_EOF = 38;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;
constexpr DWORD ERROR_MORE_DATA = 234;
constexpr DWORD ERROR_NO_MORE_ITEMS = 259;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_DATABASE_FULL = 4314;
constexpr DWORD ERROR_BAD_FORMAT = 11;
constexpr DWORD ERROR_LOCK_VIOLATION = 33;
constexpr DWORD ERROR_NOT_OWNER = 288;
constexpr DWORD ERROR_TIMEOUT = 1460;
constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000Eu);
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003u);

constexpr bool SUCCEEDED(HRESULT hr) { return hr >= 0; }
constexpr bool FAILED(HRESULT hr) { return hr < 0; }

// A positive last error e becomes 0x80070000 | (e & 0xFFFF); any other value is
// passed on unchanged.
constexpr HRESULT HRESULT_FROM_WIN32(DWORD e) {
  return static_cast<LONG>(e) <= 0 ? static_cast<HRESULT>(e)
                                   : static_cast<HRESULT>((e & 0xFFFFu) | 0x80070000u);
}

// Window handles and the few window messages that cross module boundaries
// (the hand-over between instances uses them as well as the window manager).
struct HWND__;
using HWND = HWND__*;

constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_COPYDATA = 0x004A;
constexpr UINT WM_APP = 0x8000;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;

// The record carried by WM_COPYDATA (lParam points at it).
struct COPYDATASTRUCT {
  ULONG_PTR dwData;
  DWORD cbData;
  void* lpData;
};

constexpr WORD LOWORD(std::uintptr_t v) { return static_cast<WORD>(v & 0xFFFF); }
constexpr WORD HIWORD(std::uintptr_t v) { return static_cast<WORD>((v >> 16) & 0xFFFF); }

// The registry: named values under keys, kept from one run to the next.
//
// A key that was written is stored as a whole when it is closed, so a save is all or nothing.
// Where the store cannot be written, the values stay in memory and the functions succeed; the host
// reports that to the user once.
#pragma once

#include "windef.h"

/// Open from the start, to open others below it; it has no values and is not closed.
constexpr HKEY HKEY_LOCAL_MACHINE{0x80000002U};

constexpr LONG ERROR_SUCCESS = 0;
constexpr LONG ERROR_FILE_NOT_FOUND = 2;
constexpr LONG ERROR_INVALID_HANDLE = 6;
constexpr LONG ERROR_INVALID_PARAMETER = 87;
constexpr LONG ERROR_MORE_DATA = 234;

constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_CREATED_NEW_KEY = 1;
constexpr DWORD REG_OPENED_EXISTING_KEY = 2;
constexpr DWORD KEY_ALL_ACCESS = 0x000F003F;

struct SECURITY_ATTRIBUTES;

/// Opens `path` (names separated by backslashes, in upper or lower case) below `key`, and creates
/// it when it does not exist; `disposition`, if given, says which. Class, options, access and
/// attributes are ignored. ERROR_SUCCESS or an error code.
LONG RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD reserved, LPWSTR className, DWORD options,
                     DWORD access, SECURITY_ATTRIBUTES *attributes, HKEY *result,
                     DWORD *disposition);
/// Opens an existing key; ERROR_FILE_NOT_FOUND when there is none.
LONG RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD options, DWORD access, HKEY *result);
/// Closes the key; saves the store if a value was changed through this handle.
LONG RegCloseKey(HKEY key);
/// Reads a value of any type. `size` is the buffer's size in bytes and becomes the value's;
/// with a null buffer only the size is reported. ERROR_MORE_DATA when the buffer is too small, and
/// then nothing is copied.
LONG RegQueryValueExW(HKEY key, LPCWSTR name, DWORD *reserved, DWORD *type, BYTE *data,
                      DWORD *size);
/// Sets a value; an empty or null name is the key's default value. A name with a line break is
/// refused.
LONG RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE *data,
                    DWORD size);
/// ERROR_FILE_NOT_FOUND when there is no such value.
LONG RegDeleteValueW(HKEY key, LPCWSTR name);

// The system's basic services: the tick count, modules and their resources, processes,
// and the few text functions that programs of this platform use with UTF-16.
#pragma once

#include <initializer_list>

#include "windef.h"

/// The program's entry point, written by the program. Returns the process's exit code.
int WINAPI WinMain(HINSTANCE instance, HINSTANCE previousInstance, LPWSTR commandLine,
                   int showCommand);

/// Milliseconds since the handheld was started; wraps after 2^32. It is constant while the
/// program handles a message and moves only while the program waits for the next one.
DWORD GetTickCount();

// Modules and resources ----------------------------------------------------------------------

using FARPROC = void (*)();

/// The module with that file name, or none. The handheld has the system library "coredll.dll".
HMODULE LoadLibraryW(LPCWSTR fileName);
BOOL FreeLibrary(HMODULE module);
/// The address of a function that a module exports under `name`, or null.
FARPROC GetProcAddressW(HMODULE module, LPCWSTR name);

/// A loaded resource: its address, valid as long as the module is.
using HGLOBAL = const void *;

/// Predefined resource types, for FindResourceW. A custom type is a name, for example u"WAVE".
#define RT_BITMAP MAKEINTRESOURCEW(2)
#define RT_ICON MAKEINTRESOURCEW(3)
#define RT_MENU MAKEINTRESOURCEW(4)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_ACCELERATOR MAKEINTRESOURCEW(9)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_GROUP_ICON MAKEINTRESOURCEW(14)
#define RT_HTML MAKEINTRESOURCEW(23)

/// The resource of that name and type, or none. `name` may be MAKEINTRESOURCEW of a number.
HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
/// The resource's bytes, in place; null when there is no such resource.
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
/// The resource's size in bytes; 0 when there is no such resource.
DWORD SizeofResource(HMODULE module, HRSRC resource);
/// Copies string `id` into `buffer`, at most `capacity` - 1 code units and a terminator.
/// Returns the number of code units copied, without the terminator; 0 when there is no such
/// string, and then the buffer holds an empty string.
int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int capacity);

// Processes ----------------------------------------------------------------------------------

struct SECURITY_ATTRIBUTES;
struct STARTUPINFOW;
struct PROCESS_INFORMATION;

/// Starts another program. The only one is the help viewer "peghelp.exe", with the command line
/// "file:PAGE#ANCHOR", where PAGE is an HTML resource of the calling program. FALSE when the host
/// cannot show it. All parameters except `program` and `commandLine` are ignored.
BOOL CreateProcessW(LPCWSTR program, LPCWSTR commandLine, SECURITY_ATTRIBUTES *process,
                    SECURITY_ATTRIBUTES *thread, BOOL inheritHandles, DWORD flags,
                    void *environment, LPWSTR directory, STARTUPINFOW *startup,
                    PROCESS_INFORMATION *information);

// Text ---------------------------------------------------------------------------------------

/// Copies a terminated text, at most `capacity` - 1 code units of it, and terminates the copy.
LPWSTR lstrcpynW(LPWSTR target, LPCWSTR source, int capacity);
/// Writes `value` in decimal into `buffer` (12 code units suffice) and returns it. `radix` is 10.
LPWSTR _itow(int value, LPWSTR buffer, int radix);
/// Reads a decimal number as the platform's library does: leading white space, a sign, digits;
/// stops at the first other character; 0 when there is no digit, saturated when too large.
int _wtoi(LPCWSTR text);

namespace handheld {

/// wsprintfW with its values in a list.
int formatText(LPWSTR buffer, LPCWSTR format, std::initializer_list<int> values);

} // namespace handheld

/// Formats numbers into `buffer`, which must have room for the result, at most 1,024 code units
/// with the terminator. Knows %d, %c and %%, with a width and leading zeros ("%02d"); ends at a %
/// sign that it does not know or has no value for. Returns the number of code units written,
/// without the terminator.
template <class... Values>
int wsprintfW(LPWSTR buffer, LPCWSTR format, Values... values)
{
    return handheld::formatText(buffer, format, {static_cast<int>(values)...});
}

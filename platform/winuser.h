// Windows, messages, input, menus, dialogs and message boxes.
//
// Everything runs on the one thread that called WinMain. Positions of windows and of DIALOG
// resources are in pixels and dialog units; a top-level window's position is on the screen, a
// child's in its parent's client area. Windows have no frame outside their client area: a
// window's caption stands in the title bar of the shell while the window is active.
#pragma once

#include "winbase.h"
#include "wingdi.h"

// Messages -----------------------------------------------------------------------------------

constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_ACTIVATE = 0x0006;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_SETTEXT = 0x000C;
constexpr UINT WM_GETTEXT = 0x000D;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_SETTINGCHANGE = 0x001A;
constexpr UINT WM_CANCELMODE = 0x001F;
constexpr UINT WM_HELP = 0x0053;
constexpr UINT WM_NCDESTROY = 0x0082;
constexpr UINT WM_GETDLGCODE = 0x0087;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_INITMENUPOPUP = 0x0117;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_CAPTURECHANGED = 0x0215;
constexpr UINT WM_HIBERNATE = 0x03FF;
constexpr UINT WM_USER = 0x0400;

constexpr WPARAM WA_INACTIVE = 0;
constexpr WPARAM WA_ACTIVE = 1;
constexpr WPARAM WA_CLICKACTIVE = 2;
constexpr WPARAM SIZE_RESTORED = 0;
constexpr WPARAM SIZE_MINIMIZED = 1;

using WNDPROC = LRESULT(CALLBACK *)(HWND, UINT, WPARAM, LPARAM);

struct MSG
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt; ///< the stylus, in screen pixels, when the message was taken
};

/// Waits for the next message for any window of the program and takes it: posted messages first,
/// then input, then WM_QUIT, WM_PAINT, WM_TIMER. Returns 0 for WM_QUIT, else nonzero. The only
/// place where the program waits. `window` and the filters are not used.
BOOL GetMessageW(MSG *message, HWND window, UINT filterMin, UINT filterMax);
/// Posts WM_CHAR for the keys backspace, tab and enter. Other characters come from the host as
/// text.
BOOL TranslateMessage(const MSG *message);
/// Hands a message to its window's procedure and returns what that returns.
LRESULT DispatchMessageW(const MSG *message);
/// Calls the window's procedure at once; 0 when there is no such window.
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Puts a message at the end of the queue; FALSE when there is no such window.
BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Makes GetMessageW return 0, with this exit code, when no posted message and no input is left.
void PostQuitMessage(int exitCode);

// Window classes and windows -----------------------------------------------------------------

constexpr UINT CS_VREDRAW = 0x0001;
constexpr UINT CS_HREDRAW = 0x0002;

struct WNDCLASSW
{
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra, cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground; ///< what DefWindowProcW fills invalid parts with; none: nothing
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
};
using ATOM = WORD;
/// 0 when a class of that name exists. The name is copied.
ATOM RegisterClassW(const WNDCLASSW *description);

constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_CAPTION = 0x00C00000;
constexpr DWORD WS_BORDER = 0x00800000;
constexpr DWORD WS_VSCROLL = 0x00200000;
constexpr DWORD WS_SYSMENU = 0x00080000;
constexpr DWORD WS_TABSTOP = 0x00010000;
constexpr DWORD WS_EX_TOPMOST = 0x00000008;
/// A top-level window that never becomes active, nor takes the focus: a bar or a drop-down.
constexpr DWORD WS_EX_NOACTIVATE = 0x08000000;
constexpr DWORD WS_EX_CAPTIONOKBTN = 0x80000000; ///< an OK button in the title bar: IDOK
constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000U);

struct CREATESTRUCTW
{
    void *lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy, cx, y, x;
    DWORD style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};

/// Creates a window: WM_CREATE (lParam a CREATESTRUCTW; -1 refuses) runs inside the call; then,
/// with WS_VISIBLE, the window is shown and a top-level one activated. CW_USEDEFAULT places a
/// top-level window below the title bar, down to the bottom of the screen. For a child `menu`
/// carries its identifier. For a WS_POPUP window `parent` is its owner. None on failure.
HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                     void *parameter);
/// Destroys a window, first the windows it owns, then its children: WM_DESTROY to each from the
/// outside in. Its timers and undelivered messages go with it.
BOOL DestroyWindow(HWND window);
/// The default handling of a message.
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

BOOL IsWindow(HWND window);
/// The first top-level window, of this or of another process on the same handheld, whose class
/// and title are these (either may be null: any).
HWND FindWindowW(LPCWSTR className, LPCWSTR title);
/// Brings a window's program to the front and activates it. Handles of windows are even; with
/// the lowest bit set one stands for the window and those it owns, of which the topmost is
/// activated.
BOOL SetForegroundWindow(HWND window);
constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOWNA = 8;
constexpr int SW_SHOW = 5;
/// Returns whether the window was visible before.
BOOL ShowWindow(HWND window, int command);
/// Paints at once what is invalid.
BOOL UpdateWindow(HWND window);
BOOL IsWindowVisible(HWND window);
BOOL IsWindowEnabled(HWND window);
/// Returns whether the window was disabled before.
BOOL EnableWindow(HWND window, BOOL enable);
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);

constexpr UINT SWP_NOSIZE = 0x0001;
constexpr UINT SWP_NOMOVE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOREDRAW = 0x0008; ///< nothing becomes invalid
constexpr UINT SWP_NOACTIVATE = 0x0010;
constexpr HWND HWND_TOP{0};
/// Moves and sizes a window. Its place among its siblings stays: SWP_NOZORDER must be given.
BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);

BOOL GetWindowRect(HWND window, RECT *rect); ///< in screen pixels
BOOL GetClientRect(HWND window, RECT *rect); ///< left and top are 0
BOOL ClientToScreen(HWND window, POINT *point);
BOOL ScreenToClient(HWND window, POINT *point);
/// A child's parent, a top-level window's owner, or none.
HWND GetParent(HWND window);
constexpr UINT GW_HWNDNEXT = 2;
constexpr UINT GW_CHILD = 5;
/// The next sibling (behind) or the topmost child. Dialog controls are
/// created one behind the other, so GW_CHILD and GW_HWNDNEXT give them in template order.
HWND GetWindow(HWND window, UINT which);

constexpr int GWL_ID = -12;
constexpr int GWL_STYLE = -16;
constexpr int GWL_EXSTYLE = -20;
constexpr int DWL_MSGRESULT = 0; ///< of a dialog: what its procedure answers to a message
constexpr int DWL_DLGPROC = 4;
constexpr int DWL_USER = 8; ///< of a dialog: free for the program
/// A value kept with a window; wide enough for an address. 0 when there is none.
LONG_PTR GetWindowLongW(HWND window, int index);
/// Sets one of a dialog's three values and returns the previous one; 0 for any other index.
LONG_PTR SetWindowLongW(HWND window, int index, LONG_PTR value);
BOOL SetWindowTextW(HWND window, LPCWSTR text);
/// Copies at most `capacity` - 1 code units and a terminator; returns the number copied.
int GetWindowTextW(HWND window, LPWSTR buffer, int capacity);

// Activation, focus, capture -----------------------------------------------------------------

HWND GetActiveWindow();
/// Activates a top-level window and brings it to the top: WM_ACTIVATE to the one that loses
/// activation (lParam the other's handle), to the one that gains it; DefWindowProcW then gives
/// it the focus. Returns the previously active one.
HWND SetActiveWindow(HWND window);
HWND GetFocus();
/// WM_KILLFOCUS to the one that loses the focus, WM_SETFOCUS to the one that gains it; a
/// control's top-level window is activated. Returns the previous one.
HWND SetFocus(HWND window);
/// Sends stylus messages to this window until ReleaseCapture or the stylus is lifted: the
/// WM_LBUTTONUP is the last one, unless its handler sets the capture anew.
HWND SetCapture(HWND window);
BOOL ReleaseCapture();
HWND GetCapture();

// Painting -----------------------------------------------------------------------------------

struct PAINTSTRUCT
{
    HDC hdc;
    BOOL fErase;
    RECT rcPaint; ///< what is invalid, in client pixels
};
/// A device context whose drawing is clipped to what is visible of the invalid part, which is
/// erased with WM_ERASEBKGND and becomes valid.
HDC BeginPaint(HWND window, PAINTSTRUCT *paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT *paint);
/// The window's device context: drawing goes straight to the screen, clipped to what is visible
/// of the window at that moment. `window` none: the whole screen.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC dc);
/// Marks a part (null: all) for WM_PAINT.
BOOL InvalidateRect(HWND window, const RECT *rect, BOOL erase);

// Timers -------------------------------------------------------------------------------------

using TIMERPROC = void(CALLBACK *)(HWND, UINT, UINT, DWORD);
/// Sends WM_TIMER every `period` milliseconds, first that long from now; a timer of the same
/// window and identifier is replaced. Several periods missed while the program was
/// busy give one message. There are no callbacks.
UINT SetTimer(HWND window, UINT id, UINT period, TIMERPROC callback);
BOOL KillTimer(HWND window, UINT id);

// Keys ---------------------------------------------------------------------------------------

constexpr int VK_BACK = 0x08;
constexpr int VK_TAB = 0x09;
constexpr int VK_RETURN = 0x0D;
constexpr int VK_SHIFT = 0x10;
constexpr int VK_CONTROL = 0x11;
constexpr int VK_ESCAPE = 0x1B;
constexpr int VK_SPACE = 0x20;
constexpr int VK_END = 0x23;
constexpr int VK_HOME = 0x24;
constexpr int VK_LEFT = 0x25;
constexpr int VK_UP = 0x26;
constexpr int VK_RIGHT = 0x27;
constexpr int VK_DOWN = 0x28;
constexpr int VK_DELETE = 0x2E;
constexpr int VK_F4 = 0x73;
constexpr int VK_APP1 = 0xC1;
constexpr int VK_APP2 = 0xC2;
constexpr int VK_APP3 = 0xC3;
constexpr int VK_APP4 = 0xC4;

/// Bit 15: the key is down now; bit 0: it was pressed since the last query of this key. Key 0
/// is always up.
SHORT GetAsyncKeyState(int key);
/// Bit 15: the key was down when the message being handled was taken.
SHORT GetKeyState(int key);

// Accelerators, menus ------------------------------------------------------------------------

HACCEL LoadAcceleratorsW(HINSTANCE module, LPCWSTR name);
/// Sends WM_COMMAND (high half of wParam 1) when the message is a key of the table; returns
/// nonzero then, and the message must not be dispatched. Works while `window` is enabled.
int TranslateAcceleratorW(HWND window, HACCEL table, MSG *message);

constexpr UINT MF_BYCOMMAND = 0x0000;
constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT MF_ENABLED = 0x0000;
constexpr UINT MF_GRAYED = 0x0001;
constexpr UINT MF_POPUP = 0x0010;
constexpr UINT MF_SEPARATOR = 0x0800;
HMENU LoadMenuW(HINSTANCE module, LPCWSTR name);
BOOL DestroyMenu(HMENU menu);
HMENU GetSubMenu(HMENU menu, int position);
/// Enables or grays an item, found by command anywhere below `menu` or by position in it.
/// Returns the previous state, or -1 when there is no such item.
int EnableMenuItem(HMENU menu, UINT item, UINT flags);

// Icons --------------------------------------------------------------------------------------

/// The icon resource of that name; none when it is missing.
HICON LoadIconW(HINSTANCE module, LPCWSTR name);

// Dialogs ------------------------------------------------------------------------------------

using DLGPROC = INT_PTR(CALLBACK *)(HWND, UINT, WPARAM, LPARAM);

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

constexpr DWORD DS_ABSALIGN = 0x0001; ///< the position is on the screen
constexpr DWORD DS_SETFONT = 0x0040;
constexpr DWORD DS_MODALFRAME = 0x0080;

/// The address of a dialog template: the bytes of a DIALOG resource.
using LPCDLGTEMPLATEW = const void *;

/// Runs a dialog modally: disables the owner, creates the dialog and its controls, sends
/// WM_INITDIALOG (wParam the control to get the focus, lParam `parameter`; the focus goes there
/// when the procedure returns TRUE), shows and activates it, and handles messages until
/// EndDialog; then enables and activates the owner. Returns EndDialog's result, or -1 when the
/// template is malformed.
INT_PTR DialogBoxIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                DLGPROC procedure, LPARAM parameter);
/// Ends a dialog after the message in hand; the first result given counts.
BOOL EndDialog(HWND dialog, INT_PTR result);
LRESULT DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
BOOL IsDialogMessageW(HWND dialog, MSG *message);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND control);
/// The next or previous control with WS_TABSTOP that is visible and enabled, in template order,
/// round and round.
HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int capacity);
LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);

// WM_GETDLGCODE answers
constexpr LRESULT DLGC_WANTARROWS = 0x0001;
constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;
constexpr LRESULT DLGC_HASSETSEL = 0x0008;
constexpr LRESULT DLGC_DEFPUSHBUTTON = 0x0010;
constexpr LRESULT DLGC_UNDEFPUSHBUTTON = 0x0020;
constexpr LRESULT DLGC_STATIC = 0x0100;
constexpr LRESULT DLGC_BUTTON = 0x2000;
constexpr LRESULT DLGC_WANTCHARS = 0x0080;

// Controls: BUTTON
constexpr DWORD BS_PUSHBUTTON = 0x0000;
constexpr DWORD BS_DEFPUSHBUTTON = 0x0001;
constexpr UINT BM_SETSTYLE = 0x00F4;
constexpr UINT BN_CLICKED = 0;

// Controls: STATIC
constexpr DWORD SS_LEFT = 0x0000;
constexpr DWORD SS_CENTER = 0x0001;
constexpr DWORD SS_NOPREFIX = 0x0080;
constexpr DWORD SS_BITMAP = 0x000E;

// Controls: EDIT
constexpr DWORD ES_AUTOHSCROLL = 0x0080;
constexpr UINT EM_SETSEL = 0x00B1;
constexpr UINT EN_CHANGE = 0x0300;

// Controls: COMBOBOX
constexpr DWORD CBS_DROPDOWNLIST = 0x0003;
constexpr UINT CB_ADDSTRING = 0x0143;
constexpr UINT CB_GETCURSEL = 0x0147;
constexpr UINT CB_SETCURSEL = 0x014E;
constexpr LRESULT CB_ERR = -1;
constexpr UINT CBN_SELCHANGE = 1;

// Message boxes ------------------------------------------------------------------------------

constexpr UINT MB_OK = 0x0000;
constexpr UINT MB_OKCANCEL = 0x0001;
constexpr UINT MB_YESNO = 0x0004;
constexpr UINT MB_ICONQUESTION = 0x0020;
constexpr UINT MB_ICONINFORMATION = 0x0040;
constexpr UINT MB_TOPMOST = 0x00040000;

/// Shows a question and waits for its answer: IDOK, IDCANCEL, IDYES or IDNO, the identifiers of
/// its buttons. Modal over `owner` when there is one.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

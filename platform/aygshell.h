// The shell of the handheld: the menu bar, full-screen dialogs, the input panel.
#pragma once

#include "winuser.h"

// The menu bar -------------------------------------------------------------------------------

struct SHMENUBARINFO
{
    DWORD cbSize; ///< 32
    HWND hwndParent;
    DWORD dwFlags;
    UINT nToolBarId; ///< SHMENUBAR resource (RT_RCDATA)
    HINSTANCE hInstRes;
    int nBmpId, cBmpImages;
    HWND hwndMB; ///< out: the menu bar
};
static_assert(sizeof(SHMENUBARINFO) == 32);

/// Makes the menu bar at the bottom of the screen for a top-level window, from an RT_RCDATA
/// resource of little-endian 16-bit words: menu resource, number of buttons, then for each
/// button image (-2, none), command, state (4, enabled), style (0x18, drop-down and auto-size),
/// text (a string resource) and, as two words after them, 0 and the position of its drop-down
/// in the menu. It is shown while its parent is the active window or owns the active one
/// without being covered by it. FALSE when a resource is missing or malformed.
BOOL SHCreateMenuBar(SHMENUBARINFO *info);

/// Sent to the menu bar: returns its whole menu as an HMENU's value.
constexpr UINT SHCMBM_GETMENU = WM_USER + 402;
/// Sent to the menu bar: returns the drop-down of button lParam (a command identifier).
constexpr UINT SHCMBM_GETSUBMENU = WM_USER + 401;

// Activation and settings --------------------------------------------------------------------

struct SHACTIVATEINFO
{
    DWORD cbSize; ///< 12
    HWND hwndLastFocus;
    UINT flags;
};
static_assert(sizeof(SHACTIVATEINFO) == 12);

/// To be called on WM_ACTIVATE: gives the focus back to the child that had it.
BOOL SHHandleWMActivate(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO *info,
                        DWORD flags);
/// To be called on WM_SETTINGCHANGE.
BOOL SHHandleWMSettingChange(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO *info);

// Dialogs ------------------------------------------------------------------------------------

constexpr DWORD SHIDIM_FLAGS = 0x0001;
constexpr DWORD SHIDIF_DONEBUTTON = 0x0001;
constexpr DWORD SHIDIF_SIZEDLGFULLSCREEN = 0x0004;
constexpr DWORD SHIDIF_SIPDOWN = 0x0008;

struct SHINITDLGINFO
{
    DWORD dwMask; ///< SHIDIM_FLAGS
    HWND hDlg;
    DWORD dwFlags;
};

/// To be called on WM_INITDIALOG. SHIDIF_DONEBUTTON: an OK button in the title bar, which sends
/// the command IDOK. SHIDIF_SIZEDLGFULLSCREEN: the dialog fills the screen below the title bar.
/// SHIDIF_SIPDOWN: lowers the input panel.
BOOL SHInitDialog(SHINITDLGINFO *info);

// The input panel ----------------------------------------------------------------------------

enum SIPSTATE
{
    SIP_UP = 0,
    SIP_DOWN = 1
};
/// Raises or lowers the soft keyboard for the program's dialogs.
BOOL SHSipPreference(HWND window, SIPSTATE state);

/// Registers the window classes CAPEDIT, an edit box that capitalises, and SIPPREF, an invisible
/// control that raises the input panel while an edit box of its dialog has the focus and
/// lowers it when the focus goes elsewhere.
BOOL SHInitExtraControls();
/// Sent to a CAPEDIT: with wParam nonzero the first letter of every word is capitalised, with 0
/// only the first letter of the text.
constexpr UINT CEM_UPCASEALLWORDS = WM_USER + 1;

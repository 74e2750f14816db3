/* Names for resource scripts. For sources, winuser.h has the styles under the same names. */
#pragma once

#define WS_POPUP 0x80000000
#define WS_CHILD 0x40000000
#define WS_VISIBLE 0x10000000
#define WS_CAPTION 0x00C00000
#define WS_BORDER 0x00800000
#define WS_VSCROLL 0x00200000
#define WS_SYSMENU 0x00080000
#define WS_TABSTOP 0x00010000
#define WS_EX_CAPTIONOKBTN 0x80000000

#define DS_SETFONT 0x0040
#define DS_MODALFRAME 0x0080

#define SS_LEFT 0x0000
#define SS_CENTER 0x0001
#define SS_BITMAP 0x000E
#define SS_NOPREFIX 0x0080
#define BS_PUSHBUTTON 0x0000
#define BS_DEFPUSHBUTTON 0x0001
#define ES_AUTOHSCROLL 0x0080
#define CBS_DROPDOWNLIST 0x0003

#define I_IMAGENONE 0xFFFE
#define TBSTATE_ENABLED 0x04
#define TBSTYLE_DROPDOWN_AUTOSIZE 0x18 /* an RCDATA statement takes no expressions */

#define IDOK 1
#define IDCANCEL 2
#define IDC_STATIC (-1)

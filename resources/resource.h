/* Identifiers of the program's resources, for the resource script and the sources. */
#pragma once

/* Icon, menus, accelerators */
#define IDI_GLIMRA 101
#define IDM_MENU 102 /* also the menu bar */
#define IDR_ACCELERATORS 3

/* Commands of the menu */
#define IDM_GAME 40004
#define IDM_TOOLS 40005
#define IDM_NEW_GAME 40008
#define IDM_BUTTONS 40009
#define IDM_GAME_OPTIONS 40010
#define IDM_ABANDON_GAME 40014
#define IDM_SHOW_HIGH_SCORES 40016
#define IDM_ABOUT 40017

/* Pictures */
#define IDB_BACKDROP_0 107
#define IDB_TILES 109
#define IDB_BACKDROP_1 110
#define IDB_BACKDROP_2 111
#define IDB_TITLE 112
#define IDB_ABOUT 122

/* Sounds, of type "WAVE" */
#define IDW_ROTATE 114
#define IDW_ROWS_COMPLETE 115
#define IDW_LOCK 116
#define IDW_LEVEL_UP 117
#define IDW_SHIFT 124

/* About */
#define IDD_ABOUT 103

/* Game Options */
#define IDD_GAME_OPTIONS 118
#define IDC_HOLD 1002
#define IDC_GHOST 1003
#define IDC_SOUND 1004
#define IDC_QUEUE 1006

/* Buttons: one push button and one key name for each action, in the order of the actions */
#define IDD_BUTTONS 120
#define IDC_RESET_BUTTONS 1011
#define IDC_ACTION_0 1100
#define IDC_KEY_NAME_0 1110
#define IDD_PRESS_A_BUTTON 121
#define IDC_PRESS_A_BUTTON 1021

/* New High Score */
#define IDD_NEW_HIGH_SCORE 6120
#define IDC_NAME 6121

/* Texts */
#define IDS_TITLE 1
#define IDS_WINDOW_CLASS 3
#define IDS_GAME_MENU 104
#define IDS_TOOLS_MENU 40007
#define IDS_REGISTRY_KEY 40008
#define IDS_PAUSED 40009
#define IDS_GAME_OVER_1 40010
#define IDS_GAME_OVER_2 40011
#define IDS_MODE_0 40012 /* one for each of the four modes */
#define IDS_PLAY 40018
#define IDS_LINES 40019
#define IDS_LEVEL 40020
#define IDS_SCORE 40021
#define IDS_HIGH_SCORES 40023
#define IDS_DEFAULT_SCORES 40024
#define IDS_DEFAULT_SCORES_40_LINES 40025
#define IDS_OUT_OF_TIME_1 40026
#define IDS_OUT_OF_TIME_2 40027

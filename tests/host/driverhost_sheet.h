// Control ids of the sheet that the player's tests work on.
#pragma once

#define IDD_FIRST 101
#define IDD_SECOND 102
#define IDD_PROGRAM 103

#define IDC_EXTENDED 1001
#define IDC_COMBO 1002
#define IDC_EDIT 1003
#define IDC_SPIN 1004
#define IDC_CHECK 1005
#define IDC_RADIO_A 1006
#define IDC_RADIO_B 1007
#define IDC_ASK 1008
#define IDC_DISABLED 1009
#define IDC_HIDDEN 1010
#define IDC_STUBBORN 1011
#define IDC_LATER 1012
#define IDC_HANG 1013
#define IDC_NUMBER 1014
#define IDC_REFUSE 1015
#define IDC_LABEL 1016
#define IDC_BUSY 1017
#define IDC_NO_FOCUS 1018
#define IDC_DOUBTFUL 1019
#define IDC_REMARK 2001
#define IDC_LIST 2002
#define IDC_START 2003

// Of the program that the sheet starts. The text stands in a dialog inside its own.
#define IDC_PROGRAM_TEXT 3001
#define IDC_PROGRAM_COMBO 3002
#define IDC_PROGRAM_ASK 3003
#define IDC_PROGRAM_INNER 3004

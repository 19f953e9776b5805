// Numbers of the module's resources, for the resource scripts and the code that loads them.
#pragma once

// Icons that mark an option the device cannot do.
#define IDI_NOT_FITTED_SMALL 5 // made for 16x16
#define IDI_NOT_FITTED 19122   // made for 24x24 and 32x32

// Dialogs.
#define IDD_STANDARD_PAGE 1066
#define IDD_DEVICE_PAGE 1121
#define IDD_ADVANCED_PAGE 4007

// Controls of the advanced page.
#define IDC_RESTORE_DEFAULTS 1362
#define IDC_RESOLUTION 1363
#define IDC_RESOLUTION_LABEL 1399

// Strings.
#define IDS_SHEET_IN_USE 2014
#define IDS_COLON 2121
#define IDS_RESTRICTION_OFFER 2130
#define IDS_RESTRICTION_TELL 2132
#define IDS_ADVANCED_PAGE_TITLE 2500
#define IDS_STANDARD_PAGE_TITLE 3131
#define IDS_RESTRICTION_TITLE 3156
#define IDS_WARNING_TITLE 6012
#define IDS_EXPORT_EXTENSION 6007
#define IDS_DATA_DIRECTORY 6026
#define IDS_MIXED_SIZES 10343
#define IDS_RESTORE_DEFAULTS 15008
#define IDS_FAVORITE_EXTENSION 16000
#define IDS_FAVORITE_FILTER 16001
#define IDS_DEVICE_PAGE_TITLE 20049
#define IDS_NO_DOTNET 20100

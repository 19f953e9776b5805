// The numbers of the program's resources and of its window's controls.
#pragma once

#define IDR_DEVICE_DESCRIPTION 100

#define IDD_JOB_PROPERTY 200
#define IDC_SEARCH_LABEL 201
#define IDC_SEARCH 202
#define IDC_FOUND 203
#define IDC_SUBJECTS_LABEL 204
#define IDC_SUBJECTS 205
#define IDC_SETTINGS 206
#define IDC_EDITOR 207
#define IDC_NAME 208
#define IDC_KEYWORD 209
#define IDC_VALUE_LABEL 210
#define IDC_CHOICE 211
#define IDC_TEXT 212
#define IDC_PASSWORD 213
#define IDC_RANGE 214
#define IDC_NOTE 215
#define IDC_DEFAULT 216
#define IDC_REVERT 217
#define IDC_HINT 218
#define IDC_REVERT_SUBJECT 219
#define IDC_REVERT_ALL 220

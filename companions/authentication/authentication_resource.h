// The numbers of the dialog and its controls.
#pragma once

#define IDD_AUTHENTICATION 200
#define IDC_MODE_GROUP 201
#define IDC_MODE_OFF 202
#define IDC_MODE_ON 203
#define IDC_MODE_NOTE 204
#define IDC_OWNER_GROUP 205
#define IDC_OWNER_LOGIN 206
#define IDC_LOGIN_NAME 207
#define IDC_OWNER_SPECIFIED 208
#define IDC_USER_ID 209
#define IDC_PASSWORD_LABEL 210
#define IDC_PASSWORD 211
#define IDC_ACCOUNT_LABEL 212
#define IDC_ACCOUNT 213
#define IDC_OWNER_NOTE 214

// The numbers of the dialog and its controls.
#pragma once

#define IDD_COMMUNICATION 200
#define IDC_SERVER_GROUP 201
#define IDC_ADDRESS_LABEL 202
#define IDC_ADDRESS 203
#define IDC_ADDRESS_NOTE 204
#define IDC_OLDER_PRINTER 205

// The template of the tests' own page.
#pragma once

#define IDD_TEST_PAGE 900
#define IDC_TEST_LABEL 901
#define IDC_TEST_COMBO 902
#define IDC_TEST_LAST_LABEL 903
#define IDC_TEST_GROUP 910
#define IDC_TEST_RADIO_0 911
#define IDC_TEST_RADIO_1 912
#define IDC_TEST_RADIO_2 913
#define IDC_TEST_MISSING 999

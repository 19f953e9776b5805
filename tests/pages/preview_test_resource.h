// The templates of the preview's tests.
#pragma once

#define IDD_PREVIEW_TEST 920
#define IDD_PREVIEW_TEST_EMPTY 921 // without the preview's control

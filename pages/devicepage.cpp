#include "pages/devicepage.h"

INT_PTR CALLBACK DevicePropPageProc(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG ? 1 : 0;
}

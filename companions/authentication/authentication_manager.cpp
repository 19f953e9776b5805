#include "companions/authentication/authentication_manager.h"

std::int32_t OnAuthenticationManagerDlg(HANDLE, const char*, std::uint32_t) {
    return 0;
}

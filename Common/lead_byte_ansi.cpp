#include "Common/text.h"

#include <windows.h>

bool IsLeadByte(unsigned char byte) {
    return IsDBCSLeadByte(byte) != FALSE;
}

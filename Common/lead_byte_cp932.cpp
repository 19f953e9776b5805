#include "Common/text.h"

// Code page 932 stands for the process's ANSI code page where the platform has none.
bool IsLeadByte(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

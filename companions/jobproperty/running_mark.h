// A named mark that one process holds at a time, for as long as it lives.
#pragma once

#include "Common/win_handles.h"

#include <string>

namespace jobproperty {

class RunningMark {
  public:
    // `purpose` and the id make the name; both are plain letters and digits. Makes the mark if there is none.
    RunningMark(const char* purpose, const std::string& id);

    // False if another process holds it, or it can't be made. It is let go by the holder's end alone.
    bool Hold();

  private:
    UniqueHandle m_mutex;
};

// True when nobody holds the mark any more; false after this time.
bool WaitForRelease(const char* purpose, const std::string& id, DWORD milliseconds);

// The name of a kernel object of this session of the user.
std::string ObjectName(const char* purpose, const std::string& id);

} // namespace jobproperty

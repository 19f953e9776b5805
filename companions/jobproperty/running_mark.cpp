#include "companions/jobproperty/running_mark.h"

namespace jobproperty {

std::string ObjectName(const char* purpose, const std::string& id) {
    return std::string("Local\\ZephraJobProperty").append(purpose).append("_").append(id);
}

RunningMark::RunningMark(const char* purpose, const std::string& id)
    : m_mutex(CreateMutexA(nullptr, FALSE, ObjectName(purpose, id).c_str())) {}

bool RunningMark::Hold() {
    if (!m_mutex)
        return false;
    const DWORD waited = WaitForSingleObject(m_mutex.Get(), 0);
    // Abandoned: its holder has ended, and a third process has the name open.
    return waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

bool WaitForRelease(const char* purpose, const std::string& id, DWORD milliseconds) {
    const UniqueHandle mutex(OpenMutexA(SYNCHRONIZE, FALSE, ObjectName(purpose, id).c_str()));
    if (!mutex)
        return true;
    // The holder never releases it, so it is had when the holder is gone.
    const DWORD waited = WaitForSingleObject(mutex.Get(), milliseconds);
    return waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

} // namespace jobproperty

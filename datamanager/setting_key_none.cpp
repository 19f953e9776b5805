#include "datamanager/setting_key.h"

#include <ctime>

#include <unistd.h>

std::unique_ptr<SettingKey> MakeSettingKey(const std::string&, std::uint32_t) {
    return nullptr;
}

std::unique_ptr<SettingKey> OpenSettingKey(const std::string&) {
    return nullptr;
}

bool UserKeyExists(const std::string&) {
    return false;
}

bool DeleteUserKey(const std::string&) {
    return false;
}

std::uint32_t ProcessNumber() {
    return static_cast<std::uint32_t>(getpid());
}

std::uint64_t TimeNow() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000 +
           static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000;
}

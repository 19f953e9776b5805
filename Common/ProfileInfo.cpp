#include "Common/ProfileInfo.h"

#include "Common/data_directories.h"
#include "Common/device_configuration.h"
#include "Common/log.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

struct DataFile {
    const char* name;
    DeviceRecordMap CProfileInfo::*records;
};

// In the order of their reading.
constexpr DataFile kDataFiles[] = {
    {"Feeder.dat", &CProfileInfo::m_FeederInfo},
    {"Stacker.dat", &CProfileInfo::m_StackerInfo},
    {"Finisher.dat", &CProfileInfo::m_FinisherInfo},
};

// Indices of custom paper names below this have a slot.
constexpr int kNameIndexEnd = static_cast<int>(kProfileItemCount - kFirstCustomPaperNameSlot);

std::unique_ptr<ByteSource> OpenProfile(const char* profileName) {
    PathBuffer path{};
    if (!profileName || !GetProfilePath(path, profileName))
        return nullptr;
    return platform_files::OpenShared(path.data());
}

} // namespace

void CProfileInfo::InitProfile() {
    InitProfileItems(m_Item);
}

int CProfileInfo::UpdateProfile(const char* profileName) {
    ZR_LOG_ENTRY();
    InitProfile();
    const std::unique_ptr<ByteSource> file = OpenProfile(profileName);
    if (!file) {
        for (ProfileItem& item : m_Item)
            item.exists = 1;
        ZR_LOG("ifs=NULL\n");
        return 0;
    }
    TextLines lines(*file);
    std::string line;
    while (lines.Next(line))
        ScanProfileLine(m_Item, line);
    return 1;
}

int CProfileInfo::GetCustomPaperNameConfig(std::string* out, int index) const {
    ZR_LOG_ENTRY();
    if (!out || index < 0 || index >= kNameIndexEnd) {
        ZR_LOG("index=%d\n", index);
        return 0;
    }
    *out = m_Item[kFirstCustomPaperNameSlot + static_cast<std::size_t>(index)].value;
    return 1;
}

void CProfileInfo::LoadDeviceDataFiles(const char* directory) {
    ZR_LOG_ENTRY();
    if (!directory)
        return;
    for (const DataFile& file : kDataFiles) {
        PathBuffer path{};
        if (GetDeviceDataPath(path, directory, file.name) && platform_files::IsThere(path.data()))
            ReadDeviceDataFile(path.data(), file.name);
    }
}

int CProfileInfo::ReadDeviceDataFile(const char* path, const char* fileName) {
    ZR_LOG_ENTRY();
    const auto isOfName = [&](const DataFile& file) { return std::string_view(file.name) == fileName; };
    const DataFile* known = std::ranges::find_if(kDataFiles, isOfName);
    if (known == std::end(kDataFiles)) {
        ZR_LOG("no data file: %s\n", fileName);
        return 0;
    }
    const std::unique_ptr<ByteSource> file = platform_files::OpenShared(path);
    if (!file)
        return 0;
    TextLines lines(*file);
    (this->*known->records).AddLines(lines);
    return 1;
}

int CProfileInfo::GetTrayConfig(int* list, int listCount, const DeviceRecordMap& records) {
    return Answer(device_configuration::kTray, list, listCount, records);
}
int CProfileInfo::GetOutputConfig(int* list, int listCount, const DeviceRecordMap& records) {
    return Answer(device_configuration::kOutput, list, listCount, records);
}
int CProfileInfo::GetPunchConfig(int* list, int listCount, const DeviceRecordMap& records) {
    return Answer(device_configuration::kPunch, list, listCount, records);
}
int CProfileInfo::GetStapleConfig(int* list, int listCount, const DeviceRecordMap& records) {
    return Answer(device_configuration::kStaple, list, listCount, records);
}
int CProfileInfo::GetFoldConfig(int* list, int listCount, const DeviceRecordMap& records) {
    return Answer(device_configuration::kFold, list, listCount, records);
}
int CProfileInfo::GetJogConfig(int* list, int listCount, const DeviceRecordMap& records) {
    return Answer(device_configuration::kJog, list, listCount, records);
}

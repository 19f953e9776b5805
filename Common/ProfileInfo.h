// The device profile: what is known of one print target beyond the stock driver's own data.
#pragma once

#include "Common/device_records.h"
#include "Common/profile_items.h"

#include <array>
#include <string>

// One instance serves the process. It is used on the thread of the open sheet; there is no lock.
class CProfileInfo {
  public:
    CProfileInfo() = default;
    virtual ~CProfileInfo() = default;
    CProfileInfo(const CProfileInfo&) = delete;
    CProfileInfo& operator=(const CProfileInfo&) = delete;

    // Sets the table of items back to its start.
    void InitProfile();

    // Reads the profile file of this name anew. 1 if it was read to its end, 0 if it could not be opened:
    // then every item counts as there. Nothing of an earlier profile is kept.
    int UpdateProfile(const char* profileName);

    // Copies the name of a custom paper, "" for one without, and gives 1. Callers pass 0 to 19; indices up to
    // 119 give the slots behind the names. 0 for any other index and for a missing `out`.
    int GetCustomPaperNameConfig(std::string* out, int index) const;

    // Reads those of the three data files that stand in the directory, which ends in a backslash. What
    // earlier readings have found stays; only records and keys that are new are added.
    void LoadDeviceDataFiles(const char* directory);

    // Reads one data file into the records of its name. 0 if it can't be opened, else 1.
    int ReadDeviceDataFile(const char* path, const char* fileName);

    // Each fills list[0 .. listCount-1] with 1 for an option that is fitted and 0 for one that is not, index
    // 0 being the "none" or "auto" choice. 1, or 0 for a missing list; all but the first two refuse a
    // listCount below 1 as well. Throws std::invalid_argument or std::out_of_range for a tray or output
    // record whose number is none.
    static int GetTrayConfig(int* list, int listCount, const DeviceRecordMap& records);   // of m_FeederInfo
    static int GetOutputConfig(int* list, int listCount, const DeviceRecordMap& records); // of m_StackerInfo
    static int GetPunchConfig(int* list, int listCount, const DeviceRecordMap& records);  // of m_FinisherInfo
    static int GetStapleConfig(int* list, int listCount, const DeviceRecordMap& records); // of m_FinisherInfo
    static int GetFoldConfig(int* list, int listCount, const DeviceRecordMap& records);   // of m_FinisherInfo
    static int GetJogConfig(int* list, int listCount, const DeviceRecordMap& records);    // of m_FinisherInfo

    std::array<ProfileItem, kProfileItemCount> m_Item;
    DeviceRecordMap m_FeederInfo;   // Feeder.dat
    DeviceRecordMap m_StackerInfo;  // Stacker.dat
    DeviceRecordMap m_FinisherInfo; // Finisher.dat
};

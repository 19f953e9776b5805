#include "session/single_values.h"

#include "Common/log.h"
#include "Common/text.h"
#include "session/datamanager.h"

namespace single_value {

void SetProfile(const char* profile) {
    ZR_LOG("Profile=%s\n", profile);
    ExportedFunc_SetProfile(profile);
}

void SetJobName(const char* name) {
    ZR_LOG("JobName=%s\n", name);
    ExportedFunc_SetJobName(name);
}

void SetSPages(const char* pages) {
    ZR_LOG("SPages=%s\n", pages);
    ExportedFunc_SetSPages(pages);
}

void SetCmykKPreservation(std::uint32_t value) {
    ZR_LOG("CmykKPreservation=%u\n", value);
    ExportedFunc_SetCmykKPreservation(value);
}

void GetCmykKPreservation(std::uint32_t* value) {
    ExportedFunc_GetCmykKPreservation(value);
    ZR_LOG("CmykKPreservation=%u\n", *value);
}

void SetSpecificJobName(std::uint32_t value) {
    ZR_LOG("SpecificJobName=%u\n", value);
    ExportedFunc_SetSpecificJobName(value);
}

void GetSpecificJobName(std::uint32_t* value) {
    ExportedFunc_GetSpecificJobName(value);
    ZR_LOG("SpecificJobName=%u\n", *value);
}

void GetJobName(Scratch scratch) {
    ExportedFunc_GetJobName(scratch.data());
}

void SaveJobName(PrivateDevMode& record, Scratch scratch) {
    GetJobName(scratch);
    CopyText(record.JobName, FieldText(scratch));
}

void SaveRecordSpecNumber(PrivateDevMode& record, Scratch scratch) {
    ExportedFunc_GetRecordSpecNumber(scratch.data());
    ZR_LOG("RecordSpecNumber=%s\n", scratch.data());
    ExportedFunc_GetRecordSpecNumber(scratch.data());
    CopyText(record.RecordSpecNumber, FieldText(scratch));
}

void SaveSPages(PrivateDevMode& record, Scratch scratch) {
    ExportedFunc_GetSPages(scratch.data());
    ZR_LOG("SPages=%s\n", scratch.data());
    ExportedFunc_GetSPages(scratch.data());
    CopyText(record.SPages, FieldText(scratch));
}

} // namespace single_value

// The values that do not travel as plain rows of the record: each has an operation of its own, with a log
// line.
#pragma once

#include "oemps/devmode.h"

#include <cstdint>
#include <span>

namespace single_value {

inline constexpr std::size_t kScratchSize = 1024;
// Where a text rests on its way from the store into the record; as wide as the widest text field.
using Scratch = std::span<char, kScratchSize>;

void SetProfile(const char* profile);
void SetJobName(const char* name);
void SetSPages(const char* pages);
void SetCmykKPreservation(std::uint32_t value);
void GetCmykKPreservation(std::uint32_t* value);
void SetSpecificJobName(std::uint32_t value);
void GetSpecificJobName(std::uint32_t* value);

// Reads the job's name into the scratch text.
void GetJobName(Scratch scratch);

// From the store into the record's field of that name.
void SaveJobName(PrivateDevMode& record, Scratch scratch);
void SaveRecordSpecNumber(PrivateDevMode& record, Scratch scratch);
void SaveSPages(PrivateDevMode& record, Scratch scratch);

} // namespace single_value

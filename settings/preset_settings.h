// Presets, the standard settings and the favourites: taking one over, and what a favourite keeps of the
// present settings. All of a print option set is part of a preset but for whom the job is authenticated as.
#pragma once

#include "settings/setting_info.h"

#include <cstdint>

class CSettingManager;

// The scale of a page that is printed as it is, in percent.
inline constexpr std::uint32_t kUnscaled = 100;

// Carries the user, the password and the account of a job over; they count as set even where they are empty.
void PutCredentials(const ddb::CPrintOptionEx& from, ddb::CPrintOptionEx& to);

// Makes the preset's settings the present ones, in the store too. The credentials stay those of the moment.
void TakePreset(CSettingManager& manager, const ddb::CPrintOptionEx& preset);

// Gives a favourite the settings that LoadCurrentSettingInfo has read last, with the standard settings'
// credentials.
void PutPresentSettings(CSettingManager& manager, CFavoriteSetting& favorite);

// Has the custom page lie in a direction that a preset is taken over with, 1 or 3: one that lies otherwise is
// turned to 1, so that its width and its height change places.
void TurnCustomPage(ddb::CPrintOptionEx& option);

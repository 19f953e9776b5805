// The session of the open document sheet.
#pragma once

struct SessionBlock;

// Null while no sheet is open.
SessionBlock* SettingSession();

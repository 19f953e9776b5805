#include "settings/setting_session.h"

// Sessions belong to sheets, and the native build has none.
SessionBlock* SettingSession() {
    return nullptr;
}

#include "settings/setting_session.h"

#include "session/session.h"

SessionBlock* SettingSession() {
    return CSessionAccessor::Instance()->GetSession();
}

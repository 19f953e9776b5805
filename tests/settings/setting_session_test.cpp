#include "settings/setting_info.h"

#include "session/session.h"

#include <gtest/gtest.h>

namespace {

TEST(SettingSession, IsTheOneThatTheAccessorHolds) {
    SessionBlock block{};
    CSessionAccessor::Instance()->SetSession(&block);
    EXPECT_EQ(CCurrentSetting().Session(), &block);
    EXPECT_EQ(CDefaultSetting().Session(), &block);
    EXPECT_EQ(CFavoriteSetting().Session(), &block);
    CSessionAccessor::Release();
    EXPECT_EQ(CCurrentSetting().Session(), nullptr);
}

} // namespace

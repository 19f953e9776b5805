// Favourite files of people who mean harm, or whose disk or editor did.
#pragma once

#include "settings/FavoriteFileManager.h"
#include "tests/settings/ended_texts.h"
#include "tests/settings/favorite_samples.h"
#include "tests/settings/xml_fixture.h"
#include "tests/support/repeated.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

// The files' folder of the XML tests, and a setting that has been used before.
class FavoriteHostile : public XmlTest {
  protected:
    FavoriteHostile() { FillSample(setting); }

    int Load(std::string_view bytes) {
        before = ImageOf(setting);
        return LoadBytes(manager, bytes, setting);
    }
    int LoadPath(const std::string& path) {
        before = ImageOf(setting);
        return manager.LoadFavoriteFromPath(setting, path.c_str());
    }

    // Since the last load. Images are too long to be told.
    void ExpectUntouched() const { EXPECT_TRUE(ImageOf(setting) == before); }

    void ExpectNextFileLoads() {
        CFavoriteSetting next;
        EXPECT_EQ(LoadBytes(manager, FavoriteAround("<NumOfCopies>3</NumOfCopies>"), next), 1);
        EXPECT_STREQ(next.Comment.data(), "sample");
        EXPECT_EQ(ValueOf("ONOC", next), "3");
    }

    void ExpectRefused(std::string_view bytes) {
        EXPECT_EQ(Load(bytes), -1) << bytes.substr(0, 200);
        ExpectUntouched();
        ExpectNextFileLoads();
    }

    // For what the platforms' parsers take or not as they are made. True if it was read.
    bool ExpectReadOrRefused(std::string_view bytes) {
        const int result = Load(bytes);
        if (result == -1)
            ExpectUntouched();
        else
            EXPECT_EQ(result, 1);
        EXPECT_EQ(TextWithoutEnd(setting), "");
        ExpectNextFileLoads();
        return result == 1;
    }

    void ExpectRead(std::string_view bytes) {
        EXPECT_EQ(Load(bytes), 1) << bytes.substr(0, 200);
        EXPECT_EQ(TextWithoutEnd(setting), "");
    }

    std::string Value(std::string_view tag) const { return ValueOf(tag, setting); }

    CFavoriteFileManager manager{{}};
    CFavoriteSetting setting;
    std::string before;
};

// The images as the module has them.
#include "tests/support/preview_listing.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

class ModuleImages : public testing::Test {
  protected:
    void SetUp() override {
        m_module = LoadLibraryExA("ZRPDS31J.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_NE(m_module, nullptr);
    }
    void TearDown() override { FreeLibrary(m_module); }

    // "widthxheightxdepth", "none" for one that is not there.
    std::string Bitmap(int number) const {
        const HANDLE bitmap =
            LoadImageA(m_module, MAKEINTRESOURCEA(number), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
        BITMAP header{};
        if (!bitmap || !GetObjectA(bitmap, sizeof header, &header))
            return "none";
        DeleteObject(bitmap);
        return std::to_string(header.bmWidth) + 'x' + std::to_string(header.bmHeight) + 'x' +
               std::to_string(header.bmBitsPixel);
    }

    std::string Icon(int number, int size) const {
        const auto icon =
            static_cast<HICON>(LoadImageA(m_module, MAKEINTRESOURCEA(number), IMAGE_ICON, size, size, 0));
        ICONINFO parts{};
        if (!icon || !GetIconInfo(icon, &parts))
            return "none";
        BITMAP header{};
        GetObjectA(parts.hbmColor, sizeof header, &header);
        DeleteObject(parts.hbmColor);
        DeleteObject(parts.hbmMask);
        DestroyIcon(icon);
        return std::to_string(header.bmWidth) + 'x' + std::to_string(header.bmHeight);
    }

    HMODULE m_module = nullptr;
};

} // namespace

TEST_F(ModuleImages, HaveTheStripsOfTheComboBoxes) {
    EXPECT_EQ(Bitmap(1053), "48x24x24");
    EXPECT_EQ(Bitmap(1054), "216x24x24");
    EXPECT_EQ(Bitmap(1055), "48x16x24");
    EXPECT_EQ(Bitmap(1059), "192x24x24");
    EXPECT_EQ(Bitmap(1061), "312x24x24");
    EXPECT_EQ(Bitmap(1065), "480x24x24");
    EXPECT_EQ(Bitmap(1124), "240x24x24");
}

TEST_F(ModuleImages, HaveTheSymbolsOfThePreview) {
    for (const int number :
         {1056, 1057, 1058, 1062, 1063, 1099, 1101, 1102, 1103, 1104, 1105, 1106, 1107, 1108})
        EXPECT_EQ(Bitmap(number), "32x32x24") << number;
}

TEST_F(ModuleImages, HaveTheBitmapOfEachLayer) {
    const std::vector<ListedLayer> layers = ListedLayers();
    ASSERT_EQ(layers.size(), 417u);
    for (const ListedLayer& layer : layers)
        EXPECT_EQ(Bitmap(layer.bitmap), layer.size) << layer.bitmap;
}

TEST_F(ModuleImages, HaveTheWarningMarkInThreeSizes) {
    EXPECT_EQ(Icon(5, 16), "16x16");
    EXPECT_EQ(Icon(19122, 24), "24x24");
    EXPECT_EQ(Icon(19122, 32), "32x32");
}

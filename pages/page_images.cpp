#include "pages/page_images.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "resources/resource.h"

namespace {

constexpr int kImageSize = 24;
constexpr int kMarkSize = 16;

struct Strip {
    int bitmap;
    bool hasNotFittedImage;
    int imageSize = kImageSize;
};

constexpr std::array<Strip, static_cast<std::size_t>(ImageStrip::Count)> kStrips{{
    {IDB_COLOR_MODE, false},
    {IDB_DUPLEX, false},
    {IDB_NUP, false},
    {IDB_STAPLE, true},
    {IDB_PUNCH, true},
    {IDB_FOLD, true},
    {IDB_FAVORITE_MARKS, false, kMarkSize},
}};

constexpr COLORREF kTransparent = 0xFF00FF;

UniqueImageList LoadStrip(const Strip& strip, HICON notFitted) {
    if (strip.hasNotFittedImage && !notFitted) {
        ZR_LOG("no icon for bitmap %d\n", strip.bitmap);
        return {};
    }
    UniqueImageList images(ImageList_LoadImageA(static_cast<HINSTANCE>(StringModule()),
                                                MAKEINTRESOURCEA(strip.bitmap), strip.imageSize, 0,
                                                kTransparent, IMAGE_BITMAP, LR_CREATEDIBSECTION | LR_SHARED));
    if (!images) {
        ZR_LOG("no bitmap %d\n", strip.bitmap);
        return {};
    }
    // Without the icon the last image of the strip itself would stand for an option that is not fitted.
    if (strip.hasNotFittedImage && ImageList_ReplaceIcon(images.Get(), -1, notFitted) < 0) {
        ZR_LOG("bitmap %d takes no icon\n", strip.bitmap);
        return {};
    }
    return images;
}

} // namespace

HIMAGELIST PageImages::Of(ImageStrip strip, HICON notFitted) {
    const auto index = static_cast<std::size_t>(strip);
    if (index >= m_lists.size())
        return nullptr;
    if (!m_lists[index])
        m_lists[index] = LoadStrip(kStrips[index], notFitted);
    return m_lists[index].Get();
}

PageImages& ProcessPageImages() {
    static PageImages images;
    return images;
}

HIMAGELIST AttachedImages(HWND comboEx) {
    return reinterpret_cast<HIMAGELIST>(SendMessageA(comboEx, CBEM_GETIMAGELIST, 0, 0));
}

void AttachImages(HWND comboEx, HIMAGELIST images) {
    if (!comboEx || AttachedImages(comboEx) == images)
        return;
    SendMessageA(comboEx, CBEM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
}

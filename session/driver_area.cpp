#include "session/driver_area.h"

#include "Common/log.h"

#include <cstring>

namespace {

constexpr std::size_t kWidthAt = 152;
constexpr std::size_t kHeightAt = 156;
constexpr std::size_t kDirectionAt = 168;
constexpr std::size_t kNeededSize = kDirectionAt + sizeof(CustomPage::direction);

bool HoldsCustomPage(const SessionBlock& block) {
    if (block.pDrvExtra && block.drvExtraSize >= kNeededSize)
        return true;
    ZR_LOG("the driver's area has %u bytes\n", block.drvExtraSize);
    return false;
}

} // namespace

std::optional<CustomPage> ReadCustomPage(const SessionBlock& block) {
    if (!HoldsCustomPage(block))
        return std::nullopt;
    CustomPage page;
    std::memcpy(&page.width, block.pDrvExtra + kWidthAt, sizeof page.width);
    std::memcpy(&page.height, block.pDrvExtra + kHeightAt, sizeof page.height);
    std::memcpy(&page.direction, block.pDrvExtra + kDirectionAt, sizeof page.direction);
    return page;
}

void WriteCustomPage(SessionBlock& block, const CustomPage& page) {
    if (!HoldsCustomPage(block))
        return;
    std::memcpy(block.pDrvExtra + kWidthAt, &page.width, sizeof page.width);
    std::memcpy(block.pDrvExtra + kHeightAt, &page.height, sizeof page.height);
    std::memcpy(block.pDrvExtra + kDirectionAt, &page.direction, sizeof page.direction);
}
